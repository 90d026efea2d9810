"""Lets each system call of a deal's write fail in every way, then fills a real file system and takes
real permissions away. The list on disk is the old one or the new one, byte for byte; a deal that
is not safely written is told in one line; the game goes on, and the first write after the fault
writes everything.

    faults.py DEALS_PROGRAM
"""
import contextlib
import os
import resource
import subprocess
import sys

from dealer import AS_NOBODY, Dealer, Directory, list_bytes, next_deal, print_table, record, require

program = sys.argv[1]
ERRORS = ("ENOSPC", "EDQUOT", "EIO", "EROFS", "EACCES", "EPERM", "EINTR")
OLD = list_bytes(30, 99)
NEW = next_deal(OLD)
MUST_KEEP_OLD = {"openat", "write", "fsync", "close", "rename"}


def outcome_of(call, error):
    """One deal with the fault, one without it."""
    with Directory(OLD) as directory:
        dealer = Dealer(program, directory, call.inject("error=" + error))
        require(dealer.deal() == "100", "the game ends at", call.name, error)
        left = directory.content()
        require(left in (OLD, NEW), "neither old nor new after", call.name, error)
        require(dealer.deal() == "101", "the game ends after", call.name, error)
        require(directory.content() == next_deal(NEW), "the next write fails after", call.name, error)
        require(not directory.strays(), "stray files after", call.name, error)
        told = dealer.end()
        require(len(told) <= 1 and all(line.startswith("Solvanta: highscore.scr ") for line in told), told)
        require(told or left == NEW, "nothing told of", call.name, error)
        return ("old" if left == OLD else "new") + (", told" if told else "")


def injected():
    with Directory(OLD) as directory:
        calls, deal = record(program, directory)
    calls = [call for call in calls[deal:] if call.arguments[:2] not in ("0<", "1<") and
             call.name != "exit_group"]
    rows = [[call.name, *(outcome_of(call, error) for error in ERRORS)] for call in calls]
    print_table(["failing call", *ERRORS], rows)
    renamed = next(i for i, row in enumerate(rows) if row[0] == "rename")
    for row in rows[: renamed + 1]:
        lasting = row[1:4]  # no want of permission, no interruption
        require(row[0] not in MUST_KEEP_OLD or set(lasting) == {"old, told"}, row)
    return len(rows) * len(ERRORS)


def short_write():
    """A write that takes 100 bytes and then fails: the list may not grow beyond them."""
    with Directory(OLD) as directory:
        dealer = Dealer(program, directory)
        soft, hard = resource.prlimit(dealer.process.pid, resource.RLIMIT_FSIZE)
        resource.prlimit(dealer.process.pid, resource.RLIMIT_FSIZE, (100, hard))
        require(dealer.deal() == "100" and directory.content() == OLD, "a short write")
        resource.prlimit(dealer.process.pid, resource.RLIMIT_FSIZE, (soft, hard))
        require(dealer.deal() == "101" and directory.content() == next_deal(NEW), "after a short write")
        require(len(dealer.end()) == 1, "a short write is told once")


def full_file_system():
    """A file system with room for a part of the list, then with none, then with enough."""
    old = list_bytes(30, 99, "x" * 250)
    with Directory() as mounted:
        mount = ["mount", "-t", "tmpfs", "-o", "size=32k", "tmpfs", mounted.path]
        if os.getuid() != 0 or subprocess.run(mount, stderr=subprocess.DEVNULL).returncode != 0:
            return "not tried: no file system can be mounted here"
        try:
            with Directory(old, within=mounted.path) as directory:
                dealer = Dealer(program, directory)
                filler = open(os.path.join(mounted.path, "filler"), "wb", buffering=0)
                for room in (4096, 0):
                    with contextlib.suppress(OSError):
                        while filler.write(bytes(4096)) == 4096:
                            pass
                    filler.truncate(max(0, filler.tell() - room))
                    filler.seek(0, os.SEEK_END)
                    require(dealer.deal() and directory.content() == old, "full, room for", room)
                    require(not directory.strays(), "full, stray files", directory.strays())
                filler.truncate(0)
                require(dealer.deal() == "102", "full, then not")
                require(directory.content() == next_deal(next_deal(next_deal(old))), "full, then not")
                require(len(dealer.end()) == 2, "each of two failures is told once")
                filler.close()
        finally:
            subprocess.run(["umount", mounted.path], check=True)
    return "old twice, then new"


def without_permission():
    """What an unprivileged user finds, and what must come of it."""
    if os.getuid() != 0:
        return [["permissions", "not tried: only root can take them away"]]
    cases = [  # what, mode of the directory, mode of the list (nothing: there is none), outcome
        ("directory and list read-only", 0o555, 0o444, "old, told"),
        ("directory read-only, list writable", 0o555, 0o666, "new, in place"),
        ("directory read-only, no list", 0o555, None, "old, told"),
        ("directory shared, list writable", 0o1777, 0o666, "new, in place"),
        ("directory shared, list read-only", 0o1777, 0o444, "old, told"),
        ("directory writable, list unreadable", 0o777, 0o000, "old, told"),
        ("directory read-only, list write-only", 0o555, 0o222, "old, told"),
    ]
    return [[case[0], outcome_without_permission(*case)] for case in cases]


def outcome_without_permission(what, directory_mode, list_mode, expected):
    old = None if list_mode is None else OLD
    with Directory(old) as directory:
        if old:
            os.chmod(directory.list, list_mode)
        os.chmod(directory.path, directory_mode)
        inode = os.stat(directory.list).st_ino if old else None
        dealer = Dealer(program, directory, AS_NOBODY)
        require(dealer.deal(), what, "ends the game")
        left = directory.content()
        same = old and os.stat(directory.list).st_ino == inode
        os.chmod(directory.path, 0o777)
        require(dealer.deal(), what, "ends the game")
        again = directory.content()
        told = dealer.end()
        outcome = "old, told" if left == old and told else "new, in place" if left == NEW and same else "?"
        require(outcome == expected, what, outcome, told)
        require(not directory.strays(), what, directory.strays())
        # What could not be read stays as it is, whatever is allowed later.
        readable = list_mode is None or list_mode & 0o444
        require(again == (next_deal(next_deal(old)) if readable else old), what, "next write")
        return outcome


count = injected()
print(count, "failing calls, each followed by a deal that must be written")
short_write()
print_table(["on the real file system", ""], [["short write", "old, told, then new"],
                                             ["full", full_file_system()], *without_permission()])
