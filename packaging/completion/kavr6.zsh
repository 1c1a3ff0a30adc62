#compdef kavr6
# Completion of kavr6 for zsh. Commands and options are those of its help.
local help about entry name text state
local -a specs found
local -A opt_args
[[ $words[2] == *[^a-z]* ]] || about=$words[2]
help=$(_call_program help $words[1] $about --help 2>/dev/null)
for entry in ${(f)"$(sed -n '/^Options/,/^$/s/^  --//p' <<< $help)"}; do
  name=${entry%% *} text=${entry##*  }
  case $entry in
    port\ *) specs+=("--port=[$text]:port:->port") ;;
    $name\ [A-Z]*) specs+=("--${name}=[$text]:file:_files") ;;
    *) specs+=("--${name}[$text]") ;;
  esac
done
_arguments $specs '1:command:->command' '*:file:_files' && return
case $state in
  command)
    for entry in ${(f)"$(_call_program commands $words[1] --help 2>/dev/null | sed -n '/^Commands/,/^$/s/^  //p')"}; do
      found+=("${entry%% *}:${entry##*  }")
    done
    _describe command found
    ;;
  port)
    found=(${${(f)"$(_call_program ports $words[1] ports 2>/dev/null)"}%% *})
    compadd -a found
    _files
    ;;
esac
