"""Plays a whole game in a real window with a real mouse, and checks what the game leaves on disk.

    tools/setup/screen.py python3 tests/tour/tour.py PROGRAM_DIRECTORY TOUR_CLICKS OUTPUT_DIRECTORY [maximised]

The screenshots go to OUTPUT_DIRECTORY. The program's clock is set to the moment of the golden game,
so that the cards are those the clicks are meant for.
"""
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

here = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(here, "..", "window"))
from game import (BEST_TIMES, BOX, HELP, LIST, NEW_GAME, RETURN, SHIFT, TO_BEST_TIMES, TO_HELP, Game, click,
                  copy_of_program, on_windows, press, program_in, read, require, wait_for, wait_for_answer,
                  wait_for_end_of)

program_directory, tour_clicks, output = map(os.path.abspath, sys.argv[1:4])
GERMAN = {"LC_ALL": "de_DE.UTF-8", "TZ": "UTC", "FAKETIME_DONT_FAKE_MONOTONIC": "1", "DONT_FAKE_MONOTONIC": "1"}
OK = (332, 452)  # in the window of the best times
ENTRY = rb'[1-9][0-9]*,"J\xf6rg S\xfc\xdf","1\. Jan 2026 12:33"\r\n'
shown = []  # what the screen held at each shot


def screen():
    return read(os.environ["FRAMEBUFFER"])


def shot(name):
    """A screenshot, once there is something new on the screen and nothing moves."""
    def still():
        seen = screen()
        time.sleep(0.05)
        return seen not in shown and screen() == seen and seen
    shown.append(wait_for(still, "a still screen"))
    subprocess.run(["import", "-window", "root", os.path.join(output, name + ".png")], check=True)


def wait_for_counts(best_times, counts):
    """Waits for line 11 of the best-times file: the games dealt and won."""
    wait_for(lambda: (read(best_times) or b"").split(b"\r\n")[10:11] == [counts], counts)


def play(game, clicks):
    for start in range(0, len(clicks), 10):
        for kind, *place in clicks[start:start + 10]:
            game.click(map(int, place), times=2 if kind == b"double" else 1)
        wait_for_answer(game.table)


def whole_game(command, best_times):
    with open(os.path.join(here, "golden_game.txt"), encoding="ascii") as file:
        dealt_at = time.strftime("%Y-%m-%d %H:%M:%S", time.gmtime(int(file.readline())))
    listing = subprocess.run([*(["wine"] if on_windows(program_directory) else []), tour_clicks],
                             stdout=subprocess.PIPE, check=True).stdout
    clicks = [line.split() for line in listing.splitlines()]
    with Game(["faketime", "-f", dealt_at, *command], env=GERMAN) as game:
        shot("1-start")
        if sys.argv[4:]:
            game.maximise()
        require(read(best_times) is None, "the start wrote the best-times file")
        game.open(NEW_GAME, BOX)
        shot("2-question")
        game.confirm()
        shot("3-dealt")
        wait_for_counts(best_times, b"1,0")
        play(game, clicks[:150])
        shot("4-playing")
        wait_for(lambda: screen() != shown[-1], "the clock's tick")
        play(game, clicks[150:])
        shot("5-won")
        for character in "Jörg Süß":
            press(*[SHIFT] * character.isupper(), ord(character))
        shot("6-name")
        press(RETURN)
        wait_for_counts(best_times, b"1,1")
        require(re.match(ENTRY, read(best_times)), "the entry is not in the best-times file")
        window = game.open(TO_BEST_TIMES, BEST_TIMES)
        shot("7-best-times")
        click(window, OK)
        wait_for_end_of(BEST_TIMES)
        game.open(TO_HELP, HELP)
        shot("8-help")
        require(game.end() == 0, "the game did not end well")


shutil.rmtree(output, ignore_errors=True)
os.makedirs(output)
# A copy plays as well as the original, and the original keeps its best times.
with tempfile.TemporaryDirectory() as work:
    program = copy_of_program(program_directory, os.path.join(work, "Solvanta"))
    whole_game(program_in(program), os.path.join(program, LIST))
