# bash completion for quillmar
_quillmar()
{
    local wort=${COMP_WORDS[COMP_CWORD]} davor=${COMP_WORDS[COMP_CWORD-1]}
    local befehle='--analyse --bericht --gelernt --gegenueber --rechnungen --selbsttest'
    if [ "$davor" = --profil ]; then
        local liste=${XDG_DATA_HOME:-$HOME/.local/share}/Quillmar/profile.json name
        COMPREPLY=()
        while IFS= read -r name; do
            [[ $name == "$wort"* ]] && COMPREPLY+=("$(printf %q "$name")")
        done < <(sed -n 's/^        "name": "\(.*\)",\{0,1\}$/\1/p' "$liste" 2>/dev/null)
        return
    fi
    case " ${COMP_WORDS[*]} " in
        *' --gelernt '*) befehle='--anwenden --aus-ablage' ;;
        *' --gegenueber '* | *' --rechnungen '*) befehle='--anwenden' ;;
        *' --analyse '*) befehle='--erneut --mit-modell' ;;
        *' --bericht '* | *' --selbsttest '*) befehle='' ;;
        *) befehle+=' --version --help' ;;
    esac
    mapfile -t COMPREPLY < <(compgen -W "$befehle --profil" -- "$wort")
}
complete -F _quillmar quillmar
