"""Holds the installed command to its promises, with a program that tells where it was started.

    unshare --user --map-root-user --mount python3 launcher.py COMMAND
"""
import os
import subprocess
import sys

AT_ONCE = 10
BAD_PLACES = {  # what is done to the home, $0, before the start
    "no home": "rmdir $0", "a file": "mkdir -p $0/.local/share; touch $0/.local/share/solvanta",
    "a link to nothing": "mkdir -p $0/.local/share; ln -s nothing $0/.local/share/solvanta",
    "a directory for a program": "mkdir -p $0/.local/share/solvanta/Solvanta/full",
    "unwritable": "mount -t tmpfs -o ro none $0", "nothing may be run": "mount -t tmpfs -o noexec none $0",
    "full at the program": "mount -t tmpfs -o size=8k none $0", "full at the links": "mount -t tmpfs -o nr_inodes=7 none $0"}
VERSIONS = [["a.bmp", "b 1.bmp", "c.bmp"], ["a.bmp", "b 1.bmp", "new.bmp", "other.bmp.dpkg-new"], []]
OWN = {"b 1.bmp": b"own", "own.bmp": b"own", "-n": b"own", "new.bmp": "nothing", "highscore.scr": b"list"}


def put(directory, name, content):
    """A file of these bytes, or a link to this path, in place of what may be there."""
    path = os.path.join(directory, name)
    if os.path.lexists(path):
        os.remove(path)
    if isinstance(content, str):
        return os.symlink(content, path)
    with open(os.open(path, os.O_CREAT | os.O_WRONLY, 0o755), "wb") as file:
        file.write(content)


def contents(directory):
    paths = {name: os.path.join(directory, name) for name in os.listdir(directory)}
    return {name: os.readlink(path) if os.path.islink(path) else open(path, "rb").read()
            for name, path in paths.items()}


def install(version, names):
    for name in os.listdir(pictures):
        os.remove(os.path.join(pictures, name))
    for name in names:
        put(pictures, name, b"picture")
    put(os.path.dirname(program), "Solvanta", b'#!/bin/sh\necho "$0"\nexit 7\n#' + b"%d" % version * 20000)


def start(times, **environment):
    """What so many starts at once say, and their exit statuses."""
    games = [subprocess.Popen(["sh", work + "/solvanta"], env={"PATH": os.environ["PATH"], **environment}, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) for _ in range(times)]
    return [(*game.communicate(), game.returncode) for game in games]


def require(holds, *what):
    if not holds:
        sys.exit(f"FAILED: {what}")


def good_places(own, **environment):
    players = {}
    for version, names in enumerate(VERSIONS):
        install(version, names)
        said = start(AT_ONCE, **environment)
        require(said == [(own + "/Solvanta\n", "", 7)] * AT_ONCE, own, version, said)
        links = {name: os.path.join(pictures, name) for name in names if not name.endswith("dpkg-new")}
        wanted = {"Solvanta": open(program, "rb").read(), **links, **players}
        require(contents(own) == wanted, own, version, contents(own))
        for name, content in OWN.items():
            put(own, name, content)
        players = OWN
        put(own, "Solvanta", program)  # a link, which must not be what plays


def bad_place(what, prepare):
    os.makedirs(home := os.path.join(work, what))
    subprocess.run(["sh", "-ec", prepare.replace("$0", f'"{home}"')], check=True)
    own = home + "/.local/share/solvanta"
    said = start(1, **({"HOME": home} if os.path.exists(home) else {}))
    line = said[0][1].replace("/dev/null", home)
    require(said[0][::2] == (program + "\n", 7) and line.count("\n") == 1 and line.startswith(f"Solvanta: {own} "),
            what, said)
    require(not os.path.lexists(own + "/Solvanta.new"), what, "leaves a part of the program")


with open(sys.argv[1], encoding="utf-8") as script:
    text = script.read()
work = "/tmp"
subprocess.run(["mount", "-t", "tmpfs", "none", work], check=True)  # goes with the namespace
program, pictures = work + "/usr/lib/games/solvanta/Solvanta", work + "/usr/share/games/solvanta"
for directory in (os.path.dirname(program), pictures):
    os.makedirs(directory)
put(work, "solvanta", text.replace("/usr/", work + "/usr/").encode())
good_places(work + "/home/.local/share/solvanta", HOME=work + "/home", XDG_DATA_HOME="not/absolute")
good_places(work + "/Spiele für $HOME\n/solvanta", XDG_DATA_HOME=work + "/Spiele für $HOME\n")
install(0, VERSIONS[0])
for kind in BAD_PLACES.items():
    bad_place(*kind)
