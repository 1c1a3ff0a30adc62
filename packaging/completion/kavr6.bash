# Completion of kavr6 for bash. Commands and options are those of its help.
_kavr6() {
  local word=$2 before=$3 about=${COMP_WORDS[1]} help candidates=()
  help=$("$1" "${about##-*}" --help 2>/dev/null)
  if [ "$before" = = ] && [ "$COMP_CWORD" -ge 2 ]; then
    before=${COMP_WORDS[COMP_CWORD - 2]}  # --port=COM3 comes as three words
  elif [ "$word" = = ]; then
    before=${COMP_WORDS[COMP_CWORD - 1]} word=
  fi
  case $before in
    --port)
      mapfile -t candidates < <("$1" ports 2>/dev/null | cut -d ' ' -f 1)
      ;;
    *)
      if [[ $before == --* ]] && grep -q -- "^  $before [A-Z]" <<< "$help"; then
        :  # its value is a file
      elif [[ $word == -* ]]; then
        mapfile -t candidates < <(sed -n '/^Options/,/^$/s/^  \(--[^ ]*\).*/\1/p' <<< "$help")
      elif [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t candidates < <(sed -n '/^Commands/,/^$/s/^  \([a-z]*\) .*/\1/p' <<< "$help")
      fi
      ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "${candidates[*]}" -- "$word")
  [ ${#COMPREPLY[@]} -gt 0 ] || { compopt -o filenames 2>/dev/null; mapfile -t COMPREPLY < <(compgen -f -- "$word"); }
}
complete -F _kavr6 kavr6
