#!/usr/bin/env bash
# Checks the archives of the commit checked out: two builds give the same bytes, the packages' too;
# unpacked into folders with unruly names the games are played from deal to win, and the one for Linux
# goes into the player's menu and out again.
set -euo pipefail
cd "$(dirname "$0")/../.."
. tools/setup/packages.sh
unset XDG_DATA_HOME

id=org.solvanta.solvanta
# The Qt packages named in LIESMICH.txt bring these.
libraries='libQt6(Core|Gui|Widgets)|libxcb|libstdc\+\+|lib(c|m|gcc_s)'
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    printf 'archives: %s\n' "$*" >&2
    exit 1
}

# archives_of_clone FOLDER SURROUNDINGS...
archives_of_clone() {
    git clone --quiet . "$work/$1"
    env "${@:2}" "$work/$1/package" >/dev/null
}

# check_files FOLDER FILES...: whether these files of ours are there as they are.
check_files() {
    local file
    for file in "${@:2}"; do
        cmp "$file" "$1/${file##*/}"
    done
    [ -s "$1/LIESMICH.txt" ] || fail "no LIESMICH.txt"
}

# play_tour PROGRAM_DIRECTORY PRESET OPTIONS...: on a screen with these options; copies lie beside it.
play_tour() {
    python3 tools/setup/screen.py "${@:3}" env TMPDIR="${1%/*}" python3 -B tests/tour/tour.py "$1" \
        build/$2/tests/tour/tour_clicks* "build/$2/tour-unpacked" >/dev/null
}

check_windows() {
    local to="$work/Spiele für Jörg"
    unzip -q "$archives"/Solvanta-*-windows-*.zip -d "$to"
    check_files "$to"/* shipped/*.{bmp,gif,ico,jpg} shipped/*@*.png shipped/Help.rtf
    play_tour "$to"/* windows --windows build/windows/wine
}

check_web() {
    local to="$work/Spiele im Netz für Jörg" tour=build/web/tests/tour/web
    unzip -q "$archives"/Solvanta-*-web.zip -d "$to"
    check_files "$to"/* shipped/Solvanta.png LICENSE
    TZ=UTC node $tour/tour.mjs "$to"/* $tour/tour_clicks.js build/web/tour-unpacked chromium >/dev/null
}

check_linux() {
    local to="$work/Spiele für \"Jörg\" & Süß; 100% \$HOME=\`id\`, 'x' \\n" game
    mkdir "$to"
    (cd "$to" && tar -xzf "$archives"/Solvanta-*-linux-*.tar.gz)
    game=$(echo "$to"/*)
    check_files "$game" shipped/* LICENSE
    ! readelf -dW "$game/Solvanta" | grep -E 'R(UN)?PATH|NEEDED' | grep -vE "\[($libraries)\.so\.[0-9]\]" ||
        fail "the program needs what LIESMICH.txt does not name"
    grep -qF "<release version=\"${game##*-}\"" "$game/share/metainfo/$id.metainfo.xml" ||
        fail "$id.metainfo.xml tells nothing of this version"
    play_tour "$game" release
    check_menu
}

# The program is replaced by one that tells what it was started as, and a desktop starts it.
check_menu() {
    local -x HOME=$work/home
    local entries=$HOME/.local/share/applications before
    mkdir -p "$entries"
    touch "$entries/other.desktop"
    before=$(find "$HOME")
    printf '#!/bin/sh\nprintf %%s "$0" >%q\n' "$work/started" >"$game/Solvanta"
    "$game/menue.sh" >/dev/null
    desktop-file-validate "$entries/$id.desktop"
    HOME=$work/elsewhere gio launch "$entries/$id.desktop"
    timeout 10 sh -c "until [ -s '$work/started' ]; do sleep 0.1; done" || fail "not started"
    [ "$(<"$work/started")" = "$game/Solvanta" ] || fail "the entry started $(<"$work/started")"
    "$game/menue.sh" entfernen >/dev/null
    [ "$(find "$HOME")" = "$before" ] || fail "left in the menu: $(find "$HOME")"
}

install_packages $packages_build $packages_archives $packages_archives_test $packages_windows \
    $packages_windows_test $packages_web $packages_web_test
build release tour_clicks
build windows tour_clicks
build web tour_clicks browser_hand
archives_of_clone one TZ=UTC
(umask 077 && archives_of_clone "another one" TZ=Asia/Tokyo LC_ALL=C)
archives="$work/one/build/archives"
diff -r "$archives" "$work/another one/build/archives"
(cd "$archives" && sha256sum --check --quiet --strict SHA256SUMS)
check_windows
check_web
check_linux
echo "The archives are as they should be:" "$archives"/*.*
