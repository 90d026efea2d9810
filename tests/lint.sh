#!/usr/bin/env bash
# Holds the sources to their format, to the checks of clang-tidy listed in .clang-tidy, and to those
# of cppcheck: none may have anything to say.
#
#   lint.sh BUILD_DIRECTORIES...
#
# clang-tidy looks at what these are configured to build.
set -euo pipefail
cd "$(dirname "$0")/.."
folders=(app benchmarks core front_ends fuzz pictures platform rich_text scores tests view)

find "${folders[@]}" -name '*.cpp' -o -name '*.h' | xargs clang-format --dry-run --Werror
cppcheck --quiet --error-exitcode=1 --language=c++ --std=c++20 --inline-suppr \
    --library=googletest --library=qt --enable=warning,performance,portability \
    --suppress=useInitializationList -j 2 -I . "${folders[@]}"
for build in "$@"; do
    log=$build/lint.log
    # Built for fuzzing, most sources would be looked at twice.
    sources='.*'
    [[ $build != */fuzz ]] || sources='/fuzz/[a-z_]*\.cpp'
    if ! run-clang-tidy -quiet -j 2 -p "$build" "$sources" 2>&1 |
        sed $'s/\e\\[[0-9;]*m//g' >"$log"; then
        grep -E -A 4 '(error|warning): ' "$log"
        exit 1
    fi
done
echo "nothing to report"
