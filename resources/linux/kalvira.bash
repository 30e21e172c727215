# Completion of bash for kalvira; the options are those that it names itself.
_kalvira() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
  compopt -o filenames
  case $previous in
    --datenordner | --alle-jahre) mapfile -t COMPREPLY < <(compgen -d -- "$current"); return ;;
    --html | --pdf | --csv) mapfile -t COMPREPLY < <(compgen -f -- "$current"); return ;;
  esac
  if [[ $current == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$("$1" --help 2>/dev/null | grep -oE -- '--[a-z][a-z-]*')" -- "$current")
  else
    mapfile -t COMPREPLY < <(compgen -f -X '!*.[kK][wW][dD]' -- "$current"; compgen -d -- "$current")
  fi
}
complete -F _kalvira kalvira
