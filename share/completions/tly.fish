# Made by scripts/completions.py, of what the program says of itself.

# The files, or with "directory" the directories, that begin with a text; another text stands ahead of each.
function __tly_paths --argument-names what before text
    for path in "$text"*
        if test -d "$path"
            echo "$before$path/"
        else if test $what = file
            echo "$before$path"
        end
    end
end

# What can stand behind the letter of a switch. A quote behind it and backslashes aren't part of its text.
function __tly_forms --argument-names letter
    set -l text (commandline -ct | string sub -s 3 | string replace -r '^["\']' '' | string replace -a '\\' '')
    switch "$letter$text"
        case 'r* *'
            __tly_paths directory (string match -r '^\S* ' -- $text) (string replace -r '^\S* ' '' -- $text)
        case 'wx *,*'
            __tly_paths file (string match -r '^[^,]*, *' -- $text) (string replace -r '^[^,]*, *' '' -- $text)
        case 'uFile CFG *'
            __tly_paths file 'File CFG ' (string replace 'File CFG ' '' -- $text)
        case 'uFile XSL *'
            __tly_paths file 'File XSL ' (string replace 'File XSL ' '' -- $text)
        case 'wCreate *'
            __tly_paths directory 'Create ' (string replace 'Create ' '' -- $text)
        case 'wFile dat *'
            __tly_paths file 'File dat ' (string replace 'File dat ' '' -- $text)
        case 'wFile cfg *'
            __tly_paths file 'File cfg ' (string replace 'File cfg ' '' -- $text)
        case 'wx *'
            __tly_paths file 'x ' (string replace 'x ' '' -- $text)
        case 'xFile csv *'
            __tly_paths file 'File csv ' (string replace 'File csv ' '' -- $text)
        case 'F*' 'O*'
            __tly_paths file '' "$text"
        case 'D*'
            printf '%s\t%s\n' \
                't' 'Tabs to blanks' \
                'u' 'UNIX line ends, carriage returns removed' \
                'd' 'DOS line ends, carriage returns added'
        case 'E*'
            printf '%s\t%s\n' \
                's' 'Strings' \
                'c' 'Comments' \
                'C' 'Comments together with function names'
        case 'f*'
            printf '%s\t%s\n' \
                'a' 'Functional Identification Analysis' \
                'd' 'Function File Details' \
                'm' 'Function and Attribute Detail for Classes' \
                'p' 'Function Points Derived from LOC Metrics'
        case 'h*'
            printf '%s\t%s\n' \
                's' 'Help syntax for operation' \
                'f' 'Help manual full text' \
                'c' 'Display configuration parameters' \
                'n' 'Quality notice types' \
                'p' 'Short syntax with a pause'
        case 'k*'
            printf '%s\t%s\n' \
                '0' 'No Sort' \
                '1' 'Name' \
                '2' 'LOC' \
                '3' 'eLOC' \
                '4' 'lLOC' \
                '5' 'Cyclomatic Complexity' \
                '6' 'Work State of a Baseline Differential' \
                '7' 'Function Count of Files' \
                '8' 'Quality Notice Count of Files' \
                '9' 'File Date' \
                '10' 'File Size' \
                'd' 'Descending Order'
        case 'N*'
            printf '%s\t%s\n' \
                's' 'Short Single Line Format' \
                'v' 'Visual Studio Format'
        case 'R*'
            printf '%s\t%s\n' \
                'd' 'Do not descend into directories' \
                'l' 'List the files only' \
                'n' 'Sort the files by name'
        case 'T*'
            printf '%s\t%s\n' \
                'a' 'All Totals' \
                'd' 'Detail Line for Each File' \
                'f' 'Function Totals' \
                'i' 'Inheritance Tree' \
                'l' 'Summaries Only' \
                'L' 'Language Totals' \
                'n' 'Quality Notices by File' \
                'N' 'No File Names' \
                'o' 'Class, Interface and Namespace Totals' \
                'p' 'Quality Profile' \
                'q' 'Quality Notice Summary' \
                's' 'Project Summary' \
                'v' 'Verbose Totals' \
                'w' 'Work File Differential Totals'
        case 'u*'
            printf '%s\t%s\n' \
                'File CFG ' 'Configuration file' \
                'File XSL ' 'Style sheet of an XML report'
        case 'w*'
            printf '%s\t%s\n' \
                'Create ' 'Create a baseline of a directory' \
                'File dat ' 'Name of the work file' \
                'File cfg ' 'Configuration of the differential report' \
                'x ' 'Compare two work files' \
                'D' 'Deterministic Codes of Lines, no Work File' \
                'd' 'Differentials Based on Code Lines' \
                'e' 'Skip Equal Files' \
                'r' 'Skip Removed Files' \
                'm' 'Skip Modified Files' \
                'n' 'Skip New Files' \
                'g' 'Glossary of the Report' \
                'b' 'Work Time Basis' \
                'p' 'Productivity' \
                's' 'Show Details Line by Line' \
                'v' 'Verbose Work File Messages'
        case 'x*'
            printf '%s\t%s\n' \
                'NOCONFIG' 'No configuration file in the report header' \
                'NOCOMMAND' 'No command line in the report header' \
                'NOHEADER' 'No report header' \
                'NOWRAP' 'Long names are not wrapped' \
                'UDQNSHOW' 'Show user defined quality notices' \
                'DEBUG' 'Debug output' \
                'DIFFDEBUG' 'Debug output of differentials' \
                'c' 'Template of a configurable CSV report' \
                'File csv ' 'Configuration of a CSV report' \
                'MODERN' 'Read today'\''s C++, C#, Java: see Source File Requirements' \
                'UDQNKEYS' 'Show the keys of a file of your own quality notices'
    end
