"""Starts the real game again from the directory in which one is playing: one goes on, in front, and
every later start ends in order and without a word. ROUNDS is how often several are started at once.

    screen.py one_game.py PROGRAM_DIRECTORY [ROUNDS]
"""
import os
import sys
import tempfile

from game import (BOX, HELP, NEW_GAME, QUIT, TABLE, TO_HELP, Game, copy_of_program, front_window, is_viewable,
                  on_windows, program_in, require, root, send, wait_for, wait_for_answer, window_named,
                  windows_named_by)


def wait_in_front(caption):
    """Wine raises the window that a program brings forward, but leaves the screen's keys to another."""
    if not on_windows(sys.argv[1]):
        return front_window(caption)
    return wait_for(lambda: windows_named_by("_NET_CLIENT_LIST_STACKING")[-1:] == [window_named(caption)] and
                    is_viewable(window_named(caption)), caption)


def wait_until_gone(window):
    wait_for(lambda: window not in windows_named_by("_NET_CLIENT_LIST"), "the end of a window")


def start_again(command, caption):
    """A later start, which brings the window of this caption forward."""
    later = Game(command)
    require((later.exit_status(), later.said()) == (0, ""), "a later start ends with", later.said())
    wait_in_front(caption)


def minimise(game):
    send(root.value, 3 << 19, game.table, "WM_CHANGE_STATE", 3)  # to an icon
    wait_for(lambda: not is_viewable(game.table), "the icon")
    wait_for_answer(game.table)


def play(command, elsewhere, by_link):
    with Game(command) as game:
        game.open(TO_HELP, HELP)
        wait_in_front(HELP)
        start_again(by_link, TABLE)
        game.open(NEW_GAME, BOX)
        if not on_windows(sys.argv[1]):  # a desktop can't do this to Wine
            minimise(game)
        start_again(command, BOX)
        game.confirm()
        minimise(game)
        start_again(command, TABLE)
        other = Game(elsewhere)  # another directory is another game
        wait_for(lambda: front_window(TABLE) != game.table, "the game of another directory")
        its_table = front_window(TABLE)
        other.kill()
        wait_until_gone(its_table)
        game.to_front()
        game.click(QUIT)
        wait_until_gone(game.table)  # or the later start would take the mouse away from a button still held
        successor = Game(command)  # started while the other ends
        require(game.exit_status() == 0, "the end is not in order")
        with successor:
            successor.kill()


def race(command):
    games = [Game(command) for _ in range(3)]
    wait_for(lambda: sum(game.runs() for game in games) <= 1, "the end of all games but one")
    playing = [game for game in games if game.runs()]
    require(len(playing) == 1 and not any(game.process.poll() for game in games), "no game is left, or one failed")
    with playing[0] as game:
        start_again(command, TABLE)


with tempfile.TemporaryDirectory() as work:
    directories = [copy_of_program(sys.argv[1], os.path.join(work, name)) for name in ("Solvanta", "Zweites")]
    os.symlink(directories[0], link := os.path.join(work, "Verweis"))
    play(*map(program_in, [*directories, link]))
    for _ in range(int(sys.argv[2]) if len(sys.argv) > 2 else 5):
        race(program_in(directories[0]))
