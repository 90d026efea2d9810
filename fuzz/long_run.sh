#!/usr/bin/env bash
# Runs the fuzz targets one after the other, ten million executions each, of the pictures one
# million, and prints a line of figures for each. What is found stays in BUILD_DIRECTORY/found.
#
#   long_run.sh BUILD_DIRECTORY [TARGETS...]
set -euo pipefail
export QT_QPA_PLATFORM=offscreen
# Without the long stack of each allocation and its filling it is twice as fast.
export ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=4:max_malloc_fill_size=0
seeds=$(cd "$(dirname "$0")" && pwd)/corpus
cd "$1"
shift
[ $# -gt 0 ] || set -- best_times rich_text pictures play

for target in "$@"; do
    runs=10000000 length=512
    case $target in
        pictures) runs=1000000 length=2048 ;;
        play) length=64 ;;
    esac
    found=found/$target
    mkdir -p "$found"
    log=$found.log
    if ! nice -n 19 "./fuzz_$target" -runs=$runs -max_len=$length -timeout=600 -close_fd_mask=1 \
        -artifact_prefix="$found." "$found" "$seeds/$target" >"$log" 2>&1; then
        tail -n 40 "$log" >&2
        exit 1
    fi
    grep -v '^Solvanta: ' "$log" | sed -n "s/^Done \([0-9]*\) runs in \([0-9]*\) second.*/$target: \1 executions in \2 s/p"
done
