# fish completion for quill
set -l commands list run trigger insert title normalize denormalize image-table image-text highlight phonetics link signin online monitor practice backup package restore extract onedrive varlink favourites templates update settings doctor
complete -c quill -f
complete -c quill -n "not __fish_seen_subcommand_from $commands" -a "$commands"
complete -c quill -l root -r -d 'Keep every folder below DIR'
complete -c quill -l explain -d 'Tell the steps on standard error'
complete -c quill -l stats -d 'Tell the times on standard error'
complete -c quill -n '__fish_seen_subcommand_from run trigger' -a "(quill list 2>/dev/null | string match -r 'MenuItem\w+')"
complete -c quill -n '__fish_seen_subcommand_from run' -l in -r -F -d 'Pasteboard HTML'
complete -c quill -n '__fish_seen_subcommand_from run' -l text -r -F -d 'Plain text beside it'
complete -c quill -n '__fish_seen_subcommand_from run insert' -l out -r -F -d 'Result'
complete -c quill -n '__fish_seen_subcommand_from run' -l file -r -F -d 'Answer to a save panel'
complete -c quill -n '__fish_seen_subcommand_from run trigger' -l tag -r -d 'Title tag'
complete -c quill -n '__fish_seen_subcommand_from run insert' -l fragment -d 'Bare fragment'
complete -c quill -n '__fish_seen_subcommand_from run list doctor settings' -l json -d 'One JSON object'
complete -c quill -n '__fish_seen_subcommand_from insert' -a 'date time datetime html calendar year-calendar'
complete -c quill -n '__fish_seen_subcommand_from insert' -l now -r -d 'Moment (ISO 8601)'
complete -c quill -n '__fish_seen_subcommand_from insert' -l year -r -d 'Year of a calendar'
complete -c quill -n '__fish_seen_subcommand_from insert' -l month -r -a '(seq 12)' -d 'Month of a calendar'
complete -c quill -n '__fish_seen_subcommand_from insert' -l html -r -F -d 'HTML to insert'
complete -c quill -n '__fish_seen_subcommand_from title' -a '(seq 0 15)'
complete -c quill -n '__fish_seen_subcommand_from title' -l in -r -F -d 'Title'
complete -c quill -n '__fish_seen_subcommand_from normalize' -l unchecked
complete -c quill -n '__fish_seen_subcommand_from settings' -a 'list get set'
complete -c quill -n '__fish_seen_subcommand_from run' -l style -r -a '(seq 0 34)' -d 'Table style'
complete -c quill -n '__fish_seen_subcommand_from run' -l mode -r -a 'two-paragraphs paragraph paragraphs tabs commas other' -d 'How cells are separated'
complete -c quill -n '__fish_seen_subcommand_from run' -l separator -r -d 'Between cells'
complete -c quill -n '__fish_seen_subcommand_from run' -l columns -r -d 'Of a table by paragraphs'
complete -c quill -n '__fish_seen_subcommand_from run' -l rows -r -d 'Of a table by paragraphs'
complete -c quill -n '__fish_seen_subcommand_from image-table' -F
complete -c quill -n '__fish_seen_subcommand_from image-table' -l horizontal -d 'All pictures in one row'
complete -c quill -n '__fish_seen_subcommand_from image-table' -l names -d 'Names of the files'
complete -c quill -n '__fish_seen_subcommand_from image-table' -l out -r -F -d 'Result'
complete -c quill -n '__fish_seen_subcommand_from image-text' -a 'clean paragraphs'
complete -c quill -n '__fish_seen_subcommand_from image-text' -l in -r -F -d 'Text'
complete -c quill -n '__fish_seen_subcommand_from image-text' -l html -d 'The input is a copied page'
complete -c quill -n '__fish_seen_subcommand_from highlight' -l lang -r -d 'Language, or auto'
complete -c quill -n '__fish_seen_subcommand_from highlight' -l theme -r -d 'Colours'
complete -c quill -n '__fish_seen_subcommand_from highlight' -l font -r
complete -c quill -n '__fish_seen_subcommand_from highlight' -l size -r -d 'Points'
complete -c quill -n '__fish_seen_subcommand_from highlight' -l line-numbers
complete -c quill -n '__fish_seen_subcommand_from highlight' -l bold
complete -c quill -n '__fish_seen_subcommand_from highlight' -l frame
complete -c quill -n '__fish_seen_subcommand_from highlight' -l shading -r -d 'Background as #RRGGBB'
complete -c quill -n '__fish_seen_subcommand_from highlight' -l own-rules
complete -c quill -n '__fish_seen_subcommand_from highlight' -l in -r -F -d 'Code'
complete -c quill -n '__fish_seen_subcommand_from highlight' -l out -r -F -d 'Result'
complete -c quill -n '__fish_seen_subcommand_from phonetics' -l language -r -a 'Chinese English French German Japanese'
complete -c quill -n '__fish_seen_subcommand_from phonetics' -l json
complete -c quill -n '__fish_seen_subcommand_from signin' -l redirect -r -d 'The address that the browser was sent to'
complete -c quill -n '__fish_seen_subcommand_from signin' -l code -r -d 'Authorisation code'
complete -c quill -n '__fish_seen_subcommand_from signin' -l status -d 'Who is signed in'
complete -c quill -n '__fish_seen_subcommand_from signin' -l out -d 'Sign out'
complete -c quill -n '__fish_seen_subcommand_from online' -a '0 1 2 3 10000 10001 10002 10003 10004 10005'
complete -c quill -n '__fish_seen_subcommand_from online' -l link -r -d 'Client link of the page'
complete -c quill -n '__fish_seen_subcommand_from online' -l file -r -F -d 'Where 0 and 1 write to'
complete -c quill -n '__fish_seen_subcommand_from online' -l find -r -d 'Text to find (10002)'
complete -c quill -n '__fish_seen_subcommand_from online' -l replace -r -d 'Text in its place (10002)'
complete -c quill -n '__fish_seen_subcommand_from online' -l match-case
complete -c quill -n '__fish_seen_subcommand_from online' -l dry-run -d 'Only print the changes'
complete -c quill -n '__fish_seen_subcommand_from online' -l yes -d 'Agree to what is asked'
complete -c quill -n '__fish_seen_subcommand_from monitor' -l once -d 'Count once'
complete -c quill -n '__fish_seen_subcommand_from signin online monitor' -l json -d 'One JSON object'
complete -c quill -n '__fish_seen_subcommand_from practice' -l port -r -d 'Port'
complete -c quill -n '__fish_seen_subcommand_from practice' -l data -r -F -d 'Folder of the pages'
complete -c quill -n '__fish_seen_subcommand_from practice' -l latency -r -d 'Milliseconds before each answer'
complete -c quill -n '__fish_seen_subcommand_from practice' -l fault -r -d 'NAME[@PATH][+SKIP][xCOUNT]'
complete -c quill -n '__fish_seen_subcommand_from practice' -l token-life -r -d 'Seconds'
complete -c quill -n '__fish_seen_subcommand_from backup' -a 'run list restore clear'
complete -c quill -n '__fish_seen_subcommand_from backup' -l yes -d 'Agree to what is asked'
complete -c quill -n '__fish_seen_subcommand_from package' -a 'list make'
complete -c quill -n '__fish_seen_subcommand_from package' -l to -r -F -d 'Folder of the packages'
complete -c quill -n '__fish_seen_subcommand_from restore extract' -F
complete -c quill -n '__fish_seen_subcommand_from onedrive' -a 'folders find'
complete -c quill -n '__fish_seen_subcommand_from onedrive' -l text -r -d 'Text of the link'
complete -c quill -n '__fish_seen_subcommand_from varlink' -a 'make resolve open' -F
complete -c quill -n '__fish_seen_subcommand_from favourites' -a 'pages sections list add remove open'
complete -c quill -n '__fish_seen_subcommand_from templates' -a 'list save insert export import delete' -F
complete -c quill -n '__fish_seen_subcommand_from templates' -l in -r -F -d 'HTML'
complete -c quill -n '__fish_seen_subcommand_from update' -a 'check'
complete -c quill -n '__fish_seen_subcommand_from backup package onedrive favourites templates update' -l json -d 'One JSON object'
