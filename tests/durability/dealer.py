"""The program without windows on a real directory, run for faults to be thrown at it."""
import contextlib
import os
import re
import shutil
import signal
import subprocess
import sys
import tempfile

LIST = "highscore.scr"
AS_NOBODY = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
PLACES = (0, 1, 30)  # filled places of the lists that every fault is tried with


def list_bytes(places, dealt, name="J\xf6rg"):
    """A best-times file; without a number of games dealt there is none."""
    if dealt is None:
        return None
    lines = [f'{60 + p},"{name} {p}","3. M\xe4r 2004 9:05"' for p in range(places)]
    lines += ['0," "," "'] * (30 - places)
    lines.insert(10, f"{dealt},2")
    return "".join(line + "\r\n" for line in lines).encode("cp1252")


def next_deal(content):
    """The file after one more deal."""
    if content is None:
        return list_bytes(0, 1).replace(b"1,2", b"1,0")
    return re.sub(rb"(?m)^(\d+),(\d+)\r$", lambda m: b"%d,%s\r" % (int(m[1]) + 1, m[2]), content)


def read(path):
    try:
        with open(path, "rb") as file:
            return file.read()
    except FileNotFoundError:
        return None


class Directory:
    """A program directory that holds nothing but a list, gone at the end."""

    def __init__(self, content=None, within=None):
        self.path = tempfile.mkdtemp(prefix="solvanta-", dir=within)
        self.list = os.path.join(self.path, LIST)
        if content is not None:
            with open(self.list, "wb") as file:
                file.write(content)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        shutil.rmtree(self.path)

    def content(self):
        return read(self.list)

    def strays(self):
        return [name for name in os.listdir(self.path) if name != LIST]


class Dealer:
    """A running program. `wrapper` is a command to start it through."""

    def __init__(self, program, directory, wrapper=()):
        self.errors = tempfile.TemporaryFile()
        self.process = subprocess.Popen(
            [*wrapper, program, directory.path], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=self.errors, preexec_fn=lambda: signal.signal(signal.SIGXFSZ, signal.SIG_IGN))

    def deal(self):
        """Deals a game; the number of games dealt, or nothing when the program is gone."""
        with contextlib.suppress(BrokenPipeError):
            self.process.stdin.write(b"\n")
            self.process.stdin.flush()
        return self.process.stdout.readline().decode().strip()

    def end(self):
        """Ends the program; what it said on standard error, line by line."""
        with contextlib.suppress(BrokenPipeError):
            self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()
        self.errors.seek(0)
        with self.errors:
            return self.errors.read().decode().splitlines()


def deal_once(program, directory, wrapper=()):
    dealer = Dealer(program, directory, wrapper)
    answer = dealer.deal()
    return answer, dealer.end()


class Call:
    """One system call as recorded: its name, its arguments, its result, and how many of this name
    came up to it."""

    def __init__(self, line, seen):
        name, self.arguments, self.result = re.match(r"(?:\d+ +)?(\w+)\((.*)\) += (.*)", line).groups()
        seen[name] = seen.get(name, 0) + 1
        self.name, self.number = name, seen[name]

    def inject(self, fault):
        return ["strace", "-f", "-qqq", "-o", os.devnull, "-e", "trace=" + self.name,
                "-e", f"inject={self.name}:{fault}:when={self.number}"]


def record(program, directory, wrapper=()):
    """All calls of one start and one deal, and the place of the deal's first among them."""
    with tempfile.NamedTemporaryFile("r", errors="replace") as log:
        deal_once(program, directory, ["strace", "-f", "-qqq", "-xx", "-y", "-s", "1000000", "-o", log.name, *wrapper])
        seen = {}
        calls = [Call(line, seen) for line in log if re.match(r"(\d+ +)?\w+\(.*\) += ", line)]
    deal = next(i for i, call in enumerate(calls) if call.name == "read" and call.arguments.startswith("0<"))
    return calls, deal + 1


def require(condition, *what):
    if not condition:
        print("FAILED:", *what, file=sys.stderr)
        sys.exit(1)


def print_table(head, rows):
    widths = [max(len(str(cell)) for cell in column) for column in zip(head, *rows)]
    for row in (head, *rows):
        print("  ".join(str(cell).ljust(width) for cell, width in zip(row, widths)).rstrip())
