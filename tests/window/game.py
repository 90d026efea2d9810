"""The real program in a real window, with a hand on the mouse and the keys of the screen that
screen.py gives.
"""
import ctypes
import os
import shutil
import signal
import subprocess
import sys
import tempfile
from ctypes import byref, c_long, c_ulong

tests = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
sys.path += [os.path.join(tests, "durability"), os.path.join(tests, "..", "tools", "setup")]
from durability import LIST, read, require
from screen import wait_for

TABLE, BOX, HELP, BEST_TIMES = "Solvanta V1.6", "Solvanta", "Hilfe", "Highscores - Top 30"  # captions
# Places of the table, in pixels.
DESIGN = (822, 520)  # its client area
NEW_GAME, TO_BEST_TIMES, TO_HELP, QUIT, STOCK = (48, 504), (168, 504), (280, 504), (628, 504), (700, 60)
RETURN, SHIFT = 0xFF0D, 0xFFE1  # keys beyond those that are characters

EVENT, CLIENT_MESSAGE = c_long * 24, 33  # of the X server, whose numbers take 64 bits each

x11, xtest = ctypes.CDLL("libX11.so.6"), ctypes.CDLL("libXtst.so.6")
x11.XOpenDisplay.restype = ctypes.c_void_p
x11.XInternAtom.restype = x11.XDefaultRootWindow.restype = c_ulong
display = ctypes.c_void_p(x11.XOpenDisplay(None) or sys.exit("FAILED: there is no screen"))
root = c_ulong(x11.XDefaultRootWindow(display))
x11.XSelectInput(display, root, c_long(1 << 17 | 1 << 19))  # what is sent to the root, however
ignore_error = ctypes.CFUNCTYPE(ctypes.c_int, ctypes.c_void_p, ctypes.c_void_p)(lambda *_: 0)
x11.XSetErrorHandler(ignore_error)  # windows come and go


def run(*command, status=0):
    """What a command says, which must end so."""
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False)
    require(done.returncode == status, *command, "ends with", done.returncode, done.stdout.decode(errors="replace"))
    return done.stdout


def atom(name):
    return x11.XInternAtom(display, name.encode(), 0)


def send(receiver, mask, window, kind, *data):
    event = EVENT(CLIENT_MESSAGE, 0, 0, 0, window, atom(kind), 32, *data)
    x11.XSendEvent(display, c_ulong(receiver), 0, c_long(mask), byref(event))


def windows_named_by(name):
    """The windows that a property of the root names."""
    count, data, unused = c_ulong(), ctypes.POINTER(c_ulong)(), c_ulong()
    x11.XGetWindowProperty(display, root, c_ulong(atom(name)), c_long(0), c_long(99), 0, c_ulong(0), byref(unused),
                           byref(unused), byref(count), byref(unused), byref(data))
    windows = data[:count.value]
    x11.XFree(data)
    return windows


def caption_of(window):
    name = ctypes.c_char_p()
    x11.XFetchName(display, c_ulong(window), byref(name))
    return (name.value or b"").decode()


def window_named(caption, among="_NET_CLIENT_LIST"):
    return next((window for window in windows_named_by(among) if caption_of(window) == caption), None)


def attributes_of(window):
    """The fields of XWindowAttributes, in ints; zeros of a window that has gone."""
    attributes = (ctypes.c_int * 34)()
    x11.XGetWindowAttributes(display, c_ulong(window), attributes)
    return attributes


def size_of(window):
    return attributes_of(window)[2:4]


def is_viewable(window):
    return attributes_of(window)[23] == 2


def front_window(caption):
    """Waits for the window of this caption to have the focus, and the program to have taken note."""
    def in_front():
        window, focused, unused = window_named(caption, "_NET_ACTIVE_WINDOW"), c_ulong(), c_ulong()
        x11.XGetInputFocus(display, byref(focused), byref(unused))
        return window if window and is_viewable(window) and focused.value == window else None
    window = wait_for(in_front, caption)
    wait_for_answer(window)
    return window


def wait_for_end_of(caption):
    wait_for(lambda: not window_named(caption), "the end of " + caption)


