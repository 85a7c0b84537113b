# SPDX-License-Identifier: MIT
# Completion of morvanite-cli for bash, with the functions of the package bash-completion. The program lists the
# candidates itself: `morvanite-cli --complete WORD...`.

_morvanite_cli() {
    local cur words cword word typed=() kind candidate
    _get_comp_words_by_ref -n =: cur words cword

    # Removes the quotes from the words before. A word that a shell would expand keeps them: nothing is run here.
    for word in "${words[@]:0:cword}"; do
        [[ $word == *[\`\$\<\>\&\|\;\(\)]* ]] || eval "word=$word" 2>/dev/null
        typed+=("$word")
    done

    {
        read -r kind
        # Of --name=value, bash replaces the value only.
        [[ $cur == --*=* ]] && cur=${cur#*=}
        case $kind in
            folders) _filedir -d ;;
            files) _filedir ;;
            files\ *) _filedir "${kind#files \*.}" ;;
            words)
                while IFS=$'\t' read -r candidate _; do
                    printf -v candidate %q "$candidate"
                    [[ $candidate == "$cur"* ]] && COMPREPLY+=("$candidate")
                done
                ;;
        esac
    } < <("${typed[0]}" --complete "${typed[@]:1}" "$cur" 2>/dev/null)
    __ltrim_colon_completions "$cur"
}
complete -F _morvanite_cli morvanite-cli
