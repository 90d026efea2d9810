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
from game import LIST, RETURN, Game, front_window, press, program_in, read, require, wait_for, wait_for_end_of

setup, archive = map(os.path.abspath, sys.argv[1:])
DRIVE, LEFT, ASKED = os.environ["WINEPREFIX"] + "/drive_c/", 0xFF51, "Deinstallation von Solvanta"
MENU = DRIVE + "users/root/AppData/Roaming/Microsoft/Windows/Start Menu/Programs"
KEY = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"
PLACES = {  # how setup is told of a directory, and what is pressed where the uninstaller asks for the list
    DRIVE + "users/root/AppData/Local/Programs/Solvanta": ("", [RETURN]),
    DRIVE + "Spiele für Jörg": ("/D=C:\\Spiele für Jörg", [LEFT, RETURN]),
    DRIVE + "Still": ("/D=C:\\Still", None)}
OWN = {"own.bmp": b"own", "Herz_2.bmp": b"own"}  # the second in place of one of the game's


def files_in(directory, but="Uninstall.exe"):
    return {file.name: read(file.path) for file in os.scandir(directory) if file.name != but}


def require_entries(count):
    keys = subprocess.run(["wine", "reg", "query", KEY], stdout=subprocess.PIPE, check=False).stdout.count(b"Solvanta")
    links = sum(name.startswith("Solvanta") for name in os.listdir(MENU))
    require((keys, links) == (count, count), count, "entries are", keys, links)


def run(status, *command):
    ended = subprocess.run(["wine", *command], check=False).returncode
    require(ended == status, *command, "ends with", ended)


def later_setup(folder):
    """A setup of the folder, with another program and other pictures."""
    subprocess.run(["sh", "-ec", 'cd "$0"; mv Leer.bmp Neu.bmp; echo later | tee -a Solvanta.exe >>Herz_1.bmp', folder],
                   check=True)
    subprocess.run(["cmake", "-DCPACK_PACKAGE_VERSION=9.9", "-DCPACK_TEMPORARY_DIRECTORY=" + os.path.dirname(folder), "-P",
                    tests + "/../tools/archives/windows/setup.cmake"], check=True,
                   env={**os.environ, "SOURCE_DATE_EPOCH": "1000000000"})
    return os.path.dirname(folder) + "-setup.exe"


def play_and_upgrade(directory, place):
    run(0, setup, "/S", *place.split())
    require(files_in(directory) == first, directory, "is not what setup should make")
    with Game(program_in(directory)) as game:
        game.deal()
        with_list = {**first, LIST: wait_for(lambda: read(f"{directory}/{LIST}"), "the list")}
        run(2, later, "/S", *place.split())
        require(files_in(directory) == with_list, directory, "was changed in a game")
        require(game.end() == 0, "the game does not end well")
    for name, content in OWN.items():
        with open(os.path.join(directory, name), "wb") as file:
            file.write(content)
    run(0, later, "/S", *place.split())
    require(files_in(directory) == {**second, **OWN, LIST: with_list[LIST]}, directory, "is not what upgrading should make")


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
    for name in ("first", "later"):
        shutil.unpack_archive(archive, f"{work}/{name}")
    folders = [f"{work}/{name}/{os.listdir(work + '/first')[0]}" for name in ("first", "later")]
    later = later_setup(folders[1])
    first, second = (files_in(folder, "LIESMICH.txt") for folder in folders)
    for directory, (place, _) in PLACES.items():
        play_and_upgrade(directory, place)
    require_entries(3)
    for directory, (_, answer) in PLACES.items():
        uninstall(directory, answer)
        shutil.rmtree(directory)
    require_entries(0)
