#!/usr/bin/env bash
# Plays a whole game in a real window with a real mouse, on a screen of its own, and checks what
# the game leaves on disk.
#
#   tour.sh PROGRAM_DIRECTORY TOUR_CLICKS OUTPUT_DIRECTORY
#
# The screenshots go to OUTPUT_DIRECTORY; their names are printed. The program's clock is set to
# the moment of the golden game, so that the cards are those the clicks are meant for. A program for
# Windows is played in the Wine that the surroundings name.
set -euo pipefail
export LC_ALL=C.UTF-8  # or the name could not be typed

program_directory=$1 tour_clicks=$2 output=$3
dealt_at=$(head -n 1 "$(dirname "$0")/golden_game.txt")

rm -rf "$output"
mkdir -p "$output"
output=$(cd "$output" && pwd)
# A copy plays as well as the original, and the original keeps its best times.
work=$(mktemp -d)
cp -r "$program_directory/." "$work"
rm -f "$work/highscore.scr"
list=$work/highscore.scr
program=$work/Solvanta run=()
[ ! -e "$program.exe" ] || program=$program.exe run=(wine)

finish() {
    local status=$?
    kill $(jobs -p) 2>/dev/null || true
    wait 2>/dev/null || true
    [ "$status" -eq 0 ] || sed 's/^/  /' "$work/log" "$work/screen.log" >&2 || true
    rm -rf "$work"
}
trap finish EXIT

fail() {
    printf 'tour: %s\n' "$*" >&2
    import -window root "$output/failed.png" || true
    exit 1
}

# Waits up to thirty seconds for a command to succeed.
wait_for() {
    local tries
    for ((tries = 0; tries < 600; ++tries)); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.05
    done
    fail "waited in vain for: $*"
}

window_named() {
    xdotool search --onlyvisible --name "^$1\$"
}

gone() { ! window_named "$1"; }

# Whether line 11 of the best-times file, the games dealt and won, is the one given.
counts() { [ "$(sed -n 11p "$list")" = "$1"$'\r' ]; }

shot() {
    sleep 0.3
    import -window root "$output/$1.png"
    printf '%s\n' "$output/$1.png"
}

# A click at a place of a window, in pixels from the corner of its client area.
click_in() {
    xdotool mousemove --window "$1" "$2" "$3" click 1
}

start_screen() {
    local number
    mkfifo "$work/display"
    Xvfb -displayfd 3 -screen 0 1280x960x24 -nolisten tcp 3>"$work/display" \
        2>"$work/screen.log" &
    read -r number <"$work/display"
    export DISPLAY=:$number
    openbox >>"$work/screen.log" 2>&1 &
    # A window that comes while the window manager starts may never be shown.
    wait_for xdotool get_num_desktops
    # With umlauts on its keys none has to be put there while typing, which may come too late.
    setxkbmap de
}

# start_game [COMMAND...]: the game, started through a command that may change its surroundings.
start_game() {
    LC_ALL=de_DE.UTF-8 QT_QPA_PLATFORM=xcb "$@" "${run[@]}" "$program" 2>>"$work/log" &
    game=$!
    wait_for window_named 'Solvanta V1.6'
    table=$(window_named 'Solvanta V1.6')
    wait_for xdotool windowactivate "$table"
    sleep 0.3
}

end_game() {
    click_in "$table" 628 504
    wait "$game" || fail "the game did not end well"
}

deal() {
    click_in "$table" 48 504
    wait_for window_named Solvanta
    if [ $# -gt 0 ]; then shot "$1"; fi
    xdotool key Return
    wait_for gone Solvanta
}

# The places of clicks on standard input, clicked.
play() {
    awk -v window="$table" '{
        print "mousemove --window", window, $2, $3
        print ($1 == "double" ? "click --repeat 2 --delay 40 1" : "click 1")
        print "sleep 0.03"
    }' | xdotool -
}

whole_game() {
    start_game env TZ=UTC FAKETIME_DONT_FAKE_MONOTONIC=1 DONT_FAKE_MONOTONIC=1 \
        faketime -f "$(date -u -d "@$dealt_at" '+%Y-%m-%d %H:%M:%S')"
    shot 1-start
    [ ! -e "$list" ] || fail "the start wrote the best-times file"
    deal 2-question
    shot 3-dealt
    wait_for counts 1,0
    "${run[@]}" "$tour_clicks" | tr -d '\r' >"$work/clicks"
    head -n 60 "$work/clicks" | play
    shot 4-playing
    sed -n 61,150p "$work/clicks" | play
    shot 5-playing
    sed -n '151,$p' "$work/clicks" | play
    shot 6-won
    xdotool type --delay 60 'Jörg Süß'
    shot 7-name
    xdotool key Return
    wait_for counts 1,1
    head -n 1 "$list" | LC_ALL=C grep -q $'^[1-9][0-9]*,"J\xf6rg S\xfc\xdf","1. Jan 2026 12:33"\r$' ||
        fail "the entry is not in the best-times file"
    cp "$list" "$work/won"
    end_game
}

restarted_game() {
    start_game
    click_in "$table" 168 504
    wait_for window_named 'Highscores - Top 30'
    shot 8-best-times
    local best_times
    best_times=$(window_named 'Highscores - Top 30')
    click_in "$best_times" 332 452
    wait_for gone 'Highscores - Top 30'
    cmp "$list" "$work/won" || fail "the start changed the best-times file"
    click_in "$table" 280 504
    wait_for window_named Hilfe
    shot 9-help
    xdotool windowactivate --sync "$table"
    deal
    wait_for counts 2,1
    end_game
}

start_screen
whole_game
restarted_game
