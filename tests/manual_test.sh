#!/usr/bin/env bash
# The command's help, its manual page and its completions in bash and zsh name the same verbs, the
# same options of each verb and the same choices of each option; and the examples of both can be
# run.
# usage: manual_test.sh YMAP FOLDER   with the page and the completions, in the folder of the sources
set -euo pipefail
ymap=$(realpath "$1")
folder=$(realpath "$2")
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

"$ymap" --version | grep -qE '^ymap [0-9]+\.[0-9]+\.[0-9]+$' || { echo "no version"; exit 1; }

# Those of the help are for the folder of the sources, those of the page for one with the examples;
# a library of the reader's own is left out, and what another program does with the output.
mkdir -p "$work/tests/transcripts"
cp -r "$folder/../examples" "$work"
cp "$folder"/../examples/*.xml "$work"
cp -r "$folder/../tests/transcripts/cases" "$work/tests/transcripts"
hello='<hello xmlns="urn:ietf:params:xml:ns:netconf:base:1.0"><capabilities><capability>'
hello+='urn:ietf:params:netconf:base:1.0</capability></capabilities></hello>]]>]]>'
{ "$ymap" --help-all | sed -n 's/^Example: //p'; sed -n 's/^\.Dl ymap/ymap/p' "$page"; } |
    sed 's/ --library [^ ]*//; s/ |.*//' >"$work/examples.sh"
for verb in $(cut -d' ' -f1 "$work/help" | sort -u); do
    [ "$(grep -c "^ymap $verb " "$work/examples.sh")" -gt 1 ] || { echo "no examples of $verb"; exit 1; }
done
while read -r line; do
    (cd "$work" && eval "${line/#ymap/\"\$ymap\"}" <<<"$hello" >out 2>err) ||
        { echo "'$line' ends with $?: $(tail -n 1 "$work/err")"; exit 1; }
done <"$work/examples.sh"

echo "manual: $(wc -l <"$work/examples.sh") examples run, $(wc -l <"$work/help") options agree"
