# SPDX-License-Identifier: MIT
# Completion of morvanite-cli for fish. The program lists the candidates itself: `morvanite-cli --complete WORD...`.

function __morvanite_cli_candidates
    set -l typed (commandline -opc)
    set -l current (commandline -ct)
    set -l lines ($typed[1] --complete $typed[2..-1] "$current" 2>/dev/null)
    set -l start (string match -r -- '^--[^=]*=' "$current")
    set -l value (string replace -- "$start" '' "$current")
    set -l candidates
    switch "$lines[1]"
        case folders
            set candidates (complete -C "'' $value" | string match -r '^.*/(?=\t|$)')
        case files
            set candidates (complete -C "'' $value")
        case 'files *'
            set -l ending (string escape --style=regex (string replace 'files *' '' "$lines[1]"))
            set candidates (complete -C "'' $value" | string match -r "^.*(?:/|$ending)(?=\t|\$)")
        case words
            set candidates $lines[2..-1]
    end
    set -q candidates[1]; and printf '%s\n' "$start"$candidates
end

complete -c morvanite-cli -f -a '(__morvanite_cli_candidates)'
