# Without a screen the program ends with one clear line and status 69. $1: the program.
unset DISPLAY WAYLAND_DISPLAY QT_QPA_PLATFORM
expected="69: Solvanta: kein Bildschirm gefunden (DISPLAY ist nicht gesetzt oder nicht erreichbar)."
for given in LC_ALL=C DISPLAY=:9999 WAYLAND_DISPLAY=no-such-socket "QT_QPA_PLATFORM=xcb;wayland DISPLAY=:9999" \
    "QT_QPA_PLATFORM=wayland WAYLAND_DISPLAY=/tmp"; do
    said=$(env $given "$1" 2>&1)
    said="$?: $said"
    [ "$said" = "$expected" ] || { echo "with $given: $said"; exit 1; }
done
# It plays on a screen in memory, here until it is told to end.
DISPLAY=:9999 QT_QPA_PLATFORM="xcb;offscreen" timeout --preserve-status 1 "$1"
