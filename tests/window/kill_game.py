"""Kills the real game in its window before each system call of a deal that touches its list.

    kill_game.py PROGRAM_DIRECTORY
"""
import os
import sys
import tempfile

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "durability"))
from dealer import LIST, Call, list_bytes, next_deal, print_table, read, require
from game import Game, Screen, copy_of_program

OLD = list_bytes(30, 99)


def strace(directory, *options):
    """Starts the game under strace, which looks only at the list, its directory, its neighbour."""
    paths = [directory, os.path.join(directory, LIST), os.path.join(directory, LIST + ".tmp")]
    return ["strace", "-f", "-qqq", "-xx", *(word for path in paths for word in ("-P", path)), *options,
            os.path.join(directory, "Solvanta")]


def deal(directory, *options):
    """A start and a deal; what the list is then."""
    with Game(strace(directory, *options)) as game:
        game.deal()
        if "inject" in " ".join(options):
            game.process.wait()
        else:
            require(game.end() == 0, "the game ends badly")
    return read(os.path.join(directory, LIST))


def put_list(directory):
    with open(os.path.join(directory, LIST), "wb") as file:
        file.write(OLD)


def recorded(directory):
    put_list(directory)
    with tempfile.NamedTemporaryFile("r", errors="replace") as log:
        require(deal(directory, "-o", log.name) == next_deal(OLD), "the deal is not written")
        seen = {}
        calls = [Call(line, seen) for line in log if " = " in line and "+++" not in line]
    first = next(i for i, call in enumerate(calls) if call.name == "unlink")
    return [call for call in calls[first:] if call.name in
            ("unlink", "openat", "write", "fsync", "close", "newfstatat", "chmod", "rename")]


with tempfile.TemporaryDirectory() as work, Screen():
    program = copy_of_program(sys.argv[1], os.path.join(work, "Solvanta"))
    rows = []
    for call in recorded(program):
        put_list(program)
        left = deal(program, "-o", os.devnull, "-e", f"inject={call.name}:signal=KILL:when={call.number}")
        require(left in (OLD, next_deal(OLD)), "neither old nor new before", call.name)
        rows.append([call.name, "old" if left == OLD else "new"])
        require(deal(program, "-o", os.devnull) == next_deal(left), "the next deal is lost after", call.name)
        require(not os.path.exists(os.path.join(program, LIST + ".tmp")), "a stray file after", call.name)
    require({"old", "new"} == {outcome for _, outcome in rows}, rows)
    print_table(["killed before", "30 places"], rows)
