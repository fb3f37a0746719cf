# Completes the options that a program's --help lists, and their values; installed for each program.
_tesserae() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} words
  case $before in
    --theme) words='light dark system' ;;
    --language) words='de en ja' ;;
    --format) words='text tap' ;;
    --only) words=$("$1" --list 2>/dev/null) ;;
    *)
      if [[ $word != -* ]]; then
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
        return
      fi
      words=$("$1" --help 2>/dev/null | grep -oE -- '--[a-z-]+') ;;
  esac
  mapfile -t COMPREPLY < <(compgen -W "$words" -- "$word")
}
complete -F _tesserae tesserae-studio tesserae-check
