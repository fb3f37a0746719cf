# Completes the options and the names of checks that the program itself lists.
_tesserae_check() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  case $before in
    --format) mapfile -t COMPREPLY < <(compgen -W 'text tap' -- "$word") ;;
    --only) mapfile -t COMPREPLY < <(compgen -W "$("$1" --list 2>/dev/null)" -- "$word") ;;
    *)
      if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$("$1" --help 2>/dev/null | grep -oE -- '--[a-z-]+')" -- "$word")
      else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
      fi ;;
  esac
}
complete -F _tesserae_check tesserae-check