end

complete -c tly -s a -d 'Allocation/de-allocation memory function counts'
complete -c tly -s A -d 'Comma separated output, older name of -C'
complete -c tly -s b -d 'Benchmark processing time'
complete -c tly -s c -d 'Complexity metrics of functions'
complete -c tly -s C -d 'Comma separated variable output (CSV)'
complete -c tly -s d -d 'Determine how each source line is counted'
complete -c tly -s D -x -a '(__tly_forms D)' -d 'De-character source files in place'
complete -c tly -s e -d 'Estimation based on LOC and complexity'
complete -c tly -s E -x -a '(__tly_forms E)' -d 'Extract text from source files'
complete -c tly -s f -x -a '(__tly_forms f)' -d 'Function and file metrics'
complete -c tly -s F -x -a '(__tly_forms F)' -d 'List file of source files and directories'
complete -c tly -s h -x -a '(__tly_forms h)' -d 'Help'
complete -c tly -s H -d 'HTML output'
complete -c tly -s i -d 'Inheritance tree'
complete -c tly -s k -x -a '(__tly_forms k)' -d 'Key for report sorting'
complete -c tly -s l -d 'List function names'
complete -c tly -s m -d 'Macro metrics'
complete -c tly -s n -d 'Quality notices'
complete -c tly -s N -x -a '(__tly_forms N)' -d 'Quality notice format, notices of each file'
complete -c tly -s o -d 'Object class/struct metrics'
complete -c tly -s O -x -a '(__tly_forms O)' -d 'Output report to a file'
complete -c tly -s p -d 'Print format, code listing'
complete -c tly -s B -x -d 'Begin Top Margin (defaults shown)'
complete -c tly -s M -x -d 'Left Margin'
complete -c tly -s P -x -d 'Page Length'
complete -c tly -s L -x -d 'Line Length'
complete -c tly -s r -x -a '(__tly_forms r)' -d 'Recursive descent'
complete -c tly -s R -x -a '(__tly_forms R)' -d 'Read file processing options'
complete -c tly -s s -d 'Summary of each file, with -C ahead one CSV line per file'
complete -c tly -s S -x -d 'String title of the report'
complete -c tly -s T -x -a '(__tly_forms T)' -d 'Totals only'
complete -c tly -s u -x -a '(__tly_forms u)' -d 'User files'
complete -c tly -s v -d 'Verbose metrics, counts of all keywords and constructs'
complete -c tly -s w -x -a '(__tly_forms w)' -d 'Work files, baseline metric differentials'
complete -c tly -s x -x -a '(__tly_forms x)' -d 'Extended options'
complete -c tly -s X -d 'XML output, totals only'
complete -c tly -s y -d 'Display configuration parameters, export tly.cfg'
