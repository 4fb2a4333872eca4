# bash completion for zelvo-standup
_zelvo_standup()
{
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    if [[ $before == --language || ( $before == = && ${COMP_WORDS[COMP_CWORD - 2]} == --language ) ]]; then
        mapfile -t COMPREPLY < <(compgen -W "en de fr es nl" -- "$word")
    else
        mapfile -t COMPREPLY < <(compgen -W "--show --history --settings --snooze --skip --quit --status --json \
            --watch --simulate --language --test-window --version --help" -- "$word")
    fi
}
complete -F _zelvo_standup zelvo-standup
