"""Clicks all over the real window at full speed, deals now and then, and watches the memory.

    soak.py PROGRAM_DIRECTORY [CLICKS]

The program may be built under AddressSanitizer: then LeakSanitizer has nothing to report.

Prints the program's memory as it goes. It may not grow by more than a tenth after the first
thousand clicks, and the list is in order at the end.
"""
import ctypes
import os
import random
import re
import sys
import tempfile
import time

from game import STOCK, Game, Screen, copy_of_program, fail, wait_for, xdotool

WIDTH, HEIGHT = 822, 490  # of the table above its row of buttons
FIRST, BATCH, GAME = 1000, 20, 500  # clicks
SANITIZERS = {  # what is freed is not kept for long, and libraries may leak
    "ASAN_OPTIONS": "quarantine_size_mb=1",
    "LSAN_OPTIONS": "print_suppressions=0:suppressions="
                    + os.path.join(os.path.dirname(os.path.abspath(__file__)), "leaks.txt"),
}
clicks = int(sys.argv[2]) if len(sys.argv) > 2 else 100_000


class ClientMessage(ctypes.Structure):
    """An event of the X server, as long as the longest."""
    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("sent", ctypes.c_int),
                ("display", ctypes.c_void_p), ("window", ctypes.c_ulong), ("kind", ctypes.c_ulong),
                ("format", ctypes.c_int), ("data", ctypes.c_long * 17)]


class Mouse:
    """The server's own mouse above one window."""

    def __init__(self, window):
        self.x11, self.test = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = self.x11.XInternAtom.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        self.protocols, self.ping = (self.x11.XInternAtom(self.display, name, 0)
                                     for name in (b"WM_PROTOCOLS", b"_NET_WM_PING"))
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.x11.XSelectInput(self.display, root, ctypes.c_long(1 << 17))  # what is sent to the root
        place = dict(line.split("=") for line in xdotool("getwindowgeometry", "--shell", window).splitlines())
        self.window, self.corner = int(window), (int(place["X"]), int(place["Y"]))

    def click(self, x, y):
        self.test.XTestFakeMotionEvent(self.display, -1, self.corner[0] + x, self.corner[1] + y, 0)
        for pressed in (1, 0):
            self.test.XTestFakeButtonEvent(self.display, 1, pressed, 0)

    def wait_for_answer(self):
        """Waits until the program has taken all there was: a queue of clicks would be memory too."""
        ping = ClientMessage(33, 0, 0, None, self.window, self.protocols, 32, (self.ping, 0, self.window))
        self.x11.XSendEvent(self.display, ctypes.c_ulong(self.window), 0, ctypes.c_long(0), ctypes.byref(ping))
        wait_for(self.answered, "an answer")

    def answered(self):
        event = ClientMessage()
        while self.x11.XPending(self.display):
            self.x11.XNextEvent(self.display, ctypes.byref(event))
            if event.type == 33 and event.kind == self.protocols and event.data[0] == self.ping:
                return True
        return False


def memory(process):
    """What the program takes of the machine, and how much of it is no file's, in kB."""
    with open(f"/proc/{process.pid}/status", encoding="ascii") as status:
        text = status.read()
    return [int(re.search(rf"{kind}:\s+(\d+)", text)[1]) for kind in ("VmRSS", "RssAnon")]


def soak(game):
    mouse = Mouse(game.table)
    chance = random.Random(1)
    at_first = None
    game.deal()
    at = STOCK
    for click in range(1, clicks + 1):
        kind = chance.random()
        if kind > 0.3:  # else once more where it is
            at = STOCK if kind > 0.9 else (chance.randrange(WIDTH), chance.randrange(HEIGHT))
        mouse.click(*at)
        if click % BATCH == 0:
            mouse.wait_for_answer()
        if click % GAME == 0:  # before the stock refuses
            game.deal()
        if click == FIRST:
            at_first = memory(game.process)[0]
        if click == FIRST or click % (clicks // 10) == 0:
            if not game.runs():
                fail("the game ended:", game.said())
            whole, own = memory(game.process)
            print(f"{click:7} clicks  {whole:6} kB, its own {own:5} kB", flush=True)
    grown = whole / at_first
    if grown > 1.1:
        fail(f"memory grew to {grown:.2f} of what it was after {FIRST} clicks")


# A window manager would lose clicks that come so fast.
with tempfile.TemporaryDirectory() as work, Screen(window_manager=False):
    program = copy_of_program(sys.argv[1], os.path.join(work, "Solvanta"))
    started = time.monotonic()
    with Game([os.path.join(program, "Solvanta")], env=SANITIZERS) as game:
        soak(game)
        print(f"{time.monotonic() - started:.0f} s")
        game.process.terminate()  # in order, whatever box is open
        if game.process.wait(20) != 0 or game.said():
            fail("the end is not in order:", game.said())
    with open(os.path.join(program, "highscore.scr"), "rb") as file:
        lines = file.read().split(b"\r\n")
    if len(lines) != 32 or not re.fullmatch(rb"\d+,0", lines[10]):
        fail("the list is out of order")
    print(lines[10].split(b",")[0].decode(), "games dealt")
