#!/usr/bin/env bash
# offered.sh SHELL COMPLETIONS LINE: what the shell (bash, zsh or fish) offers at the end of LINE, one to a line, with the
# completions in the folder COMPLETIONS. bash and zsh are driven at a terminal of their own, by keys. Works in the current
# folder, and keeps its notes in the folder of HOME.
set -euo pipefail

notes=$HOME/offered
completions=$2
line=$3

# at_terminal KEYS COMMAND: the command at a terminal, where KEYS are typed, maybe before it listens: none of them may mean
# anything to the terminal itself.
at_terminal() {
    printf '%b' "$1" | TERM=dumb timeout 30 script --quiet --return --command "$2" /dev/null >"$HOME/terminal"
}

# Escape and "*" put all that is offered onto the line, which Ctrl+G notes.
in_bash() {
    cat >"$HOME/bashrc" <<END
PS1=
for file in '$completions'/*; do source "\$file"; done
bind -x '"\C-g": printf %s "\$READLINE_LINE" >"$notes"; exit'
END
    at_terminal "$line\e*\a" "bash --noprofile --rcfile '$HOME/bashrc' -i"
    # What stood before the word that is completed, and the blank behind the last one, are no offers.
    local before=${line% *} all
    all=$(<"$notes")
    xargs --no-run-if-empty printf '%s\n' <<<"${all#"$before "}"
}

# All offers pass through compadd.
in_zsh() {
    cat >"$HOME/.zshrc" <<END
PS1=
fpath=('$completions' \$fpath)
autoload -Uz compinit
compinit -u -D
compadd() {
    if [[ \${@[1,(i)(-|--)]} != *-(O|A|D)\ * ]]; then
        local -a offers
        builtin compadd -A offers "\$@"
        (( ! \$#offers )) || print -rl -- \$offers >>'$notes'
    fi
    builtin compadd "\$@"
}
leave() { exit; }
zle -N leave
bindkey '^G' leave
END
    : >"$notes"
    at_terminal "$line\t\a" "ZDOTDIR='$HOME' zsh -i"
    cat "$notes"
}

in_fish() {
    XDG_CONFIG_HOME=$HOME XDG_DATA_HOME=$HOME fish --no-config --command \
        'set fish_complete_path $argv[1] $fish_complete_path; complete --do-complete $argv[2]' "$completions" "$line" |
        cut --fields 1
}

"in_$1"
