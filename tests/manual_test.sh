#!/usr/bin/env bash
# The command's help, its manual page and its completion in bash name the same verbs, the same
# options of each verb and the same choices of each option.
# usage: manual_test.sh YMAP PAGE COMPLETION
set -euo pipefail
ymap=$1
page=$2
completion=$3

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

# complete_words WORD...: what completing the last of these words offers.
complete_words()
{
    COMP_WORDS=("$@")
    COMP_CWORD=$(($# - 1))
    COMPREPLY=()
    _ymap "$ymap" "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    printf '%s\n' "${COMPREPLY[@]}"
}

from_completion()
{
    # shellcheck disable=SC1090
    source "$completion"
    local verb option
    for verb in $(complete_words ymap ""); do
        for option in $(complete_words ymap "$verb" --); do
            case $option in --help | --help-all) continue ;; esac
            echo "$verb $option $(complete_words ymap "$verb" "$option" "" | paste -sd,)"
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
from_completion | in_order | diff "$work/help" - || { echo "the completion differs"; exit 1; }

# The command itself has no others, and each option has its paragraph in the page.
"$ymap" --help | sed -n '/^Options:/,/^$/p' | grep -oE -- '--[a-z-]+' >>"$work/own"
{ cut -d' ' -f2 "$work/help" && cat "$work/own"; } | sort -u >"$work/all"
sed -n 's/^\.It Fl \(h , \)\?\(-[a-z-]*\).*/-\2/p' "$page" | sort -u | diff "$work/all" - ||
    { echo "the page's list of options differs"; exit 1; }

echo "manual: $(wc -l <"$work/help") options agree"
