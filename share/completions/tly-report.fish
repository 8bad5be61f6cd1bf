# Made by scripts/completions.py, of what the program says of itself.

complete -c tly-report -f
complete -c tly-report -n __fish_use_subcommand -l help -d 'how it is used'
complete -c tly-report -n __fish_use_subcommand -l version -d 'its version'
complete -c tly-report -n __fish_use_subcommand -a run -d 'measure sources with tly, several at once, into one XML'
complete -c tly-report -n __fish_use_subcommand -a json -d 'all figures as JSON, for programs and for later comparison'
complete -c tly-report -n __fish_use_subcommand -a page -d 'one HTML page with charts, to look at and to print'
complete -c tly-report -n __fish_use_subcommand -a sarif -d 'notices as SARIF 2.1.0, for code scanning services and editors'
complete -c tly-report -n __fish_use_subcommand -a gitlab -d 'notices as a GitLab report on code quality'
complete -c tly-report -n __fish_use_subcommand -a checkstyle -d 'notices as the XML of Checkstyle, for Jenkins and others'
complete -c tly-report -n __fish_use_subcommand -a github -d 'notices as annotations of a GitHub workflow'
complete -c tly-report -n __fish_use_subcommand -a csv -d 'a table of figures for spreadsheets'
complete -c tly-report -n __fish_use_subcommand -a markdown -d 'tables for a comment on a change'
complete -c tly-report -n __fish_use_subcommand -a badge -d 'one figure for a page'\''s head'
complete -c tly-report -n __fish_use_subcommand -a top -d 'the functions that stand out by their figures'
complete -c tly-report -n __fish_use_subcommand -a new -d 'the notices that an earlier report or commit hasn'\''t'
complete -c tly-report -n __fish_use_subcommand -a trend -d 'the figures of the last commits, or of tags'
complete -c tly-report -n __fish_use_subcommand -a between -d 'what changed from one commit to another'
complete -c tly-report -n __fish_use_subcommand -a gate -d 'fail with 1 when limits are exceeded, and tell where'
complete -c tly-report -n __fish_use_subcommand -a rules -d 'what is wrong in a file of rules of your own'

complete -c tly-report -n '__fish_seen_subcommand_from run' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from run' -l classic -d 'read today'\''s constructs as tly does without -xMODERN'
complete -c tly-report -n '__fish_seen_subcommand_from run' -l jobs -x -d 'start N tly at once (1)'
complete -c tly-report -n '__fish_seen_subcommand_from run' -l tly -r -F -d 'the tly to start (the one beside tly-report, or on the PATH)'
complete -c tly-report -n '__fish_seen_subcommand_from run' -F

complete -c tly-report -n '__fish_seen_subcommand_from json' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from json' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from json' -F

complete -c tly-report -n '__fish_seen_subcommand_from page' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from page' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from page' -l before -r -F -d 'compare with this XML or JSON, or show this comparison of baselines, tly -X -w"x OLD, NEW"'
complete -c tly-report -n '__fish_seen_subcommand_from page' -l trend -x -a '(__fish_complete_directories)' -d 'draw the figures of the XML and JSON files in DIR as lines'
complete -c tly-report -n '__fish_seen_subcommand_from page' -F

complete -c tly-report -n '__fish_seen_subcommand_from sarif' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from sarif' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from sarif' -F

complete -c tly-report -n '__fish_seen_subcommand_from gitlab' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from gitlab' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from gitlab' -F

complete -c tly-report -n '__fish_seen_subcommand_from checkstyle' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from checkstyle' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from checkstyle' -F

complete -c tly-report -n '__fish_seen_subcommand_from github' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from github' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from github' -F

complete -c tly-report -n '__fish_seen_subcommand_from csv' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from csv' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from csv' -l table -x -a 'files functions classes notices languages kinds' -d 'files, functions, classes, notices, languages or kinds (files)'
complete -c tly-report -n '__fish_seen_subcommand_from csv' -F

complete -c tly-report -n '__fish_seen_subcommand_from markdown' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from markdown' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from markdown' -l before -r -F -d 'compare with this XML or JSON'
complete -c tly-report -n '__fish_seen_subcommand_from markdown' -F

complete -c tly-report -n '__fish_seen_subcommand_from badge' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from badge' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from badge' -l of -x -a 'lines complexity notices' -d 'lines (of code), complexity (the highest of a function) or notices (lines)'
complete -c tly-report -n '__fish_seen_subcommand_from badge' -l svg -d 'a picture in place of a JSON for a badge service'
complete -c tly-report -n '__fish_seen_subcommand_from badge' -F

