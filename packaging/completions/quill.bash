# bash completion for quill
_quill() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} command='' word
  for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
    case "$word" in
      list | run | trigger | insert | title | normalize | denormalize | image-table | image-text | highlight | phonetics | link | signin | online | monitor | practice | backup | package | restore | extract | onedrive | varlink | favourites | templates | update | settings | doctor) command=$word && break ;;
    esac
  done
  case "$previous" in
    --in | --out | --data | --text | --file | --html | --root) COMPREPLY=($(compgen -f -- "$current")) && return ;;
    --mode) COMPREPLY=($(compgen -W "two-paragraphs paragraph paragraphs tabs commas other" -- "$current")) && return ;;
    --now | --tag | --lang | --theme | --font | --size | --shading | --language | --phonetic | --style | --separator | --columns | --rows | --redirect | --code | --link | --find | --replace | --port | --latency | --fault | --token-life) return ;;
    get | set) COMPREPLY=($(compgen -W "$(quill settings list 2>/dev/null | cut -d' ' -f1)" -- "$current")) && return ;;
  esac
  case "$command" in
    '') COMPREPLY=($(compgen -W "list run trigger insert title normalize denormalize image-table image-text highlight phonetics link signin online monitor practice backup package restore extract onedrive varlink favourites templates update settings doctor --root --explain --stats --help --version" -- "$current")) ;;
    run | trigger)
      local flags="--tag"
      [ "$command" = run ] && flags="--in --fragment --text --out --file --tag --style --mode --separator --columns --rows --phonetic --json"
      COMPREPLY=($(compgen -W "$flags $(quill list 2>/dev/null | grep -o 'MenuItem[A-Za-z0-9]*')" -- "$current"))
      ;;
    insert) COMPREPLY=($(compgen -W "date time datetime html calendar year-calendar --now --year --month --html --out --fragment" -- "$current")) ;;
    title) COMPREPLY=($(compgen -W "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14 15 --in" -- "$current")) ;;
    image-table) COMPREPLY=($(compgen -W "--horizontal --names --out" -f -- "$current")) ;;
    image-text) COMPREPLY=($(compgen -W "clean paragraphs --in --html" -- "$current")) ;;
    highlight) COMPREPLY=($(compgen -W "--lang --theme --font --size --line-numbers --bold --frame --shading --own-rules --in --out" -- "$current")) ;;
    phonetics) COMPREPLY=($(compgen -W "--language --json" -- "$current")) ;;
    signin) COMPREPLY=($(compgen -W "--redirect --code --status --out --json" -- "$current")) ;;
    online) COMPREPLY=($(compgen -W "0 1 2 3 10000 10001 10002 10003 10004 10005 --link --file --find --replace --match-case --dry-run --yes --json" -- "$current")) ;;
    monitor) COMPREPLY=($(compgen -W "--once --json" -- "$current")) ;;
    practice) COMPREPLY=($(compgen -W "--port --data --latency --fault --token-life --sign-in" -- "$current")) ;;
    normalize) COMPREPLY=($(compgen -W "--unchecked" -- "$current")) ;;
    backup) COMPREPLY=($(compgen -W "run list restore clear --yes --json" -- "$current")) ;;
    package) COMPREPLY=($(compgen -W "list make --to --json" -- "$current")) ;;
    restore | extract) COMPREPLY=($(compgen -f -- "$current")) ;;
    onedrive) COMPREPLY=($(compgen -W "folders find --text --json" -- "$current")) ;;
    varlink) COMPREPLY=($(compgen -W "make resolve open" -f -- "$current")) ;;
    favourites) COMPREPLY=($(compgen -W "pages sections list add remove open --json" -- "$current")) ;;
    templates) COMPREPLY=($(compgen -W "list save insert export import delete --in --json" -f -- "$current")) ;;
    update) COMPREPLY=($(compgen -W "check --json" -- "$current")) ;;
    settings) COMPREPLY=($(compgen -W "list get set --json" -- "$current")) ;;
    list | doctor) COMPREPLY=($(compgen -W "--json" -- "$current")) ;;
  esac
}
complete -F _quill quill
