#!/usr/bin/env bash
# Runs a command on a screen of so many dots per inch: at_dpi.sh DOTS COMMAND...
set -euo pipefail
dpi() {
    timeout 60 wine reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f \
        >/dev/null 2>&1
}
trap 'dpi 96' EXIT
dpi "$1"
"${@:2}"