complete -c tly-report -n '__fish_seen_subcommand_from top' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from top' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from top' -s n -x -d 'list N functions (10)'
complete -c tly-report -n '__fish_seen_subcommand_from top' -l by -x -a 'complexity lines parameters notices' -d 'complexity, lines, parameters or notices (complexity)'
complete -c tly-report -n '__fish_seen_subcommand_from top' -F

complete -c tly-report -n '__fish_seen_subcommand_from new' -l allow -r -F -d 'the findings that are passed over, by fingerprint or by number and file'
complete -c tly-report -n '__fish_seen_subcommand_from new' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from new' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from new' -l since -x -a "(git for-each-ref --format='%(refname:short)' 2>/dev/null)" -d 'compare what git tracks below the paths with what this commit had there'
complete -c tly-report -n '__fish_seen_subcommand_from new' -l max -x -d 'exit with 1 if more than N notices are new'
complete -c tly-report -n '__fish_seen_subcommand_from new' -l classic -d 'read today'\''s constructs as tly does without -xMODERN'
complete -c tly-report -n '__fish_seen_subcommand_from new' -l jobs -x -d 'start N tly at once (1)'
complete -c tly-report -n '__fish_seen_subcommand_from new' -l tly -r -F -d 'the tly to start (the one beside tly-report, or on the PATH)'
complete -c tly-report -n '__fish_seen_subcommand_from new' -F

complete -c tly-report -n '__fish_seen_subcommand_from trend' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from trend' -l page -r -F -d 'write a page as well'
complete -c tly-report -n '__fish_seen_subcommand_from trend' -l form -x -a 'text csv json' -d 'text, csv or json (text)'
complete -c tly-report -n '__fish_seen_subcommand_from trend' -l every -x -d 'each K-th commit only (1)'
complete -c tly-report -n '__fish_seen_subcommand_from trend' -l tags -d 'the last tags in place of commits'
complete -c tly-report -n '__fish_seen_subcommand_from trend' -l classic -d 'read today'\''s constructs as tly does without -xMODERN'
complete -c tly-report -n '__fish_seen_subcommand_from trend' -l jobs -x -d 'start N tly at once (1)'
complete -c tly-report -n '__fish_seen_subcommand_from trend' -l tly -r -F -d 'the tly to start (the one beside tly-report, or on the PATH)'
complete -c tly-report -n '__fish_seen_subcommand_from trend' -F

complete -c tly-report -n '__fish_seen_subcommand_from between' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from between' -l page -r -F -d 'write a page as well'
complete -c tly-report -n '__fish_seen_subcommand_from between' -s n -x -d 'list N files, functions and notices each (10)'
complete -c tly-report -n '__fish_seen_subcommand_from between' -l classic -d 'read today'\''s constructs as tly does without -xMODERN'
complete -c tly-report -n '__fish_seen_subcommand_from between' -l jobs -x -d 'start N tly at once (1)'
complete -c tly-report -n '__fish_seen_subcommand_from between' -l tly -r -F -d 'the tly to start (the one beside tly-report, or on the PATH)'
complete -c tly-report -n '__fish_seen_subcommand_from between' -a "(git for-each-ref --format='%(refname:short)' 2>/dev/null)"
complete -c tly-report -n '__fish_seen_subcommand_from between' -F

complete -c tly-report -n '__fish_seen_subcommand_from gate' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from gate' -l root -x -a '(__fish_complete_directories)' -d 'the directory where tly ran; paths are shown relative to it (the current one)'
complete -c tly-report -n '__fish_seen_subcommand_from gate' -l max-complexity -x -d 'no function may have a cyclomatic complexity above N'
complete -c tly-report -n '__fish_seen_subcommand_from gate' -l max-lines -x -d 'no function may have more than N lines'
complete -c tly-report -n '__fish_seen_subcommand_from gate' -l max-notices -x -d 'there may be N notices (0 if no other limit is named)'
complete -c tly-report -n '__fish_seen_subcommand_from gate' -l notice -x -d 'there may be N notices of this kind, such as 12=0; may stand several times'
complete -c tly-report -n '__fish_seen_subcommand_from gate' -l new -r -F -d 'there may be no notice that OLD hasn'\''t: a JSON, SARIF or GitLab file of tly-report'
complete -c tly-report -n '__fish_seen_subcommand_from gate' -l allow -r -F -d 'the findings that are passed over, by fingerprint or by number and file'
complete -c tly-report -n '__fish_seen_subcommand_from gate' -F

complete -c tly-report -n '__fish_seen_subcommand_from rules' -s o -l output -r -F -d 'write to FILE (standard output)'
complete -c tly-report -n '__fish_seen_subcommand_from rules' -F
