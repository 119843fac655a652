#!/usr/bin/env bash
# The command's help, its manual page and its completions in bash and zsh name the same verbs, the
# same options of each verb and the same choices of each option.
# usage: manual_test.sh YMAP FOLDER   with the page and the completions
set -euo pipefail
ymap=$1
folder=$2
page=$folder/ymap.1

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# Each of these prints a line "VERB OPTION CHOICE...", choices in order.

from_help()
{
    "$ymap" --help-all | awk '
        /^Subcommands:/            { in_verbs = 1 }
        in_verbs && /^[a-z]+$/     { verb = $1 }
        in_verbs && /^ +--[a-z]/   {
            choices = ""
            if (match($0, /TEXT:\{[^}]*\}/)) choices = substr($0, RSTART + 6, RLENGTH - 7)
            print verb, $1, choices
        }'
}

from_page()
{
    awk '
        /^\.Sh /    { in_synopsis = $2 == "SYNOPSIS" }
        !in_synopsis { next }
        /^\.Nm/     { verb = "" }
        /^\.Cm/     { verb = $2 }
        verb != "" && match($0, /Fl -[a-z-]+/) {
            option = "-" substr($0, RSTART + 3, RLENGTH - 3)
            choices = substr($0, RSTART + RLENGTH)
            if (!sub(/^ Cm /, "", choices)) choices = ""
            gsub(/ *\| */, ",", choices)
            print verb, option, choices
        }' "$page"
}

# complete_in_SHELL WORD...: what completing the last of these words offers.
complete_in_bash()
{
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    _ymap "$ymap" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    printf '%s\n' "${COMPREPLY[@]}"
}
complete_in_zsh()
{
    # shellcheck disable=SC2016 # expanded by zsh
    zsh -fc 'compadd() { print -l -- ${(P)2}; }
             _files() { :; }
             _ymap() { eval "$(<$1)"; }
             page=$1; shift
             words=("$@") CURRENT=$#; _ymap $page' zsh "$folder/ymap.zsh" "$ymap" "${@:2}"
}

# from_completion FUNCTION
from_completion()
{
    local verb option
    for verb in $("$1" ymap ""); do
        for option in $("$1" ymap "$verb" --); do
            case $option in --help | --help-all) continue ;; esac
            echo "$verb $option $("$1" ymap "$verb" "$option" "" | paste -sd,)"
        done
    done
}

# Sorts the lines, and the choices in each.
in_order()
{
    while read -r verb option choices; do
        echo "$verb $option $(tr ',' '\n' <<<"$choices" | sort | paste -sd' ')"
    done | sort
}

from_help | in_order >"$work/help"
grep -q 'map --format json table xml' "$work/help" # the help is read as it is meant to be
from_page | in_order | diff "$work/help" - || { echo "the page's synopsis differs"; exit 1; }
# shellcheck disable=SC1091
source "$folder/ymap.bash"
for shell in bash zsh; do
    from_completion complete_in_$shell | in_order | diff "$work/help" - ||
        { echo "the completion in $shell differs"; exit 1; }
done

# The command itself has no others, and each option has its paragraph in the page.
"$ymap" --help | sed -n '/^Options:/,/^$/p' | grep -oE -- '--[a-z-]+' >>"$work/own"
{ cut -d' ' -f2 "$work/help" && cat "$work/own"; } | sort -u >"$work/all"
sed -n 's/^\.It Fl \(h , \)\?\(-[a-z-]*\).*/-\2/p' "$page" | sort -u | diff "$work/all" - ||
    { echo "the page's list of options differs"; exit 1; }

echo "manual: $(wc -l <"$work/help") options agree"
