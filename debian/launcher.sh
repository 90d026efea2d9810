#!/bin/sh
# Starts the player's own game. The game keeps its list beside its program, so each player has a
# program directory: a copy of the installed program, which finds the directory by its own place,
# and links to the installed pictures and help. Each start brings it up to date and leaves alone
# what the player put there. Where that can't be done the installed program plays, without a list.
set -u
program=/usr/lib/games/solvanta/Solvanta
pictures=/usr/share/games/solvanta

# Brings the working directory up to date, as the only one at a time: file 9 is that directory.
update() {
    flock --timeout 10 9 || return
    if [ -h Solvanta ] || ! [ -x Solvanta ] || ! cmp -s "$program" Solvanta; then
        # A game that runs keeps the file it was started from.
        if ! { install -m 755 -T "$program" Solvanta.new && mv -fT Solvanta.new Solvanta; }; then
            rm -f Solvanta.new
            return 1
        fi
    fi
    for name in *; do
        [ -e "$name" ] || case $(readlink -- "$name") in
            "$pictures"/*) rm -f -- "$name" ;;
        esac
    done
    set --
    for picture in "$pictures"/*; do
        name=${picture##*/}
        case $name in *.dpkg-*) continue ;; esac  # about to be installed
        [ ! -e "$picture" ] || [ -e "$name" ] || [ -h "$name" ] || set -- "$@" "$picture"
    done
    { [ $# -eq 0 ] || ln -s -- "$@" .; } && [ -x Solvanta ]  # it never is where nothing may be run
}

case ${XDG_DATA_HOME-} in
    /*) own=$XDG_DATA_HOME/solvanta ;;
    *) own=${HOME:-/dev/null}/.local/share/solvanta ;;
esac
{ [ -d "$own" ] || mkdir -p -- "$own"; } 2>/dev/null &&
    (cd -- "$own" && update) 2>/dev/null 9<"$own" &&
    exec "$own/Solvanta" "$@"
printf 'Solvanta: %s\n' "$own lässt sich nicht einrichten, die Bestzeiten werden nicht aufbewahrt." >&2
exec "$program" "$@"
