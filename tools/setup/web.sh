# Building, playing and testing in the browser, for the commands ./play and ./test to source after
# setup/packages.sh.

packages_web="cmake emscripten ninja-build node-acorn nodejs"
packages_web_test="$packages_web chromium fonts-liberation googletest"
# Node.js may have come with npm in it, and then lets no other in.
command -v npm >/dev/null || packages_web_test="$packages_web_test npm"

# Serves the game on the loopback address until it is interrupted, and opens the browser where there
# is a screen.
play_web() {
    install_packages $packages_web
    configure_and_build web "-DSOLVANTA_TESTS=OFF" all
    local opener=
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then opener=$(command -v xdg-open || true); fi
    say "Solvanta is played in the browser under this address; Ctrl+C ends."
    exec node tools/setup/serve.mjs build/web/Solvanta $opener
}

# Builds what ctest runs with the preset web, with the hand that the checks use in the browser.
build_web_tests() {
    install_packages $packages_web_test
    configure_and_build web "-DSOLVANTA_TESTS=ON" all
    local log
    log=$(mktemp)
    if ! npm install --prefix build/web --no-audit --no-fund --no-package-lock >"$log" 2>&1; then
        cat "$log" >&2
        return 1
    fi
    rm -f "$log"
}
