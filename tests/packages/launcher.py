"""Holds the installed command to its promises, with a program that tells where it was started.

    unshare --user --map-root-user --mount python3 launcher.py COMMAND
"""
import os
import subprocess
import sys
from pathlib import Path

BAD_PLACES = {  # what is done to the home, $0, before the start
    "no home": "rmdir $0", "a file": "mkdir -p $0/.local/share; touch $0/.local/share/solvanta",
    "a link to nothing": "mkdir -p $0/.local/share; ln -s nothing $0/.local/share/solvanta",
    "a directory for a program": "mkdir -p $0/.local/share/solvanta/Solvanta/full",
    "unwritable": "mount -t tmpfs -o ro none $0", "nothing may be run": "mount -t tmpfs -o noexec none $0",
    "full at the copy": "mount -t tmpfs -o size=8k none $0", "full at a link": "mount -t tmpfs -o nr_inodes=7 none $0"}
VERSIONS = [[], ["a.bmp", "b 1.bmp", "c.bmp"], ["a.bmp", "b 1.bmp", "new.bmp", "other.bmp.dpkg-new"]]
OWN = {"b 1.bmp": b"own", "own.bmp": b"own", "-n": b"own", "new.bmp": "nothing", "highscore.scr": b"list"}


def put(directory, files):
    for name, content in files.items():
        (directory / name).unlink(missing_ok=True)
        getattr(directory / name, "symlink_to" if isinstance(content, str) else "write_bytes")(content)


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
        put(program.parent, {"Solvanta": b'#!/bin/sh\necho "$0"\nexit 7\n#' + b"%d" % version * 20000})
        program.chmod(0o755)
        said = start(10, **environment)
        assert said == [(f"{own}/Solvanta\n", "", 7)] * 10, (own, version, said)
        links = {name: str(pictures / name) for name in names if not name.endswith("dpkg-new")}
        found = {path.name: os.readlink(path) if path.is_symlink() else path.read_bytes() for path in own.iterdir()}
        wanted = {"Solvanta": program.read_bytes(), **links, **(OWN if version else {})}
        assert found == wanted, (own, version, {name for name, _ in found.items() ^ wanted.items()})
        put(own, {**OWN, "Solvanta": str(program)})  # as a link it would not play here


launcher = Path(sys.argv[1]).read_bytes()
subprocess.run(["mount", "-t", "tmpfs", "none", "/tmp"], check=True)  # goes with the namespace
program, pictures = Path("/tmp/usr/lib/games/solvanta/Solvanta"), Path("/tmp/usr/share/games/solvanta")
subprocess.run(["mkdir", "-p", program.parent, pictures], check=True)
put(Path("/tmp"), {"solvanta": launcher.replace(b"/usr/", b"/tmp/usr/")})
good_place(Path("/tmp/home/.local/share/solvanta"), HOME="/tmp/home", XDG_DATA_HOME="not/absolute")
good_place(Path("/tmp/Spiele für $HOME\n/solvanta"), XDG_DATA_HOME="/tmp/Spiele für $HOME\n")
for what, prepare in BAD_PLACES.items():
    (home := Path("/tmp", what)).mkdir()
    subprocess.run(["sh", "-ec", prepare.replace("$0", f'"{home}"')], check=True)
    own = home / ".local/share/solvanta"
    (where, said, status), = start(1, **({"HOME": str(home)} if home.exists() else {}))
    assert (where, status, said.count("\n")) == (f"{program}\n", 7, 1), (what, where, said, status)
    assert said.replace("/dev/null", str(home)).startswith(f"Solvanta: {own} "), (what, said)
    assert not (own / "Solvanta.new").exists(), (what, "a part of the program is left")
