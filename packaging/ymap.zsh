#compdef ymap
# Completion of ymap(1) in zsh: verbs, options and the choices of an option, as the command's own
# help lists them, and file names for all else.

local verb=${words[2,CURRENT-1][(r)[^-]*]} previous=${words[CURRENT-1]} help
local -a choices
help=$(${words[1]} $verb --help 2>/dev/null) || return

if [[ $previous == --* ]]; then
    choices=(${(s:,:)"$(sed -n "s/^ *$previous TEXT:{\([^}]*\)}.*/\1/p" <<<$help)"})
fi
if (( ! $#choices )) && [[ ${words[CURRENT]} == -* ]]; then
    choices=($(grep -oE '^ +(-[a-z],)?--[a-z-]+' <<<$help | grep -oE -- '--[a-z-]+'))
elif (( ! $#choices )) && [[ ! $verb ]]; then
    choices=($(sed -n '/^Subcommands:/,/^$/s/^  \([a-z]*\) .*/\1/p' <<<$help))
fi
if (( $#choices )); then compadd -a choices; else _files; fi
