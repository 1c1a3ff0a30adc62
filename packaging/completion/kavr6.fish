# Completion of kavr6 for fish. Commands and options are those of its help.
function __kavr6_section -a section about
    kavr6 $about --help 2>/dev/null | sed -n "/^$section/,/^\$/s/^  -*\([^ ]*\) .*  \(.*\)/\1\t\2/p"
end
complete -c kavr6 -n __fish_use_subcommand -f -a "(__kavr6_section Commands)"
for command in (__kavr6_section Commands | cut -f 1)
    for option in (__kavr6_section Options $command)
        set -l words (string split \t $option)
        set -l complete complete -c kavr6 -n "__fish_seen_subcommand_from $command" -l $words[1] -d $words[2]
        switch $words[1]
            case port
                $complete -r -a "(kavr6 ports 2>/dev/null | cut -d ' ' -f 1)"
            case motors pdf
                $complete -r
            case '*'
                $complete
        end
    end
end
