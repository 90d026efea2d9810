#!/usr/bin/env bash
# Reads back from the built program what it must hold: built_file.sh Solvanta.exe VERSION
set -euo pipefail
program=$1 version=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

# The libraries that every Windows has.
system='(COMCTL32|GDI32|KERNEL32|MSIMG32|msvcrt|ole32|SHELL32|USER32|UxTheme|WINDOWSCODECS)\.dll'
imports=$(x86_64-w64-mingw32-objdump -p "$program" | sed -n 's/.*DLL Name: //p')
[ -n "$imports" ] || fail "no imports"
! grep -vixE "$system" <<<"$imports" || fail "needs more than the system's libraries"

resource() {
    wrestool --extract --raw --type="$1" "$program" >"$work/$1"
}
resource 24
for setting in Microsoft.Windows.Common-Controls asInvoker PerMonitorV2 longPathAware; do
    grep -qF "$setting" "$work/24" || fail "the manifest lacks $setting"
done
resource 16
for text in ProductName Solvanta FileVersion "$version"; do
    tr -d '\0' <"$work/16" | grep -qaF "$text" || fail "the version lacks $text"
done
wrestool --extract --type=14 "$program" >"$work/icon.ico"
icotool --list "$work/icon.ico" | grep -q -- '--width=48 --height=48 --bit-depth=8' ||
    fail "no icon of 48 x 48 pixels in 256 colours"
[ "$(stat --format=%s "$program")" -lt 614400 ] || fail "600 KB or more"
