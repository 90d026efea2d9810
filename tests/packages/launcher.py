"""Holds the installed command to its promises, with a program that tells where it was started.

    unshare --user --map-root-user --mount python3 launcher.py LAUNCHER
"""
import os
import subprocess
import sys
import tempfile

MOUNT = ["mount", "-t", "tmpfs", "none"]
BAD_PLACES = {  # what is done to a home that has only its name, and what else it is started with
    "no home": (":", {"HOME": ""}), "missing": ("rmdir $0; touch $0", {}), "own file": ("mkdir -p $0/.local/share; touch $0/.local/share/solvanta", {}),
}
