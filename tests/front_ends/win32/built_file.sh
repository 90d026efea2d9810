#!/usr/bin/env bash
# Reads back from the built program what it must hold; the trace ends with what is lacking:
# built_file.sh Solvanta.exe VERSION
set -euxo pipefail
program=$1 version=$2

# The libraries that every Windows has.
system='(COMCTL32|GDI32|KERNEL32|MSIMG32|msvcrt|ole32|SHELL32|USER32|UxTheme|WINDOWSCODECS)\.dll'
imports=$(x86_64-w64-mingw32-objdump -p "$program" | sed -n 's/.*DLL Name: //p')
[ -n "$imports" ]
[ -z "$(grep -vixE "$system" <<<"$imports")" ]
for setting in Microsoft.Windows.Common-Controls asInvoker PerMonitorV2 longPathAware; do
    wrestool --extract --raw --type=24 "$program" | grep -F "$setting"
done
for text in ProductName Solvanta FileVersion "$version"; do
    wrestool --extract --raw --type=16 "$program" | tr -d '\0' | grep -aF "$text"
done
wrestool --extract --type=14 "$program" | icotool --list - |
    grep -e '--width=48 --height=48 --bit-depth=8'
[ "$(stat --format=%s "$program")" -lt 614400 ]
