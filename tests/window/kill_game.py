"""Kills the real game in its window before each system call of a deal that touches its list; on Windows
at thirty moments of a deal.

    kill_game.py PROGRAM_DIRECTORY
"""
import os
import subprocess
import sys
import tempfile
import time

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "durability"))
from dealer import LIST, Call, list_bytes, next_deal, print_table, read, require
from game import PATIENCE, Game, Screen, copy_of_program, on_windows, program_in, within

OLD = list_bytes(30, 99)


def strace(directory, *options):
    """Starts the game under strace, which looks only at the list, its directory, its neighbour."""
    paths = [directory, os.path.join(directory, LIST), os.path.join(directory, LIST + ".tmp")]
    return ["strace", "-f", "-qqq", "-xx", *(word for path in paths for word in ("-P", path)), *options,
            *program_in(directory)]


def deal(command, directory, killed=False):
    """A start and a deal; what the list is then."""
    with Game(command) as game:
        game.deal()
        if killed:
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
        require(deal(strace(directory, "-o", log.name), directory) == next_deal(OLD), "the deal is not written")
        seen = {}
        calls = [Call(line, seen) for line in log if " = " in line and "+++" not in line]
    first = next(i for i, call in enumerate(calls) if call.name == "unlink")
    return [call for call in calls[first:] if call.name in
            ("unlink", "openat", "write", "fsync", "close", "newfstatat", "chmod", "rename")]


def check_killed(program, where, rows):
    """What a killed deal has left, and that the next one goes on from there."""
    left = read(os.path.join(program, LIST))
    require(left in (OLD, next_deal(OLD)), "neither old nor new", where)
    rows.append([where, "old" if left == OLD else "new"])
    require(deal(program_in(program), program) == next_deal(left), "the next deal is lost after", where)
    require(not os.path.exists(os.path.join(program, LIST + ".tmp")), "a stray file after", where)


def kill_before_each_call(program, rows):
    for call in recorded(program):
        put_list(program)
        fault = f"inject={call.name}:signal=KILL:when={call.number}"
        deal(strace(program, "-o", os.devnull, "-e", fault), program, killed=True)
        check_killed(program, "before " + call.name, rows)


def kill_at_any_time(program, rows):
    """The calls of another system can't be told apart from here, but the time can be divided."""
    def seconds_to_write(limit):
        put_list(program)
        with Game(program_in(program)) as game:
            game.ask_for_deal()
            start = time.monotonic()
            with subprocess.Popen(["xdotool", "key", "Return"]):
                within(limit, lambda: read(os.path.join(program, LIST)) == next_deal(OLD))
                game.kill()
                return time.monotonic() - start
    usual = seconds_to_write(PATIENCE)
    for part in (1.5 * (kill / 29) ** 2 for kill in range(30)):
        seconds_to_write(usual * part)
        check_killed(program, f"after {part:.2f} of the time", rows)


with tempfile.TemporaryDirectory() as work, Screen():
    program = copy_of_program(sys.argv[1], os.path.join(work, "Solvanta"))
    rows = []
    (kill_at_any_time if on_windows(program) else kill_before_each_call)(program, rows)
    require({"old", "new"} == {outcome for _, outcome in rows}, rows)
    print_table(["killed", "30 places"], rows)
