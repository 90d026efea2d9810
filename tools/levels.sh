#!/usr/bin/env bash
# Checks that every folder of the program includes only what the table in docs/architecture.md lets it
# know, all of it on a lower level, and that a toolkit is included only in its own front end.
set -euo pipefail
cd "$(dirname "$0")/.."
status=0

complain() {
    printf '%s\n' "$*"
    status=1
}

# The folders that a cell of the table names.
names() {
    { grep -o '`[^`]*`' <<<"$1" || true; } | sed 's,`,,g; s,/$,,' | while read -r name; do
        [ ! -d "$name" ] || echo "$name"
    done
}

declare -A level knows
while IFS='|' read -r _ number folders known _; do
    for folder in $(names "$folders"); do
        level[$folder]=$((number)) knows[$folder]=$(names "$known")
    done
done < <(grep -E '^\| *[0-9]+ *\|' docs/architecture.md)

for file in */CMakeLists.txt front_ends/*/CMakeLists.txt; do
    case ${file%/*} in
        benchmarks | fuzz | tests | tools) ;;
        *) [ "${level[${file%/*}]-}" ] || complain "not in the table: ${file%/*}" ;;
    esac
done
for folder in "${!level[@]}"; do
    allowed=$folder
    for known in ${knows[$folder]}; do
        allowed+="|$known"
        [ "${level[$known]-$((level[$folder]))}" -lt "${level[$folder]}" ] ||
            complain "$folder knows $known, which is no lower"
    done
    beyond=$(grep -nH '^#include "' "$folder"/*.h "$folder"/*.cpp | grep -v '^front_ends/[^:]*/main\.cpp:' |
        grep -vE "#include \"($allowed)/[^/\"]*\"" || true)
    [ -z "$beyond" ] || complain "$beyond"
done
# The system's own calls have files of their own, beside those of another system.
toolkits=$(grep -rnE '^#include <(Q[A-Za-z]|emscripten|windows\.h)' "${!level[@]}" |
    grep -vE '^(front_ends/qt/[^:]*:[0-9]+:#include <Q|front_ends/web/[^:]*:[0-9]+:#include <emscripten)' |
    grep -vE '^(front_ends/win32/[^:]*|[^:]*windows[^:/]*\.(cpp|h)):[0-9]+:#include <windows' || true)
[ -z "$toolkits" ] || complain "$toolkits"
exit $status
