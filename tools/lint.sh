#!/usr/bin/env bash
# Holds the sources to their format, to the checks of clang-tidy listed in .clang-tidy, and to those
# of cppcheck: none may have anything to say. Every file has its licence.
#
#   lint.sh BUILD_DIRECTORIES...
#
# clang-tidy looks at what these are configured to build.
set -euo pipefail
cd "$(dirname "$0")/.."

said=$(reuse lint) || {
    echo "$said"
    exit 1
}
find . -path ./build -prune -o '(' -name '*.cpp' -o -name '*.h' ')' -print |
    xargs clang-format --dry-run --Werror
cppcheck --quiet --error-exitcode=1 --language=c++ --std=c++20 --inline-suppr \
    --library=googletest --library=qt --enable=warning,performance,portability \
    --suppress=useInitializationList -j 2 -I . -i build .
# Each source is looked at in one build. For another system clang-tidy must be told where the headers
# are.
for build in "$@"; do
    log=$build/lint.log sources='.*' arguments=()
    case $build in
        */fuzz) sources='/fuzz/[a-z_]*\.cpp' ;;
        */windows)
            library=$(x86_64-w64-mingw32-g++-posix -print-file-name=include/c++)
            sources='(win32/|windows).*\.cpp'
            arguments=(--target=x86_64-w64-mingw32
                "-isystem$library" "-isystem$library/x86_64-w64-mingw32")
            ;;
        */web)
            root=$(em++ --cflags | sed 's/.*--sysroot=\([^ ]*\).*/\1/')
            sources='web/.*\.cpp'
            arguments=(--target=wasm32-unknown-emscripten "--sysroot=$root"
                "-isystem$root/include/compat" -D__EMSCRIPTEN__)
            ;;
    esac
    if ! run-clang-tidy -quiet -j 2 -p "$build" "${arguments[@]/#/-extra-arg=}" "$sources" 2>&1 |
        sed $'s/\e\\[[0-9;]*m//g' >"$log"; then
        grep -E -A 4 '(error|warning): ' "$log"
        exit 1
    fi
done
echo "nothing to report"
