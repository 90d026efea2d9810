# Without a screen the program ends with one clear line and status 69. $1: the program.
said=$(env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM "$1" 2>&1)
status=$?
expected="Solvanta: kein Bildschirm gefunden (DISPLAY ist nicht gesetzt oder nicht erreichbar)."
[ "$said" = "$expected" ] && [ "$status" -eq 69 ] && exit 0
echo "status $status, said: $said"
exit 1
