"""Throws faults at the real writer of the list, the program without windows on a real directory:
holds the system calls of a deal to their order, so that whatever ends it between two of them leaves
the old list or the new one, cuts a write short, takes permissions away.

    durability.py DEALS_PROGRAM
"""
import contextlib
import os
import re
import subprocess
import sys
import tempfile

LIST = "highscore.scr"
AS_NOBODY = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
# What a deal does to the disk: a power cut may undo what was not flushed, and the later things first.
ORDER = ("create list.tmp, write list.tmp, fsync list.tmp, close list.tmp, rename list.tmp list, fsync directory, "
         "close directory")
ORDER_IN_PLACE = "close list, write list, fsync list, ftruncate list, fsync list, close list"
IN_PLACE = 0o555, 0o666


def read(path):
    """The bytes of a file, or nothing where there is none."""
    with contextlib.suppress(FileNotFoundError), open(path, "rb") as file:
        return file.read()
    return None


def require(condition, *what):
    if not condition:
        sys.exit(" ".join(map(str, ("FAILED:", *what))))


PLACES = [f'{60 + p},"J\xf6rg {p}","3. M\xe4r 2004 9:05"\r\n' for p in range(30)]
OLD = "".join([*PLACES[:10], "99,2\r\n", *PLACES[10:]]).encode("cp1252")
NEW = OLD.replace(b"\n99,2\r", b"\n100,2\r")


@contextlib.contextmanager
def program_directory(directory_mode=0o777, list_mode=0o644):
    """A directory that holds nothing but the old list, and the list's path."""
    with tempfile.TemporaryDirectory(prefix="solvanta-") as path:
        best_times = os.path.join(path, LIST)
        with open(best_times, "wb") as file:
            file.write(OLD)
        os.chmod(best_times, list_mode)
        os.chmod(path, directory_mode)
        yield path, best_times


def deal(directory, *wrapper):
    """A start and a deal: the games dealt, and what was told, line by line."""
    done = subprocess.run([*wrapper, sys.argv[1], directory], input=b"\n", capture_output=True, check=False,
                          restore_signals=False)  # too long a file is an error, no signal
    return done.stdout.strip(), done.stderr.splitlines()


def follow(expected, wrapper=(), modes=()):
    """Holds a deal's calls to their order, but for those that fail or only look, until it is answered."""
    with program_directory(*modes) as (directory, best_times), tempfile.NamedTemporaryFile("rb") as log:
        deal(directory, "strace", "-f", "-qqq", "-y", "-o", log.name, *wrapper)
        since_asked = log.read().decode(errors="replace").partition("read(0<")[2]
    done = []
    for name, arguments, result in re.findall(r"(?m)^(?:\d+ +)?(\w+)\((.*)\) += (.*)", since_asked):
        name = "create" if "O_CREAT|O_EXCL" in arguments else name
        paths = re.findall(rf'["<]({directory}[^">]*)', arguments) or ["the answer"] * arguments.startswith("1<")
        if paths and name in ("create", "write", "fsync", "close", "rename", "ftruncate") and result[0] != "-":
            done.append(" ".join([name, *paths]).replace(best_times, "list").replace(directory, "directory"))
    require(", ".join(done) == expected + ", write the answer", "a deal does", done)


def hinder(left, wrapper, *modes):
    """A deal that can't write as usual: the list left is told of when it is the old one, and always the same file."""
    with program_directory(*modes) as (directory, best_times):
        file = os.stat(best_times).st_ino
        dealt, told = deal(directory, *wrapper)
        done = bool(dealt), bool(told), read(best_times), os.listdir(directory), os.stat(best_times).st_ino
        require(done == (True, left == OLD, left, [LIST], file), wrapper, modes, "give", done)


def main():
    follow(ORDER)
    hinder(OLD, ["prlimit", "--fsize=100"])  # a write takes so much and then fails
    if os.getuid() == 0:  # who alone can take permissions away
        follow(ORDER_IN_PLACE, AS_NOBODY, IN_PLACE)
        # Modes of the directory and of the list.
        for *modes, left in ((0o555, 0o444, OLD), (0o1777, 0o666, NEW), (0o777, 0o000, OLD)):
            hinder(left, AS_NOBODY, *modes)


if __name__ == "__main__":
    main()
