"""Kills the program before each of its system calls in turn, over lists of several lengths. After
each kill the list is the old one or the new one, byte for byte, and the next start goes on from
there and leaves no stray file. So too where the list may only be written in place.

    kill_run.py DEALS_PROGRAM
"""
import os
import sys

from dealer import AS_NOBODY, PLACES, Directory, deal_once, list_bytes, next_deal, print_table, record, require

program = sys.argv[1]


def directory_of(old, wrapper):
    """For a user without rights the directory takes no new file, only the list may be written."""
    directory = Directory(old)
    if wrapper:
        os.chmod(directory.list, 0o666)
        os.chmod(directory.path, 0o555)
    return directory


def outcome_of_kill(call, old, wrapper):
    with directory_of(old, wrapper) as directory:
        answer, _ = deal_once(program, directory, [*call.inject("signal=KILL"), *wrapper])
        left = directory.content()
        require(left in (old, next_deal(old)), "neither old nor new before", call.name, call.number)
        require(not answer or left == next_deal(old), "answered, but not written:", call.name)
        stray = directory.strays()
        again, errors = deal_once(program, directory, wrapper)
        require(again and not errors, "the next start fails after", call.name, errors)
        require(directory.content() == next_deal(left), "the next deal is lost after", call.name)
        require(not directory.strays(), "stray files after", call.name, directory.strays())
        return ("old" if left == old else "new") + (" + temporary file" if stray else "")


def kill_everywhere(places, dealt, wrapper=()):
    """A kill before each of the start's calls, and of the deal's; tells what comes of them."""
    old = list_bytes(places, dealt)
    with directory_of(old, wrapper) as directory:
        calls, deal = record(program, directory, wrapper)
    start = [] if wrapper else [call for call in calls[:deal] if call.name != "execve"]
    outcomes = [(call.name, outcome_of_kill(call, old, wrapper)) for call in start + calls[deal:-1]]
    require({outcome for _, outcome in outcomes[: len(start)]} <= {"old"}, "the start changed the list")
    name = "no list" if old is None else f"{places} places" + (", in place" if wrapper else "")
    print_table(["killed before", name], [[f"{len(start)} calls of the start", "old"], *outcomes[len(start):]])
    return len(outcomes)


cases = [(0, None), *((places, 99) for places in PLACES)]
if os.getuid() == 0:
    cases.append((30, 99, AS_NOBODY))
print(sum(kill_everywhere(*case) for case in cases), "kills, each followed by a start and a deal")
