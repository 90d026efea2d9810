"""Clicks all over the real window at full speed, deals now and then, and watches the memory.

    tools/setup/screen.py python3 benchmarks/soak.py PROGRAM_DIRECTORY [CLICKS]

The program may be built under AddressSanitizer: then LeakSanitizer has nothing to report.

Prints the program's memory as it goes. It may not grow by more than a tenth after the first
thousand clicks, and the list is in order at the end.
"""
import os
import random
import re
import sys
import tempfile
import time

here = os.path.dirname(os.path.abspath(__file__))
sys.path.append(os.path.join(here, "..", "tests", "window"))
from game import LIST, STOCK, Game, click, copy_of_program, program_in, read, require, wait_for_answer

WIDTH, HEIGHT = 822, 490  # of the table above its row of buttons
FIRST, BATCH, GAME = 1000, 20, 500  # clicks
SANITIZERS = {  # what is freed is not kept for long, and libraries may leak
    "ASAN_OPTIONS": "quarantine_size_mb=1",
    "LSAN_OPTIONS": "print_suppressions=0:suppressions=" + os.path.join(here, "leaks.txt"),
}
clicks = int(sys.argv[2]) if len(sys.argv) > 2 else 100_000


def memory(process):
    """What the program takes of the machine, and how much of it is no file's, in kB."""
    text = read(f"/proc/{process.pid}/status").decode()
    return [int(re.search(rf"{kind}:\s+(\d+)", text)[1]) for kind in ("VmRSS", "RssAnon")]


def soak(game):
    chance = random.Random(1)
    at_first = None
    game.deal()
    at = STOCK
    for count in range(1, clicks + 1):
        kind = chance.random()
        if kind > 0.3:  # else once more where it is
            at = STOCK if kind > 0.9 else (chance.randrange(WIDTH), chance.randrange(HEIGHT))
        click(game.table, at)
        if count % BATCH == 0:
            wait_for_answer(game.table)  # a queue of clicks would be memory too
        if count % GAME == 0:  # before the stock refuses
            game.deal()
        if count == FIRST:
            at_first = memory(game.process)[0]
        if count == FIRST or count % (clicks // 10) == 0:
            require(game.runs(), "the game ended")
            whole, own = memory(game.process)
            print(f"{count:7} clicks  {whole:6} kB, its own {own:5} kB", flush=True)
    grown = whole / at_first
    require(grown <= 1.1, f"memory grew to {grown:.2f} of what it was after {FIRST} clicks")


with tempfile.TemporaryDirectory() as work:
    program = copy_of_program(sys.argv[1], os.path.join(work, "Solvanta"))
    started = time.monotonic()
    with Game(program_in(program), env=SANITIZERS) as game:
        soak(game)
        print(f"{time.monotonic() - started:.0f} s")
        status = game.terminate()  # in order, whatever box is open
        require(status == 0 and not game.said(), "the end is not in order:", status)
    lines = read(os.path.join(program, LIST)).split(b"\r\n")
    require(len(lines) == 32 and re.fullmatch(rb"\d+,0", lines[10]), "the list is out of order")
    print(lines[10].split(b",")[0].decode(), "games dealt")
