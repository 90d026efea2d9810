#!/bin/sh
# Adds the game to the player's own menu, or takes it out again. In the player's data directory it
# touches the game's desktop entry and icons, nothing else.
set -eu
export LC_ALL=C  # a path is bytes

id=org.solvanta.solvanta

say() {
    printf '%s\n' "$@"
}

fail() {
    say "Solvanta: $*" >&2
    exit 1
}

# Standard input becomes a file of the data directory.
put() {
    install -D -m 644 /dev/stdin "$data/$1" 2>/dev/null ||
        fail "$data/$1 lässt sich nicht schreiben."
}

# The lines of the desktop entry that tell where the game is. A shell starts it, because the path
# of the program that an entry names may hold no "=" and, on some desktops, no "%". A quoted
# argument has its special characters escaped; any value, then, its backslashes.
place_lines() {
    printf 'TryExec=%s\n' "$(say "$program" | sed 's/\\/\\\\/g')"
    printf 'Exec=sh -c "exec %s" "%s"\n' '\\"\\$0\\"' \
        "$(say "$program" | sed 's/["`$\\]/\\&/g; s/%/%%/g; s/\\/\\\\/g')"
}

check_program() {
    [ -x "$program" ] || fail "$program fehlt oder ist nicht ausführbar."
    case $program in
        *[[:cntrl:]]*) fail "Ein Ordner mit Steuerzeichen im Namen kann nicht ins Menü." ;;
    esac
    say "$program" | iconv -f UTF-8 -t UTF-8 >/dev/null 2>&1 ||
        fail "Ein Ordner, dessen Name nicht in UTF-8 steht, kann nicht ins Menü."
}

add() {
    check_program
    cd "$directory/share"
    for icon in icons/hicolor/*/apps/$id.png; do
        put "$icon" <"$icon"
    done
    touch "$data/icons/hicolor"  # or a cache of the icons would hide the new ones
    { grep -v '^Exec=' "applications/$id.desktop" && place_lines; } |
        put "applications/$id.desktop"
    say "Solvanta ist im Menü. Der Eintrag startet $program" \
        "Liegt der Ordner einmal anderswo, rufen Sie menue.sh dort noch einmal auf."
}

take_out() {
    for file in "$data/applications/$id.desktop" "$data"/icons/hicolor/*/apps/$id.png; do
        [ -e "$file" ] || continue
        rm -f "$file" 2>/dev/null || fail "$file lässt sich nicht löschen."
        folder=${file%/*}
        (cd "$data" && rmdir -p "${folder#"$data/"}" 2>/dev/null) || true  # what is left empty
    done
    say "Solvanta ist nicht mehr im Menü."
}

directory=$(dirname -- "$(readlink -f -- "$0")")
program=$directory/Solvanta
data=${XDG_DATA_HOME-}
case $data in
    /*) ;;
    *) data=${HOME:-$(fail "HOME ist nicht gesetzt.")}/.local/share ;;
esac
case $* in
    '') add ;;
    entfernen) take_out ;;
    *) fail "Aufruf: menue.sh [entfernen]" ;;
esac
