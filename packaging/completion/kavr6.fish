# Completion of kavr6 for fish. Commands and options are those of its help.
complete -c kavr6 -n __fish_use_subcommand -f \
    -a "(kavr6 --help | sed -n '/^Commands/,/^\$/s/^  \([a-z]*\) .*  \(.*\)/\1\t\2/p')"
for option in (kavr6 --help | sed -n '/^Options/,/^$/s/^  --\([^ ]*\) .*/\1/p')
    complete -c kavr6 -l $option
end
complete -c kavr6 -l port -x -a "(kavr6 ports 2>/dev/null | cut -d ' ' -f 1; __fish_complete_path)"
complete -c kavr6 -l motors -r
complete -c kavr6 -l pdf -r