def click(window, place, times=1):
    """Clicks at a place of a window, in pixels from the corner of its client area."""
    x, y, child = ctypes.c_int(), ctypes.c_int(), c_ulong()
    x11.XTranslateCoordinates(display, c_ulong(window), root, *place, byref(x), byref(y), byref(child))
    xtest.XTestFakeMotionEvent(display, -1, x, y, c_ulong(0))
    for pressed in (1, 0) * times:
        xtest.XTestFakeButtonEvent(display, 1, pressed, c_ulong(0))
    x11.XFlush(display)


def press(*keys):
    """Presses keys together."""
    for pressed, one_by_one in ((1, keys), (0, keys[::-1])):
        for key in one_by_one:
            xtest.XTestFakeKeyEvent(display, x11.XKeysymToKeycode(display, c_ulong(key)), pressed, c_ulong(0))
    x11.XFlush(display)


def wait_for_answer(window):
    """Waits until the program has taken all input there was."""
    def answered():
        event = EVENT()
        return x11.XCheckTypedEvent(display, CLIENT_MESSAGE, byref(event)) and event[7] == ping
    ping = atom("_NET_WM_PING")
    send(window, 0, window, "WM_PROTOCOLS", ping, 0, window)
    wait_for(answered, "an answer")


class Game:
    """The program started in its window, ended at the latest with the block it is used in."""

    def __init__(self, command, env=None, **surroundings):
        environment = {**os.environ, "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8", **(env or {})}
        self.errors = tempfile.TemporaryFile()
        surroundings.setdefault("stderr", self.errors)
        self.process = subprocess.Popen(command, env=environment, start_new_session=True, **surroundings)

    def __enter__(self):
        wait_for(lambda: window_named(TABLE) or not self.runs(), "the table")
        require(self.runs(), "the game ends at its start:", self.said())
        self.table = front_window(TABLE)
        return self

    def __exit__(self, failure, *_):
        if failure:
            print(self.said(), "active:", windows_named_by("_NET_ACTIVE_WINDOW"), "of", *(
                (window, caption_of(window)) for window in windows_named_by("_NET_CLIENT_LIST")), file=sys.stderr)
        if self.runs():
            self.kill()
        self.errors.close()
        wait_for_end_of(TABLE)

    def runs(self):
        return self.process.poll() is None

    def said(self):
        self.errors.seek(0)
        return self.errors.read().decode(errors="replace")

    def open(self, place, caption):
        # A window that still becomes the active one may let go of a button pressed meanwhile.
        self.to_front()
        self.click(place)
        return front_window(caption)

    def click(self, place, times=1):
        """Clicks at a place of the table's design, however large it is shown."""
        size = size_of(self.table)
        scale = min(room / length for room, length in zip(size, DESIGN))
        click(self.table, [round((room - length * scale) / 2 + at * scale)
                           for room, length, at in zip(size, DESIGN, place)], times)

    def maximise(self):
        before = size_of(self.table)
        send(root.value, 3 << 19, self.table, "_NET_WM_STATE", 1, atom("_NET_WM_STATE_MAXIMIZED_VERT"),
             atom("_NET_WM_STATE_MAXIMIZED_HORZ"))
        wait_for(lambda: size_of(self.table) != before, "the large table")
        wait_for_answer(self.table)

    def deal(self):
        self.open(NEW_GAME, BOX)
        self.confirm()

    def confirm(self):
        press(RETURN)
        wait_for_end_of(BOX)

    def kill(self):
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()

    def terminate(self, by=signal.SIGTERM):
        self.process.send_signal(by)
        return self.exit_status()

    def to_front(self):
        send(root.value, 3 << 19, self.table, "_NET_ACTIVE_WINDOW", 2)  # as a task bar asks for it
        front_window(TABLE)

    def end(self):
        self.to_front()
        self.click(QUIT)
        return self.exit_status()

    def exit_status(self):
        wait_for(lambda: not self.runs(), "the program's end")
        return self.process.returncode


def on_windows(program_directory):
    return os.path.exists(os.path.join(os.fsencode(program_directory), b"Solvanta.exe"))


def program_in(directory):
    """The command that starts the program of a directory, whose name is text or bytes."""
    directory = os.fsencode(directory)
    return (["wine", os.path.join(directory, b"Solvanta.exe")] if on_windows(directory) else
            [os.path.join(directory, b"Solvanta")])


def copy_of_program(program_directory, to):
    """A program directory of its own, without a list."""
    return shutil.copytree(program_directory, to, ignore=lambda _, names: {LIST, os.fsencode(LIST)} & set(names))
