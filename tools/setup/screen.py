#!/usr/bin/env python3
"""Runs a command on a screen of its own, with a window manager, and answers with its status.

    screen.py [--bare] [--size WIDTHxHEIGHT] [--windows FOLDER] [--dpi DOTS] COMMAND...

--bare leaves the window manager out. --windows gives a Windows of the command's own too: a Wine in
German, at so many dots per inch, whose unchanging part is made in FOLDER by the first that asks. With
--bare it keeps its windows to itself, as Windows does: a window manager minimises and brings forward at
a time of its own, and what was asked for meanwhile may be undone.
However the command or this program ends, all that was started here ends too.
"""
import argparse
import contextlib
import ctypes
import fcntl
import os
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE = 20  # seconds that anything may take
PREPARING = 300  # seconds for what is done once
QUIET = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
# No bindings, so that the window manager does not come between a click and its window.
OPENBOX = '<openbox_config xmlns="http://openbox.org/3.4/rc"><mouse/></openbox_config>'
SETTINGS = """
[Control Panel\\\\Desktop]
"LogPixels"=dword:{:08x}
[Software\\\\Wine\\\\X11 Driver]
"Managed"="{}"
"""


def wait_for(condition, what):
    """The first true answer of `condition`; ends the program after a long wait."""
    end = time.monotonic() + PATIENCE
    while not (answer := condition()):
        if time.monotonic() > end:
            sys.exit(f"FAILED: waited in vain for {what}")
        time.sleep(0.002)
    return answer


def end_with_parent(by=signal.SIGKILL):
    """Has this process ended when the one that started it ends."""
    ctypes.CDLL(None).prctl(1, int(by))


@contextlib.contextmanager
def running(*command, **options):
    """A process that ends with the block at the latest."""
    with subprocess.Popen(command, preexec_fn=end_with_parent, **options) as process:
        try:
            yield process
        finally:
            process.terminate()


@contextlib.contextmanager
def screen(work, size):
    """A virtual screen, named by DISPLAY; what it shows stands in the file named by FRAMEBUFFER."""
    ours, theirs = os.pipe()
    with running("Xvfb", "-displayfd", str(theirs), "-screen", "0", size + "x24", "-fbdir", work, "-nolisten",
                 "tcp", "-noreset", pass_fds=[theirs], stderr=subprocess.DEVNULL):
        os.close(theirs)
        with os.fdopen(ours) as number:
            os.environ["DISPLAY"] = ":" + number.readline().strip()
        os.environ.update(XDG_RUNTIME_DIR=work, FRAMEBUFFER=os.path.join(work, "Xvfb_screen0"))
        # With umlauts on the keys none has to be put there while typing.
        subprocess.run(["setxkbmap", "de"], check=True, **QUIET)
        yield


@contextlib.contextmanager
def window_manager(work):
    settings = os.path.join(work, "openbox.xml")
    with open(settings, "w", encoding="ascii") as file:
        file.write(OPENBOX)
    started = os.path.join(work, "openbox")
    # A window that comes while the window manager starts may never be shown.
    with running("openbox", "--config-file", settings, "--startup", "touch " + shlex.quote(started), **QUIET):
        wait_for(lambda: os.path.exists(started), "the window manager")
        yield


def prepare_windows(folder):
    """Makes the Windows that each one is a copy of, and the locale that the system may lack."""
    with open(os.path.join(folder, "lock"), "w", encoding="ascii") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        if os.path.exists(ready := os.path.join(folder, "ready")):
            return
        os.environ["WINEPREFIX"] = os.path.join(folder, "prefix")
        os.makedirs(os.environ["LOCPATH"], exist_ok=True)
        for command in (["localedef", "-i", "de_DE", "-f", "UTF-8", os.environ["LOCPATH"] + "/de_DE.UTF-8"],
                        ["wineboot", "--init"], ["wineserver", "--wait"]):
            subprocess.run(command, check=True, timeout=PREPARING, **QUIET)
        open(ready, "x", encoding="ascii").close()


@contextlib.contextmanager
def windows(folder, work, dpi, managed):
    """A Windows with a registry of its own, and the files of the one in the folder."""
    os.makedirs(folder, exist_ok=True)
    os.environ.update(WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree=;mshtml=", LC_ALL="de_DE.UTF-8",
                      LOCPATH=os.path.join(folder, "locale"))
    prepare_windows(folder)
    own = os.path.join(work, "prefix")
    shutil.copytree(os.path.join(folder, "prefix"), own, symlinks=True, ignore=lambda *_: ["drive_c"])
    os.symlink(os.path.join(folder, "prefix", "drive_c"), os.path.join(own, "drive_c"))
    with open(os.path.join(own, "user.reg"), "a", encoding="ascii") as registry:
        registry.write(SETTINGS.format(dpi, "Y" if managed else "N"))
    os.environ["WINEPREFIX"] = own
    # What Windows runs besides lives as long as any program does. Started anew by each it would take
    # long, hold on to that one's output, and live by a clock set for it.
    with running("wine", "cmd", stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL) as shell:
        shell.stdout.readline()  # its greeting
        try:
            yield
        finally:
            subprocess.run(["wineserver", "--kill"], timeout=PATIENCE, check=False, **QUIET)


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--bare", action="store_true")
    arguments.add_argument("--size", default="1280x1024")
    arguments.add_argument("--windows", type=os.path.abspath)
    arguments.add_argument("--dpi", type=int, default=96)
    arguments.add_argument("command", nargs=argparse.REMAINDER)
    wanted = arguments.parse_args()
    end_with_parent(signal.SIGTERM)
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    with contextlib.ExitStack() as stack:
        work = stack.enter_context(tempfile.TemporaryDirectory())
        stack.enter_context(screen(work, wanted.size))
        if not wanted.bare:
            stack.enter_context(window_manager(work))
        if wanted.windows:
            stack.enter_context(windows(wanted.windows, work, wanted.dpi, not wanted.bare))
        process = stack.enter_context(running(*wanted.command))
        sys.exit(process.wait())


if __name__ == "__main__":
    main()
