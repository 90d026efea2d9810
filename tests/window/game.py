"""The real program in a real window, on a screen of its own. A program for Windows is started in the
Wine that the surroundings name.
"""
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

TABLE, BOX = "Solvanta V1.6", "Solvanta"  # captions
WINDOWS_PROGRAM = b"Solvanta.exe"
PATIENCE = 20  # seconds that anything may take
# Places of the table, in pixels.
NEW_GAME, BEST_TIMES, HELP, QUIT, STOCK = (48, 504), (168, 504), (280, 504), (628, 504), (700, 60)


def fail(*what):
    print("FAILED:", *what, file=sys.stderr)
    sys.exit(1)


def within(seconds, condition):
    """The first true answer of `condition`, or the last one when the time is up."""
    end = time.monotonic() + seconds
    while not (answer := condition()) and time.monotonic() < end:
        time.sleep(0.005)
    return answer


def wait_for(condition, what):
    """The first true answer of `condition`; ends the test after a long wait."""
    return within(PATIENCE, condition) or fail("waited in vain for", what)


def xdotool(*words):
    done = subprocess.run(["xdotool", *map(str, words)], capture_output=True, text=True, check=False)
    return done.stdout.strip() if done.returncode == 0 else ""


def window_named(name):
    return xdotool("search", "--onlyvisible", "--name", f"^{name}$")


class Screen:
    """A virtual screen, with a window manager or without; DISPLAY names it while it is there."""

    def __init__(self, window_manager=True):
        self.window_manager = window_manager

    def __enter__(self):
        self.runtime = tempfile.TemporaryDirectory()
        os.environ["XDG_RUNTIME_DIR"] = self.runtime.name
        ours, theirs = os.pipe()
        self.log = tempfile.TemporaryFile()
        command = ["Xvfb", "-displayfd", str(theirs), "-screen", "0", "1280x960x24", "-nolisten", "tcp",
                   "-noreset"]
        self.processes = [subprocess.Popen(command, pass_fds=[theirs], stderr=self.log)]
        os.close(theirs)
        with os.fdopen(ours) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()
        if self.window_manager:
            self.processes.append(subprocess.Popen(["openbox"], stdout=self.log, stderr=self.log))
            # A window that comes while the window manager starts may never be shown.
            wait_for(lambda: xdotool("get_num_desktops"), "the window manager")
        return self

    def __exit__(self, *_):
        for process in reversed(self.processes):
            process.terminate()
            process.wait()
        self.runtime.cleanup()


class Game:
    """The program started in its window, ended at the latest with the block it is used in."""

    def __init__(self, command, **surroundings):
        environment = {**os.environ, "QT_QPA_PLATFORM": "xcb", "LC_ALL": "C.UTF-8",
                       **surroundings.pop("env", {})}
        self.errors = tempfile.TemporaryFile()
        surroundings.setdefault("stderr", self.errors)
        self.process = subprocess.Popen(command, env=environment, start_new_session=True, **surroundings)

    def __enter__(self):
        self.table = wait_for(lambda: window_named(TABLE) or not self.runs() and fail(self.said()), "the table")
        return self

    def __exit__(self, *_):
        if self.runs():
            self.kill()
        wait_for(lambda: not window_named(TABLE), "the table's end")

    def runs(self):
        return self.process.poll() is None

    def said(self):
        """What it has written to standard error."""
        self.errors.seek(0)
        return self.errors.read().decode(errors="replace")

    def click(self, place):
        xdotool("mousemove", "--window", self.table, *place, "click", 1)

    def deal(self):
        """Confirms a new game; a program that dies of it is left to the caller."""
        self.ask_for_deal()
        self.confirm_box()

    def ask_for_deal(self):
        self.click(NEW_GAME)
        wait_for(lambda: window_named(BOX), "the question")

    def confirm_box(self):
        """Presses Enter in the message box, if there is one, until it is gone: the window manager
        may be about to give the focus back to the table."""
        def gone():
            if not (box := window_named(BOX)):
                return True
            xdotool("windowfocus", box, "key", "Return")
            return within(3, lambda: not window_named(BOX))
        wait_for(gone, "the box's end")

    def kill(self):
        os.killpg(self.process.pid, signal.SIGKILL)
        self.process.wait()

    def terminate(self):
        """Ends it as a desktop that ends does; the exit status."""
        self.process.terminate()
        return self.exit_status()

    def end(self):
        """Quits by the button; the exit status."""
        xdotool("windowactivate", "--sync", self.table)
        self.click(QUIT)
        return self.exit_status()

    def exit_status(self):
        wait_for(lambda: not self.runs(), "the program's end")
        return self.process.returncode


def on_windows(program_directory):
    return os.path.exists(os.path.join(os.fsencode(program_directory), WINDOWS_PROGRAM))


def program_in(directory):
    """The command that starts the program of a directory, whose name is text or bytes."""
    directory = os.fsencode(directory)
    return (["wine", os.path.join(directory, WINDOWS_PROGRAM)] if on_windows(directory) else
            [os.path.join(directory, b"Solvanta")])


def copy_of_program(program_directory, to):
    """A program directory of its own, without a list."""
    shutil.copytree(program_directory, to)
    best_times = os.path.join(to, b"highscore.scr" if isinstance(to, bytes) else "highscore.scr")
    if os.path.exists(best_times):
        os.remove(best_times)
    return to
