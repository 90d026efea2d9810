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

from game import (BEST_TIMES, HELP, LIST, TO_BEST_TIMES, TO_HELP, Game, copy_of_program, on_windows, program_in, read,
                  require)

original = os.fsencode(sys.argv[1])
ITS_LIST, TEMPORARY = os.fsencode(LIST), os.fsencode(LIST) + b".tmp"
HELD = 99  # a file handle
PICTURES = [b"Leer.bmp", b"Back_ganz.bmp", b"Back_verdeckt.bmp", b"zeiger.bmp", b"diddle.jpg", b"skull.gif",
            b"Solvanta.ico", b"Solvanta.png"]
PLACES = {"pictures": PICTURES, "help": [b"Help.rtf"], "list": [ITS_LIST], "temporary": [TEMPORARY]}


def file_of(content, size=None):
    def make(path):
        with open(path, "wb") as file:
            file.write(content)
            file.truncate(size)
    return make


def bitmap(width, height, bits):
    sides = width.to_bytes(4, "little") + height.to_bytes(4, "little")
    return file_of(b"BM" + bytes(8) + b"\x36\0\0\0\x28\0\0\0" + sides + b"\1\0" + bytes([bits]) + bytes(1025))


def link(target):
    return lambda path: os.symlink(target or path, path)


# What stands in place of files; whether that place's list is written then.
PICTURE_THINGS = {"65,535 pixels square": bitmap(65535, 65535, 24), "no pixels": bitmap(0, 0, 0),
                  "2,147,483,647 pixels wide": bitmap((1 << 31) - 1, 1, 1)}
THINGS = {"no bytes": file_of(b""), "noise": file_of(bytes(range(256)) * 40), "directory": os.mkdir,
          "wrong format": file_of(read(original + b"/skull.gif") + read(original + b"/Help.rtf")),
          "a terabyte": file_of(b"", 1 << 40)}
POSIX_THINGS = {"pipe": os.mkfifo, "device": link("/dev/zero"), "full device": link("/dev/full"),
                "loop of links": link(None), "link to nothing": link(LIST + ".elsewhere")}
REPLACED = {"no bytes", "noise", "wrong format", "link to nothing"}


def in_place_of(names, make):
    def put(program):
        for name in names:
            with contextlib.suppress(FileNotFoundError):
                os.remove(os.path.join(program, name))
            make(os.path.join(program, name))
    return put


def things(kinds, place):
    for thing, make in kinds.items():
        unwritten = place == "list" and thing not in REPLACED or (place, thing) == ("temporary", "directory")
        put = in_place_of(PLACES[place], make)
        yield f"{place} {thing}", {"prepare": put, "written": not unwritten, "quiet": False}


def nobody_reads():
    reader, writer = os.pipe()
    os.close(reader)
    return writer


def link_beside(program):
    os.symlink(program + b"/Solvanta", program + b".link")
    return [program + b".link"]


def close_streams():
    for stream in (0, 1, 2):
        os.close(stream)


def lose_program(program):
    os.dup2(os.open(program + b"/Solvanta", os.O_RDONLY), HELD)
    os.remove(program + b"/Solvanta")


def lose_picture(program):
    os.remove(program + b"/Leer.bmp")


NAMES = ["Spiele für Übermütige 🂡", "  two  blanks", "100%s", "$HOME", "-rf", "'%TEMP%'^&!(;,=)",
         os.path.join("d" * 100, "d" * 100), "x" * 250]
CASES = [  # the name of the directory, and what is special there
    *things(PICTURE_THINGS, "pictures"), *(case for place in PLACES for case in things(THINGS, place)),
    *((name, {}) for name in NAMES),
    ("another working directory", {"cwd": "/"}),
    ("standard error full", {"stderr": open("/dev/full", "wb"), "prepare": lose_picture}),
    ("nobody reads standard error", {"stderr": nobody_reads(), "prepare": lose_picture}),
]
POSIX_CASES = [
    *(case for place in PLACES for case in things(POSIX_THINGS, place)),
    *((name, {}) for name in ("a:b", "two  blanks ", "100%s\\n", "'\"*?")),
    # Qt's names of files are Unicode: there it has no icon.
    (b"no UTF-8 \xff\xfe", {"quiet": False}),
    ("named in a roundabout way", {"command": lambda at: [at + b"/..//" + os.path.basename(at) + b"//./Solvanta"]}),
    ("through a link", {"command": link_beside}),
    ("program deleted", {"prepare": lose_program, "command": lambda _: [f"/proc/{os.getpid()}/fd/{HELD}"]}),
    ("no such locale", {"env": {"LC_ALL": "xx_YY.nonsense"}}),
    ("no home", {"env": {"HOME": "/nowhere", "TMPDIR": "/nowhere", "XDG_CONFIG_HOME": "/nowhere"}}),
    ("standard streams closed", {"stderr": None, "preexec_fn": close_streams}),
]

signals = itertools.cycle((signal.SIGTERM, signal.SIGHUP, signal.SIGINT))

def look(directory):
    """Everything in a directory but the list and what leads to it."""
    about = {file.name: file.stat(follow_symlinks=False) for file in os.scandir(directory)}
    return {(name, file.st_mode, file.st_size, file.st_mtime_ns) for name, file in about.items()
            if not name.startswith(ITS_LIST)}


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
        status = game.end() if on_windows(program) else game.terminate(next(signals))
        require(status == 0 and not (quiet and game.said()), name, "ends with", status, game.said())
    require(look(program) == before, name, "changes files:", look(program) ^ before)
    require((listed(program) != list_before) == written, name, "the list is", listed(program))
    require(not (written and os.path.lexists(os.path.join(program, TEMPORARY))), name, "leaves a temporary file")
    print(name, "- written" if written else "- left alone", flush=True)


with tempfile.TemporaryDirectory() as work:
    for case_name, special in CASES + POSIX_CASES * (not on_windows(original)):
        play(case_name, **special)
