"""Installs the game by its setup in several directories, plays, upgrades and uninstalls, with files of one's own.

    tools/setup/screen.py --windows FOLDER python3 -B tests/packages/windows.py SETUP ARCHIVE
"""
import os
import shutil
import sys
import tempfile

project = os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "..")
sys.path.insert(0, os.path.join(project, "tests", "window"))
from game import LIST, Game, program_in, read, require, run, wait_for

setup, archive = map(os.path.abspath, sys.argv[1:])
DRIVE = os.environ["WINEPREFIX"] + "/drive_c/"
KEY = "HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall"
OWN = {"own.bmp": b"own", "Herz_2.bmp": b"own"}  # the second in place of one of the game's
PLACES = {  # and how setup is told of them
    DRIVE + "users/root/AppData/Local/Programs/Solvanta": [],
    DRIVE + "Spiele für Jörg": ["/D=C:\\Spiele", "für", "Jörg"]}
MAKE_LATER = """cd "$0"; cp -r first later; cd later/*; mv Leer.bmp Neu.bmp; echo later >>Herz_1.bmp
    echo later >>Solvanta.exe; cd ..; export SOURCE_DATE_EPOCH=999999999
    cmake -DCPACK_PACKAGE_VERSION=9.9 -DCPACK_TEMPORARY_DIRECTORY="$PWD" -P "$1/tools/archives/windows/setup.cmake" """


def files_in(directory, *but):
    return {name: read(f"{directory}/{name}") for name in set(os.listdir(directory)) - {"Uninstall.exe", *but}}


def play_and_upgrade(directory, place):
    run("wine", setup, "/S", *place)
    require(files_in(directory) == first, directory, "is not what setup should make")
    with Game(program_in(directory)) as game:
        game.deal()
        players = {**OWN, LIST: wait_for(lambda: read(f"{directory}/{LIST}"), "the list")}
        run("wine", later, "/S", *place, status=2)
        require(files_in(directory) == {**first, LIST: players[LIST]}, directory, "was changed in a game")
        game.end()
    run("sh", "-ec", 'printf own | tee "$0/own.bmp" >"$0/Herz_2.bmp"', directory)
    run("wine", later, "/S", *place)
    require(files_in(directory) == {**second, **players}, directory, "is not what upgrading should make")


def uninstall(directory):
    run("wine", directory + "/Uninstall.exe", "/S")
    wait_for(lambda: not os.path.exists(directory + "/Uninstall.exe"), "the end of Uninstall.exe")
    require({*os.listdir(directory)} == {*OWN, LIST}, directory, os.listdir(directory))
    shutil.rmtree(directory)


with tempfile.TemporaryDirectory() as work:
    shutil.unpack_archive(archive, work + "/first")
    run("sh", "-ec", MAKE_LATER, work, project)
    names, later = os.listdir(work + "/first"), work + "/later-setup.exe"
    first, second = (files_in(f"{work}/{made}/{names[0]}", "LIESMICH.txt") for made in ("first", "later"))
    for directory, place in PLACES.items():
        play_and_upgrade(directory, place)
    require(run("wine", "reg", "query", KEY).count(b"Solvanta") == 2, "not all can be uninstalled")
    for directory in PLACES:
        uninstall(directory)
    require(b"Solvanta" not in run("wine", "reg", "query", KEY), "entries are left")
