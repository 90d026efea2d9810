"""Installs the game by its setup for Windows in several directories, plays there, and goes through upgrade
and uninstallation with files of the player's own.

    tools/setup/screen.py --windows FOLDER python3 -B tests/packages/windows.py SETUP ARCHIVE
"""
import os
import shutil
import subprocess
import sys
import tempfile

tests = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
sys.path.insert(0, os.path.join(tests, "window"))
from game import (LIST, RETURN, Game, front_window, press, program_in, read, require, wait_for, wait_for_end_of)

setup, archive = map(os.path.abspath, sys.argv[1:])
DRIVE, LEFT, ASKED = os.environ["WINEPREFIX"] + "/drive_c/", 0xFF51, "Deinstallation von Solvanta"
KEY = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"
PLACES = {  # how setup is told of a directory; the keys that answer whether the list goes too
    DRIVE + "users/root/AppData/Local/Programs/Solvanta": ("", [RETURN]),
    DRIVE + "Spiele für Jörg": ("/D=C:\\Spiele für Jörg", [LEFT, RETURN]), DRIVE + "Still": ("/D=C:\\Still", None)}
OWN = {"own.bmp": b"own", "Herz_2.bmp": b"own"}  # the second in place of one of the game's
MAKE_LATER = """cd "$0"; mv Leer.bmp Neu.bmp; echo later | tee -a Solvanta.exe >>Herz_1.bmp; cd ..
    cmake -DCPACK_PACKAGE_VERSION=9.9 -DCPACK_TEMPORARY_DIRECTORY="$PWD" -P "$1/../tools/archives/windows/setup.cmake" """


def run(status, *command):
    done = subprocess.run(command, stdout=subprocess.PIPE, env={**os.environ, "SOURCE_DATE_EPOCH": "999999999"}, check=False)
    require(done.returncode == status, *command, "ends with", done.returncode)
    return done.stdout


def files_in(directory, but="Uninstall.exe"):
    return {file.name: read(file.path) for file in os.scandir(directory) if file.name != but}


def play_and_upgrade(directory, place):
    run(0, "wine", setup, "/S", *place.split())
    require(files_in(directory) == first, directory, "is not what setup should make")
    with Game(program_in(directory)) as game:
        game.deal()
        players = {**OWN, LIST: wait_for(lambda: read(f"{directory}/{LIST}"), "the list")}
        run(2, "wine", later, "/S", *place.split())
        require(files_in(directory) == {**first, LIST: players[LIST]}, directory, "was changed in a game")
        require(game.end() == 0, "the game does not end well")
    for name in OWN:
        shutil.copy(os.path.join(work, "own"), os.path.join(directory, name))
    run(0, "wine", later, "/S", *place.split())
    require(files_in(directory) == {**second, **players}, directory, "is not what upgrading should make")


def uninstall(directory, answer):
    with subprocess.Popen(["wine", directory + "/Uninstall.exe", *["/S"] * (answer is None)]):
        for caption, keys in ((ASKED + " ", [RETURN]), (ASKED, answer)) if answer else ():
            front_window(caption)
            for key in keys:
                press(key)
    wait_for(lambda: not os.path.exists(directory + "/Uninstall.exe"), "the end of Uninstall.exe")
    wait_for_end_of(ASKED + " ")
    require(set(os.listdir(directory)) == {*OWN, *[LIST] * (answer != [LEFT, RETURN])}, directory, os.listdir(directory))


with tempfile.TemporaryDirectory() as work:
    folders = [f"{work}/{name}/{os.path.basename(archive)[:12]}" for name in ("first", "later")]
    for folder in folders:
        shutil.unpack_archive(archive, os.path.dirname(folder))
    run(0, "sh", "-ec", MAKE_LATER, folders[1], tests)
    first, second, later = *(files_in(folder, "LIESMICH.txt") for folder in folders), work + "/later-setup.exe"
    with open(work + "/own", "wb") as file:
        file.write(b"own")
    for directory, (place, _) in PLACES.items():
        play_and_upgrade(directory, place)
    require(run(0, "wine", "reg", "query", KEY).count(b"Solvanta") == 3, "not all can be uninstalled")
    for directory, (_, answer) in PLACES.items():
        uninstall(directory, answer)
        shutil.rmtree(directory)
    require(b"Solvanta" not in run(0, "wine", "reg", "query", KEY), "entries are left")
