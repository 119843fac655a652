# Completion of ymap(1) in bash: verbs, options and the choices of an option, as the command's own
# help lists them, and file names for all else.

_ymap()
{
    local word=$2 previous=$3 verb="" choices="" each help
    for each in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        [[ $each == -* ]] || { verb=$each; break; }
    done
    help=$("$1" ${verb:+"$verb"} --help 2>/dev/null) || return

    if [[ $previous =~ ^--[a-z-]+$ ]]; then
        choices=$(sed -n "s/^ *$previous TEXT:{\([^}]*\)}.*/\1/p" <<<"$help")
        choices=${choices//,/ }
    fi
    if [[ ! $choices && $word == -* ]]; then
        choices=$(grep -oE '^ +(-[a-z],)?--[a-z-]+' <<<"$help" | grep -oE -- '--[a-z-]+')
    elif [[ ! $choices && ! $verb ]]; then
        choices=$(sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<"$help")
    fi
    mapfile -t COMPREPLY < <(compgen -W "$choices" -- "$word")
}

complete -o default -F _ymap ymap
