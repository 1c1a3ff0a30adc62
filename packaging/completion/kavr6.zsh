#compdef kavr6
# Completion of kavr6 for zsh. Commands and options are those of its help.
local -a found
case $words[CURRENT-1] in
  --port)
    found=(${${(f)"$(_call_program ports $words[1] ports 2>/dev/null)"}%% *})
    compadd -a found
    _files
    return
    ;;
  --motors|--pdf)
    _files
    return
    ;;
esac
if [[ $words[CURRENT] == -* ]]; then
  found=(${(f)"$(_call_program options $words[1] --help | sed -n '/^Options/,/^$/s/^  \(--[^ ]*\).*/\1/p')"})
  compadd -a found
elif (( CURRENT == 2 )); then
  found=(${(f)"$(_call_program commands $words[1] --help | sed -n '/^Commands/,/^$/s/^  \([a-z]*\) .*/\1/p')"})
  compadd -a found
else
  _files
fi
