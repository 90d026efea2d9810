"""Kills the real game in its window at moments all through a deal, each start going on from what the
kill before has left: the old list or the new one, byte for byte.

    tools/setup/screen.py python3 tests/window/kill_game.py PROGRAM_DIRECTORY
"""
import os
import sys
import tempfile
import time

from game import BOX, LIST, NEW_GAME, RETURN, Game, copy_of_program, press, program_in, read, require, wait_for
from durability import OLD, next_deal

KILLS = 30


def kill_within(seconds):
    """Kills the game so long after a deal is confirmed, or once it is written; when that was, and what is left."""
    old = read(best_times)
    with Game(program_in(program)) as game:
        game.open(NEW_GAME, BOX)
        start = time.monotonic()
        press(RETURN)
        wait_for(lambda: time.monotonic() - start > seconds or read(best_times) == next_deal(old), "the deal")
        game.kill()
    took, left = time.monotonic() - start, read(best_times)
    require(left in (old, next_deal(old)), "neither old nor new after", seconds, "seconds")
    return took, "old" if left == old else "new"


with tempfile.TemporaryDirectory() as work:
    program = copy_of_program(sys.argv[1], os.path.join(work, "Solvanta"))
    best_times = os.path.join(program, LIST)
    with open(best_times, "wb") as file:
        file.write(OLD)
    usual, _ = kill_within(10)
    outcomes = [kill_within(1.5 * usual * (kill / KILLS) ** 2)[1] for kill in range(KILLS)]
    print(f"{usual * 1000:.0f} ms are divided:", *outcomes)
    require({"old", "new"} == set(outcomes), "every kill comes too early or too late")
    old = read(best_times)
    with Game(program_in(program)) as game:
        game.deal()
        require(game.end() == 0 and read(best_times) == next_deal(old), "the last deal is lost")
    require(not os.path.exists(best_times + ".tmp"), "a stray file is left")
