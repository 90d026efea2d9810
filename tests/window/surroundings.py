"""Plays the real program in hostile surroundings: things that are no files in place of its files,
directories of every kind of name, standard streams and locales that are not there. It starts,
deals, shows its help and its list, ends in order, and writes nothing but the list.

    surroundings.py PROGRAM_DIRECTORY
"""
import os
import stat
import sys
import tempfile

from game import (BEST_TIMES, HELP, Game, Screen, copy_of_program, fail, on_windows, program_in, wait_for,
                  window_named)

LIST = b"highscore.scr"
PICTURES = [b"Leer.bmp", b"Back_ganz.bmp", b"Back_verdeckt.bmp", b"zeiger.bmp", b"diddle.jpg", b"skull.gif",
            b"Solvanta.ico", b"Solvanta.png"]
PLACES = {"pictures": PICTURES, "help": [b"Help.rtf"], "list": [LIST], "temporary": [LIST + b".tmp"]}


def file_of(content):
    def make(path):
        with open(path, "wb") as file:
            file.write(content)
    return make


def sparse(path):
    with open(path, "wb") as file:
        file.truncate(1 << 40)


def link_to(target):
    return lambda path: os.symlink(target, path)


def bitmap(width, height, bits):
    sides = width.to_bytes(4, "little") + height.to_bytes(4, "little")
    return b"BM" + bytes(8) + b"\x36" + bytes(3) + b"\x28" + bytes(3) + sides + b"\1\0" + bytes([bits]) + bytes(25)


def read_real(name):
    with open(os.path.join(sys.argv[1], name), "rb") as file:
        return file.read()


# What stands in place of files.
IN_PLACE_OF_PICTURES = {
    "65,535 pixels square": file_of(bitmap(65535, 65535, 24) + bytes(1000)),
    "2,147,483,647 pixels wide": file_of(bitmap((1 << 31) - 1, 1, 1)),
    "no pixels": file_of(bitmap(0, 0, 0)),
}
IN_PLACE_OF_ALL = {
    "no bytes": file_of(b""),
    "noise": file_of(bytes(range(256)) * 40),
    "wrong format": file_of(read_real("skull.gif") + read_real("Help.rtf")),
    "a terabyte": sparse,
    "directory": os.mkdir,
    "pipe": os.mkfifo,
    "device": link_to(b"/dev/zero"),
    "full device": link_to(b"/dev/full"),
    "loop of links": lambda path: os.symlink(os.path.basename(path), path),
    "link to nothing": lambda path: os.symlink(path + b".elsewhere", path),
}
UNKNOWN_TO_WINDOWS = {"pipe", "device", "full device", "loop of links", "link to nothing"}
NEVER_REPLACED = {"a terabyte", "directory", "pipe", "device", "full device", "loop of links"}


def replaced(place, thing):
    """Whether the list is written."""
    return not (place == "list" and thing in NEVER_REPLACED or place == "temporary" and thing == "directory")


def look(directory):
    """Everything in a directory but the list and what leads to it."""
    seen = {}
    for name in os.listdir(directory):
        path = os.path.join(directory, name)
        about = os.lstat(path)
        if not name.startswith(LIST):
            seen[name] = (stat.S_IFMT(about.st_mode), about.st_size, about.st_mtime_ns)
    return seen


def play(what, program, written=True, quiet=False, command=None, **surroundings):
    """One game from start to end; `written`: whether it must leave a list with one game dealt."""
    before, list_before = look(program), listed(program)
    with Game(command or program_in(program), **surroundings) as game:
        if "preexec_fn" in surroundings and os.readlink(f"/proc/{game.process.pid}/fd/2") != "/dev/null":
            fail(what, "has something else for standard error")
        game.deal()
        for place, caption in ((HELP, "Hilfe"), (BEST_TIMES, "Highscores - Top 30")):
            game.click(place)
            wait_for(lambda name=caption: window_named(name), caption)
        if (status := game.end() if on_windows(program) else game.terminate()) != 0:
            fail(what, "ends with", status, game.said())
        if quiet and game.said():
            fail(what, "says", game.said())
    if look(program) != before:
        fail(what, "changes files:", set(look(program).items()) ^ set(before.items()))
    if (listed(program) != list_before) != written:
        fail(what, "the list is", listed(program))
    if os.path.lexists(os.path.join(program, LIST + b".tmp")) and written:
        fail(what, "leaves a temporary file")
    print(f"{what:45} {'written' if written else 'left alone'}", flush=True)


def listed(program):
    """The list, if there is a file of bounded size."""
    path = os.path.join(program, LIST)
    if not os.path.isfile(path) or os.path.getsize(path) > 1 << 20:
        return None
    with open(path, "rb") as file:
        return file.read()


def copy(*parts):
    return copy_of_program(os.fsencode(sys.argv[1]), os.path.join(*parts))


def things_in_place_of_files(work):
    for place, names in PLACES.items():
        things = IN_PLACE_OF_PICTURES | IN_PLACE_OF_ALL if place == "pictures" else IN_PLACE_OF_ALL
        for thing, make in things.items():
            program = copy(work, f"{place} {thing}".encode())
            if on_windows(program) and thing in UNKNOWN_TO_WINDOWS:
                continue
            for name in names:
                path = os.path.join(program, name)
                if os.path.exists(path):
                    os.remove(path)
                make(path)
            play(f"{place}: {thing}", program, replaced(place, thing))


def directories(work):
    for name in ("Spiele für Übermütige 🂡", "  two  blanks", "100%s", "$HOME", "-rf", "'%TEMP%'^&!(;,=)",
                 os.path.join(*["d" * 100] * 2), "x" * 250):
        play("directory " + name[:30], copy(work, name.encode()), quiet=True)


def other_surroundings(work):
    program = copy(work, b"plain")
    play("another working directory", program, cwd="/", quiet=True)
    # From here on there is trouble to tell.
    os.remove(os.path.join(program, b"Leer.bmp"))
    with open("/dev/full", "wb", buffering=0) as full:
        play("standard error full", program, stderr=full)
    reader, writer = os.pipe()
    os.close(reader)
    play("nobody reads standard error", program, stderr=writer)
    os.close(writer)


def close_streams():
    for stream in (0, 1, 2):
        os.close(stream)


def posix_surroundings(work):
    for name in ("a:b", "two  blanks ", "100%s\\n", "'\"*?"):
        program = copy(work, name.encode())
        play("directory " + name, program, quiet=True)
    program = copy(work, b"c:d")
    twice = program + b"/..//c:d//./"
    play("directory named in a roundabout way", program, command=[twice + b"Solvanta"], quiet=True)
    # Qt's names of files are Unicode: there it plays with placeholders, and keeps no list.
    play("directory named in no UTF-8", copy(work, b"no UTF-8 \xff\xfe"), written=False)
    link = os.path.join(work, b"link")
    os.symlink(os.path.join(program, b"Solvanta"), link)
    play("through a link", program, command=[link], quiet=True)
    play("no such locale", program, env={"LC_ALL": "xx_YY.nonsense"}, quiet=True)
    play("no home, no place for temporary files", program, quiet=True,
         env={"HOME": "/nowhere", "TMPDIR": "/nowhere", "XDG_CONFIG_HOME": "/nowhere"})
    play("standard streams closed", program, stderr=None, preexec_fn=close_streams)


with tempfile.TemporaryDirectory() as work, Screen():
    surroundings = [things_in_place_of_files, directories, other_surroundings]
    if not on_windows(sys.argv[1]):
        surroundings.append(posix_surroundings)
    for cases in surroundings:
        cases(os.fsencode(work))
