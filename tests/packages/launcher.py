"""Holds the installed command to its promises, with a program that tells where it was started.

    unshare --user --map-root-user --mount python3 launcher.py COMMAND
"""
import os
import subprocess
import sys

sys.path.append(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "durability"))
from durability import read, require

AT_ONCE = 10
BAD_PLACES = {  # what is done to the home, $0, before the start
    "no home": "rmdir $0", "a file": "mkdir -p $0/.local/share; touch $0/.local/share/solvanta",
    "a link to nothing": "mkdir -p $0/.local/share; ln -s nothing $0/.local/share/solvanta",
    "a directory for a program": "mkdir -p $0/.local/share/solvanta/Solvanta/full",
    "unwritable": "mount -t tmpfs -o ro none $0", "nothing may be run": "mount -t tmpfs -o noexec none $0",
    "full at the program": "mount -t tmpfs -o size=8k none $0", "full at a link": "mount -t tmpfs -o nr_inodes=7 none $0"}
VERSIONS = [[], ["a.bmp", "b 1.bmp", "c.bmp"], ["a.bmp", "b 1.bmp", "new.bmp", "other.bmp.dpkg-new"]]
OWN = {"b 1.bmp": b"own", "own.bmp": b"own", "-n": b"own", "new.bmp": "nothing", "highscore.scr": b"list"}


def put(directory, files):
    """Files of these bytes, or links to these paths, in place of what may be there."""
    for path, content in ((os.path.join(directory, name), content) for name, content in files.items()):
        subprocess.run(["rm", "-f", path], check=True)
        if isinstance(content, str):
            os.symlink(content, path)
        else:
            with open(os.open(path, os.O_CREAT | os.O_WRONLY, 0o755), "wb") as file:
                file.write(content)


def start(times, **environment):
    """What so many starts at once say, and their exit statuses."""
    games = [subprocess.Popen(["sh", "/tmp/solvanta"], env={"PATH": os.environ["PATH"], **environment}, text=True,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE) for _ in range(times)]
    return [(*game.communicate(), game.returncode) for game in games]


def good_place(own, **environment):
    """One upgrade after the other, with things of the player's own in the directory."""
    for version, names in enumerate(VERSIONS):
        subprocess.run(["find", pictures, "-type", "f", "-delete"], check=True)
        put(pictures, dict.fromkeys(names, b"picture"))
        put(os.path.dirname(program), {"Solvanta": b'#!/bin/sh\necho "$0"\nexit 7\n#' + b"%d" % version * 20000})
        said = start(AT_ONCE, **environment)
        require(said == [(own + "/Solvanta\n", "", 7)] * AT_ONCE, own, version, said)
        links = {name: os.path.join(pictures, name) for name in names if not name.endswith("dpkg-new")}
        paths = {name: os.path.join(own, name) for name in os.listdir(own)}
        found = {name: os.readlink(path) if os.path.islink(path) else read(path) for name, path in paths.items()}
        wanted = {"Solvanta": read(program), **links, **(OWN if version else {})}
        require(found == wanted, own, version, {name for name, _ in found.items() ^ wanted.items()})
        put(own, {**OWN, "Solvanta": program})  # as a link it would not play here


def bad_place(what, prepare):
    os.mkdir(home := "/tmp/" + what)
    subprocess.run(["sh", "-ec", prepare.replace("$0", f'"{home}"')], check=True)
    own = home + "/.local/share/solvanta"
    (where, said, status), = start(1, **({"HOME": home} if os.path.exists(home) else {}))
    told = said.replace("/dev/null", home).startswith(f"Solvanta: {own} ") and said.count("\n") == 1
    require((where, status, told) == (program + "\n", 7, True), what, where, said, status)
    require(not os.path.lexists(own + "/Solvanta.new"), what, "leaves a part of the program")


launcher = read(sys.argv[1])
subprocess.run(["mount", "-t", "tmpfs", "none", "/tmp"], check=True)  # goes with the namespace
program, pictures = "/tmp/usr/lib/games/solvanta/Solvanta", "/tmp/usr/share/games/solvanta"
subprocess.run(["mkdir", "-p", os.path.dirname(program), pictures], check=True)
put("/tmp", {"solvanta": launcher.replace(b"/usr/", b"/tmp/usr/")})
good_place("/tmp/home/.local/share/solvanta", HOME="/tmp/home", XDG_DATA_HOME="not/absolute")
good_place("/tmp/Spiele für $HOME\n/solvanta", XDG_DATA_HOME="/tmp/Spiele für $HOME\n")
for kind in BAD_PLACES.items():
    bad_place(*kind)
