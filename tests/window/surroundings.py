"""Plays the real program in hostile surroundings: things that are no files in place of its files,
directories of every kind of name, standard streams and locales that are not there. It starts,
deals, shows its help and its list, ends in order, and writes nothing but the list.

    tools/setup/screen.py python3 tests/window/surroundings.py PROGRAM_DIRECTORY
"""
import contextlib
import itertools
import os
import signal
import sys
import tempfile
from functools import partial

from game import (BEST_TIMES, HELP, LIST, TO_BEST_TIMES, TO_HELP, Game, copy_of_program, on_windows, program_in, read,
                  require)

original = os.fsencode(sys.argv[1])
ITS_LIST, TEMPORARY = os.fsencode(LIST), os.fsencode(LIST) + b".tmp"
SIGNALS = itertools.cycle((signal.SIGTERM, signal.SIGHUP, signal.SIGINT))
FILES = [b"Leer.bmp", b"Back_ganz.bmp", b"diddle.jpg", b"skull.gif", b"Solvanta.ico", b"Solvanta.png", b"Help.rtf"]


def file_of(content, size=None):
    def make(path):
        with open(path, "wb") as file:
            file.write(content)
            file.truncate(size)
    return make


def link(target):
    return lambda path: os.symlink(target or path, path)


# What stands in place of files, and whether a list in its place is written then.
THINGS = {"no bytes": (file_of(b""), True), "noise": (file_of(bytes(range(256)) * 40), True),
          "directory": (os.mkdir, False), "a terabyte": (file_of(b"", 1 << 40), False)}
POSIX_THINGS = {"pipe": (os.mkfifo, False), "device": (link("/dev/zero"), False),
                "loop of links": (link(None), False), "link to nothing": (link(LIST + ".elsewhere"), True)}


def things(kinds):
    """Two cases for each thing: in place of the files and the list, and of the list's temporary file."""
    for thing, (make, written) in kinds.items():
        def put(names, program, make=make):
            for path in (os.path.join(program, name) for name in names):
                with contextlib.suppress(FileNotFoundError):
                    os.remove(path)
                make(path)
        yield thing, {"prepare": partial(put, [*FILES, ITS_LIST]), "written": written, "quiet": False}
        yield "temporary " + thing, {"prepare": partial(put, [TEMPORARY]), "written": make != os.mkdir, "quiet": False}


def lose_picture(program):
    os.remove(program + b"/Leer.bmp")


reader, unread = os.pipe()
os.close(reader)
NAMES = ["Spiele für Übermütige 🂡", "  two  blanks", "100%s", "$HOME", "-rf", "'%TEMP%'^&!(;,=)",
         os.path.join("d" * 100, "d" * 100), "x" * 250]
CASES = [  # the name of the directory, and what is special there
    *things(THINGS),
    *((name, {}) for name in NAMES),
    ("another working directory", {"cwd": "/"}),
    ("standard error full", {"stderr": open("/dev/full", "wb"), "prepare": lose_picture}),
    ("nobody reads standard error", {"stderr": unread, "prepare": lose_picture}),
]
POSIX_CASES = [
    *things(POSIX_THINGS),
    *((name, {}) for name in ("a:b", "two  blanks ", "100%s\\n", "'\"*?")),
    # Qt's names of files are Unicode: there it has no icon.
    (b"no UTF-8 \xff\xfe", {"quiet": False}),
    ("named in a roundabout way", {"command": lambda at: [at + b"/..//" + os.path.basename(at) + b"//./Solvanta"]}),
    ("through a link", {"command": lambda at: os.symlink(at + b"/Solvanta", at + b".link") or [at + b".link"]}),
    ("no such locale", {"env": {"LC_ALL": "xx_YY.nonsense"}}),
    ("no home", {"env": {"HOME": "/nowhere", "TMPDIR": "/nowhere", "XDG_CONFIG_HOME": "/nowhere"}}),
    ("standard streams closed", {"stderr": None, "preexec_fn": lambda: os.closerange(0, 3)}),
]


def look(directory):
    """Everything in a directory but the list and what leads to it, and when it last changed."""
    return {(file.name, file.stat(follow_symlinks=False).st_ctime_ns) for file in os.scandir(directory)
            if not file.name.startswith(ITS_LIST)}


def listed(program):
    """The list, if there is a file of bounded size."""
    path = os.path.join(program, ITS_LIST)
    return read(path) if os.path.isfile(path) and os.path.getsize(path) < 1 << 20 else None


def play(name, prepare=lambda program: None, command=program_in, written=True, quiet=True, **surroundings):
    """One game from start to end; `written`: whether it must write its list; `quiet`: nothing else."""
    program = copy_of_program(original, os.path.join(os.fsencode(work), os.fsencode(name)))
    prepare(program)
    before, list_before = look(program), listed(program)
    with Game(command(program), **surroundings) as game:
        stream = os.readlink(f"/proc/{game.process.pid}/fd/2")
        require("preexec_fn" not in surroundings or stream == "/dev/null", name, "has standard error", stream)
        game.deal()
        game.open(TO_HELP, HELP)
        game.open(TO_BEST_TIMES, BEST_TIMES)
        status = game.end() if on_windows(program) else game.terminate(next(SIGNALS))
        require(status == 0 and not (quiet and game.said()), name, "ends with", status, game.said())
    require(look(program) == before, name, "changes files:", look(program) ^ before)
    require((listed(program) != list_before) == written, name, "the list is", listed(program))
    require(not (written and os.path.lexists(os.path.join(program, TEMPORARY))), name, "leaves a temporary file")
    print(name, "- written" if written else "- left alone", flush=True)


with tempfile.TemporaryDirectory() as work:
    for case_name, special in CASES + POSIX_CASES * (not on_windows(original)):
        play(case_name, **special)
