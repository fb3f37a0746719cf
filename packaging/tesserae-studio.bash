# Completes the options that the program's --help lists, and their values.
_tesserae_studio() {
  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
  case $before in
    --theme) mapfile -t COMPREPLY < <(compgen -W 'light dark system' -- "$word") ;;
    --language) mapfile -t COMPREPLY < <(compgen -W 'de en ja' -- "$word") ;;
    *)
      if [[ $word == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$("$1" --help 2>/dev/null | grep -oE -- '^ +--[a-z-]+')" -- "$word")
      else
        compopt -o filenames
        mapfile -t COMPREPLY < <(compgen -f -- "$word")
      fi ;;
  esac
}
complete -F _tesserae_studio tesserae-studio
