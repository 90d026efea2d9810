# A Windows to run what was built for it, for ./test to source: a Wine of this folder's own, in
# German (with LC_ALL=de_DE.UTF-8), on a screen of its own.

# prepare_wine DIRECTORY: makes what is missing there and starts the screen; stop_wine ends both.
prepare_wine() {
    mkdir -p "$1"
    wine_home=$(cd "$1" && pwd)
    export WINEPREFIX=$wine_home/prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
    # The system's own locales may lack German.
    export LOCPATH=$wine_home/locale
    mkdir -p "$LOCPATH"
    [ -e "$LOCPATH/de_DE.UTF-8" ] || localedef -i de_DE -f UTF-8 "$LOCPATH/de_DE.UTF-8"
    trap stop_wine EXIT
    mkfifo "$wine_home/display-$$"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -noreset -nolisten tcp 3>"$wine_home/display-$$" 2>/dev/null &
    wine_screen=$!
    local number
    read -r number <"$wine_home/display-$$"
    rm "$wine_home/display-$$"
    export DISPLAY=:$number
    if [ ! -e "$wine_home/ready" ]; then
        # A program for windows that finds no screen would wait for ever.
        timeout 300 wineboot --init >/dev/null 2>&1
        # The checks have a desktop to themselves, where no window manager comes between.
        local explorer='HKCU\Software\Wine\Explorer'
        add_to_registry "$explorer\Desktops" Checks REG_SZ 1280x1024
        add_to_registry 'HKCU\Software\Wine\AppDefaults\win32_tests.exe\Explorer' Desktop REG_SZ \
            Checks
        timeout 60 wineserver --wait
        touch "$wine_home/ready"
    fi
    # What Windows runs besides goes on between the tests: started anew by one of them it would take
    # long, hold on to that test's output, and live by the clock that the tour sets.
    timeout 300 wineboot >/dev/null 2>&1
    sleep infinity | wine cmd >/dev/null 2>&1 &
}

add_to_registry() {
    timeout 60 wine reg add "$1" /v "$2" /t "$3" /d "$4" /f >/dev/null 2>&1
}

stop_wine() {
    timeout 60 wineserver --kill 2>/dev/null || true
    kill "$wine_screen" $(jobs -p) 2>/dev/null || true
}
