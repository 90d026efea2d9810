# Installing the packages that are missing, and building, for the commands ./play, ./test and
# ./package to source.

packages_build="cmake fonts-liberation g++ libxcb1-dev ninja-build pkg-config qt6-base-dev
    qt6-translations-l10n"
packages_tour="faketime imagemagick libgtest-dev libxtst6 openbox python3 x11-xkb-utils xvfb"
packages_test="$packages_tour libcairo2-dev libgif-dev libjpeg-dev libpng-dev
    librsvg2-dev qt6-base-private-dev strace"
packages_lint="clang-format clang-tidy cppcheck reuse"
packages_fuzz="clang libclang-rt-dev libgtest-dev"
packages_archives="debhelper dpkg-dev git nsis zip"
packages_windows="g++-mingw-w64-x86-64-posix"
packages_windows_test="$packages_tour googletest icoutils locales wine wine64"
packages_web="cmake emscripten ninja-build node-acorn nodejs webp"
packages_web_test="chromium firefox-esr fonts-liberation googletest python3 webkit2gtk-driver
    x11-xkb-utils xvfb"
# Node.js may have come with npm in it, and then lets no other in.
command -v npm >/dev/null || packages_web_test="$packages_web_test npm"
packages_benchmark="fontconfig libbenchmark-dev libxcb-xtest0-dev valgrind"
packages_archives_test="$packages_tour desktop-file-utils libglib2.0-bin unzip"

say() {
    printf '%s\n' "$*" >&2
}

# Names what other systems call the packages.
name_packages() {
    say "Solvanta needs a C++20 compiler, CMake, Ninja and Qt 6; for the tests also GoogleTest."
    say "  Debian, Ubuntu: apt-get install" $packages_build $packages_test
    say "  Fedora:   dnf install cmake gcc-c++ ninja-build qt6-qtbase-devel qt6-qttranslations" \
        "libxcb-devel liberation-fonts gtest-devel xorg-x11-server-Xvfb setxkbmap libXtst" \
        "ImageMagick libfaketime openbox librsvg2-devel giflib-devel libjpeg-turbo-devel" \
        "libpng-devel python3 strace"
    say "  Arch:     pacman -S cmake gcc ninja qt6-base qt6-translations libxcb ttf-liberation" \
        "gtest xorg-server-xvfb xorg-setxkbmap libxtst imagemagick libfaketime openbox" \
        "librsvg giflib libjpeg-turbo libpng python strace"
    say "  Homebrew: brew install cmake ninja qt googletest librsvg giflib jpeg-turbo libpng"
}

# Installs those of the named Debian packages that are missing. Ends the command where that is
# not possible.
install_packages() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        if ! command -v cmake >/dev/null || ! command -v ninja >/dev/null; then
            name_packages
            exit 1
        fi
        return
    fi
    local missing=() package installed
    # A package that was never there makes dpkg-query fail, but it still tells of the others.
    installed=$(dpkg-query --show --showformat='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
        sed -n 's/ installed$//p' || true)
    for package in "$@"; do
        grep -qx -- "$package" <<<"$installed" || missing+=("$package")
    done
    [ ${#missing[@]} -gt 0 ] || return 0
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            name_packages
            exit 1
        fi
        as_root=(sudo)
    fi
    say "Installing: ${missing[*]}"
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update &&
        "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install --yes \
            --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
        cat "$log" >&2
        name_packages
        exit 1
    fi
    rm -f "$log"
}

# quietly COMMAND...: what it says is shown only when it fails.
quietly() {
    local log
    log=$(mktemp)
    if ! "$@" >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        command -v apt-get >/dev/null || name_packages
        return 1
    fi
    rm -f "$log"
}

configure() {
    quietly cmake --preset "$1"
}

# build PRESET TARGETS...
build() {
    configure "$1" && quietly cmake --build --preset "$1" --target "${@:2}"
}
