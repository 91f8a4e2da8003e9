# Completion of kedrin-module's command line for fish. Commands and options are asked of the program itself.

# the words that the help explains: commands and options, with their descriptions
function __kedrin_module_words
    LC_ALL=C command $argv 2>/dev/null | string replace -rf '^  (?:-\w,)?(--[a-z-]+|[a-z]+)(?: [^ ].*?)?(?:  +(.*))?$' '$1\t$2'
end

function __kedrin_module_command
    set -l words (commandline -opc)
    test (count $words) -ge 2; and echo $words[2]
end

function __kedrin_module_names
    command kedrin-module list 2>/dev/null | string replace -rf '^(.*?)  +(.*)$' '$1\t$2'
end

# the books of the module that the command line names
function __kedrin_module_books
    set -l words (commandline -opc)
    test (count $words) -ge 3; or return
    command kedrin-module info $words[3] 2>/dev/null | string replace -rf '^[^\t]+\t([^\t]+)\t([^\t]*)\t[0-9]+\t[0-9]+$' '$1\t$2'
end

function __kedrin_module_checks
    command kedrin-module check --list 2>/dev/null | string replace -rf '^(\S+) +(\w+) .*$' '$1\t$2'
end

# the values of an option, which the help shows as a|b|c
function __kedrin_module_values
    LC_ALL=C command kedrin-module (__kedrin_module_command) --help 2>/dev/null |
        string replace -rf "^  --$argv[1] ([a-z0-9-]+(?:\|[a-z0-9-]+)+)\b.*\$" '$1' | string split '|'
end

# whether the command is one of these
function __kedrin_module_is
    contains -- (__kedrin_module_command) $argv
end

# whether so many words stand before the one being completed
function __kedrin_module_after
    test (count (commandline -opc)) -eq $argv[1]
end

complete -c kedrin-module -f
complete -c kedrin-module -n '__kedrin_module_after 1' -a '(__kedrin_module_words kedrin-module --help)'
complete -c kedrin-module -n 'not __kedrin_module_after 1' -a '(commandline -ct | string match -q -- "-*"; and __kedrin_module_words kedrin-module (__kedrin_module_command) --help)'
complete -c kedrin-module -n '__kedrin_module_is build add export' -F
complete -c kedrin-module -n '__kedrin_module_is show search words info check diff export remove; and __kedrin_module_after 2' -a '(__kedrin_module_names)'
complete -c kedrin-module -n '__kedrin_module_is diff; and __kedrin_module_after 3' -a '(__kedrin_module_names)'
complete -c kedrin-module -n '__kedrin_module_is show; and __kedrin_module_after 3' -a '(__kedrin_module_books)'
complete -c kedrin-module -n '__kedrin_module_is show' -l with -x -a '(__kedrin_module_names)'
complete -c kedrin-module -n '__kedrin_module_is search' -l range -x -a '(__kedrin_module_books)'
complete -c kedrin-module -n '__kedrin_module_is get' -l repository -x -a '(__fish_complete_directories)'
complete -c kedrin-module -n '__kedrin_module_is check' -l only -x -a '(__kedrin_module_checks)'
complete -c kedrin-module -n '__kedrin_module_is check' -l ignore -x -a '(__kedrin_module_checks)'
for option in from to book-order titles format color
    complete -c kedrin-module -n "__kedrin_module_values $option | string length -q" -l $option -x -a "(__kedrin_module_values $option)"
end
