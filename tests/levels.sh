#!/usr/bin/env bash
# Checks that every folder includes only folders of a lower level, and a toolkit only in its own
# front end's folder.
set -euo pipefail
cd "$(dirname "$0")/.."

declare -A may_include=(
    [core]="core"
    [platform]="platform"
    [scores]="scores|core|platform"
    [rich_text]="rich_text|scores|platform"
    [view]="view|core|platform"
    [app]="app|view|scores|core|platform"
    [front_ends/qt]="front_ends/qt|rich_text|scores|platform"
    [front_ends/win32]="front_ends/win32|scores|platform"
    [front_ends/web]="front_ends/web|rich_text|scores|platform"
)
status=0
for folder in "${!may_include[@]}"; do
    # Only a main puts the program and its Host together.
    if grep -nH '^#include "' "$folder"/*.h "$folder"/*.cpp | grep -v '^[^:]*/main\.cpp:' |
        grep -vE "#include \"(${may_include[$folder]})/[^/\"]*\""; then
        status=1
    fi
done
# The system's own calls have files of their own, beside those of another system.
if grep -nE '^#include <(Q[A-Za-z]|windows\.h)' -r core platform scores rich_text view app |
    grep -vE '^[a-z]+/[a-z_]*windows[a-z_]*\.cpp:[0-9]+:#include <windows'; then
    status=1
fi
exit $status
