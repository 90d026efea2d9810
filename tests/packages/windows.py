"""Installs the game by its setup for Windows in two directories, plays there, and goes through upgrade and
uninstallation with files of the player's own.

    tools/setup/screen.py --windows FOLDER python3 -B tests/packages/windows.py ARCHIVE SETUP
"""
import glob
import os
import shutil
import subprocess
import sys
import tempfile

tests = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..")
sys.path.insert(0, os.path.join(tests, "window"))
from game import LIST, RETURN, Game, front_window, press, program_in, read, require, wait_for, wait_for_end_of

archive, setup = map(os.path.abspath, sys.argv[1:])
DRIVE = os.environ["WINEPREFIX"] + "/drive_c"
PLACES = {DRIVE + "/users/root/AppData/Local/Programs/Solvanta": [],
          DRIVE + "/Spiele für Jörg/Sol vanta": ["/D=C:\\Spiele", "für", "Jörg\\Sol", "vanta"]}
MENU = DRIVE + "/users/root/AppData/Roaming/Microsoft/Windows/Start Menu/Programs/Solvanta*.lnk"
KEY = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"
ASKED, LEFT = "Deinstallation von Solvanta", 0xFF51
OWN = {"own.bmp": b"own", "Herz_2.bmp": b"own"}  # the second in place of one of the game's


def require_files(directory, wanted):
    files = {file.name: read(file.path) for file in os.scandir(directory) if file.name != "Uninstall.exe"}
    require(files == wanted, directory, {name for name, _ in files.items() ^ wanted.items()})


def require_entries(count):
    keys = subprocess.run(["wine", "reg", "query", KEY], stdout=subprocess.PIPE, check=False).stdout
    require((len(glob.glob(MENU)), keys.count(b"Solvanta")) == (count, count), "entries", glob.glob(MENU), keys)


def run(status, *command):
    ended = subprocess.run(["wine", *command], check=False).returncode
    require(ended == status, *command, "ends with", ended)


def make_later_setup(folder):
    """A setup with another program and other pictures; what it installs."""
    os.rename(folder + "/Leer.bmp", folder + "/Neu.bmp")
    for name in ("/Solvanta.exe", "/Herz_1.bmp"):
        with open(folder + name, "ab") as file:
            file.write(b"later")
    parent = os.path.dirname(folder)
    subprocess.run(["cmake", "-DCPACK_PACKAGE_VERSION=9.9", "-DCPACK_TEMPORARY_DIRECTORY=" + parent, "-P",
                    tests + "/../tools/archives/windows/setup.cmake"], check=True,
                   env={**os.environ, "SOURCE_DATE_EPOCH": "1000000000"})
    return parent + "-setup.exe", files_of(folder)


def files_of(folder):
    """What the setup made of a folder installs."""
    return {name: read(os.path.join(folder, name)) for name in set(os.listdir(folder)) - {"LIESMICH.txt"}}


def play_and_upgrade(directory, place, first, later_setup, later):
    run(0, setup, "/S", *place)
    require_files(directory, first)
    with Game(program_in(directory)) as game:
        game.deal()
        own = {LIST: wait_for(lambda: read(f"{directory}/{LIST}"), "the list"), **OWN}
        run(2, later_setup, "/S", *place)
        require_files(directory, {**first, LIST: own[LIST]})
        require(game.end() == 0, "the game does not end well")
    for name, content in OWN.items():
        with open(os.path.join(directory, name), "wb") as file:
            file.write(content)
    run(0, later_setup, "/S", *place)
    require_files(directory, {**later, **own})
    return own


def uninstall(directory, *answer):
    """By hand, with these keys for an answer to whether the list goes too."""
    with subprocess.Popen(["wine", directory + "/Uninstall.exe"]):
        for caption, keys in ((ASKED + " ", []), (ASKED, answer)):
            front_window(caption)
            for key in (*keys, RETURN):
                press(key)
        wait_for_end_of(ASKED + " ")


with tempfile.TemporaryDirectory() as work:
    for name in ("first", "later"):
        shutil.unpack_archive(archive, f"{work}/{name}")
    folder = os.listdir(work + "/first")[0]
    first, later = files_of(f"{work}/first/{folder}"), make_later_setup(f"{work}/later/{folder}")
    own = {directory: play_and_upgrade(directory, place, first, *later) for directory, place in PLACES.items()}
    require_entries(2)
    for directory, answer in zip(PLACES, ([], [LEFT])):
        uninstall(directory, *answer)
        require_files(directory, OWN if answer else own[directory])
    require_entries(0)
    for directory, place in PLACES.items():
        run(0, setup, "/S", *place)
        run(0, directory + "/Uninstall.exe", "/S")
        wait_for(lambda: not os.path.exists(directory + "/Solvanta.exe"), "the silent end")
        wait_for(lambda: not os.path.exists(directory + "/Uninstall.exe"), "the silent end")
        require(set(os.listdir(directory)) >= set(OWN), "own files went", os.listdir(directory))
        shutil.rmtree(directory)
