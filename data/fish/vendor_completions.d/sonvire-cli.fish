# Completion of sonvire-cli in fish. What can be written is what the program's own help tells.

function __sonvire_cli_help
    set -l words (commandline -opc)
    sonvire-cli $words[2] --help 2>/dev/null
end

function __sonvire_cli_choices
    set -l before (commandline -opc)[-1]
    if test "$before" = --device
        sonvire-cli devices 2>/dev/null | string sub -s 3
    else if string match -q -- '--*' $before
        __sonvire_cli_help | string replace -rf -- "^  $before [^{]*\{([^}]*)\}.*" '$1' | string split ,
    end
end

complete -c sonvire-cli -n __fish_use_subcommand -f -a "(sonvire-cli --help | string match -rg '^  ([a-z]+)  ')"
complete -c sonvire-cli -n 'string match -q -- "-*" (commandline -ct)' -f -a "(__sonvire_cli_help | string match -rg '^  (?:-h,)?(--[a-z-]+)')"
complete -c sonvire-cli -n 'count (__sonvire_cli_choices) >/dev/null' -f -a '(__sonvire_cli_choices)'
