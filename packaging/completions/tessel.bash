# SPDX-FileCopyrightText: 2026 The Tessel Broth developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Completes tessel's commands, options and what they take.

_tessel() {
    local current=${COMP_WORDS[COMP_CWORD]}
    local before=${COMP_WORDS[COMP_CWORD - 1]}
    local command=${COMP_WORDS[1]}
    local frame="--time --reference --previous --mix --edge --size"
    local words=

    if [ "$COMP_CWORD" -eq 1 ]; then
        words="render shuffle sheet list inspect read do set get check --help --version"
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
        return
    fi
    case $before in
        --edge) words="left right" ;;
        --size | --tile) words="1920x1080 2560x1440 3840x2160" ;;
        --time | --reference | --mix | --count | --random-seed | --seeds | --animate | --fps | --loop-fade | --pattern)
            return ;;
        --out | --previous | --keep-image)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            return ;;
    esac
    if [ -z "$words" ]; then
        case $command in
            render) words="$frame --out --timing --animate --fps --loop-fade --help" ;;
            shuffle) words="--count --random-seed --keep-image --help" ;;
            sheet) words="patterns dithers palettes motion shuffles best --tile --random-seed --count --out --time --reference --help" ;;
            list) words="patterns dithers palettes --json --help" ;;
            inspect) words="$frame --json --help" ;;
            read) words="--help" ;;
            do) words="new-wallpaper previous-wallpaper toggle-motion open-editor quit --help" ;;
            set) words="--still --animated --help" ;;
            get) words="--json --help" ;;
            check) words="--pattern --seeds --palettes --json --help" ;;
        esac
    fi
    mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    case $command in
        render | sheet | inspect | read | set)
            [ "${#COMPREPLY[@]}" -gt 0 ] && [[ $current == -* ]] && return
            compopt -o filenames 2>/dev/null
            local files
            mapfile -t files < <(compgen -f -- "$current")
            COMPREPLY+=("${files[@]}") ;;
    esac
}

complete -F _tessel tessel
complete -W "--help --version" tessel-broth
