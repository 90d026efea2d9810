"""Kills the program before each of its system calls in turn, over lists of several lengths. After
each kill the list is the old one or the new one, byte for byte, and the next start goes on from
there and leaves no stray file.

    kill_run.py DEALS_PROGRAM
"""
import sys

from dealer import PLACES, Directory, deal_once, list_bytes, next_deal, print_table, record, require

program = sys.argv[1]


def outcome_of_kill(call, old):
    with Directory(old) as directory:
        answer, _ = deal_once(program, directory, call.inject("signal=KILL"))
        left = directory.content()
        require(left in (old, next_deal(old)), "neither old nor new before", call.name, call.number)
        require(not answer or left == next_deal(old), "answered, but not written:", call.name)
        stray = directory.strays()
        again, errors = deal_once(program, directory)
        require(again and not errors, "the next start fails after", call.name, errors)
        require(directory.content() == next_deal(left), "the next deal is lost after", call.name)
        require(not directory.strays(), "stray files after", call.name, directory.strays())
        return ("old" if left == old else "new") + (" + temporary file" if stray else "")


def kill_everywhere(old):
    """What comes of a kill before each of the start's calls, and of the deal's, by their names."""
    with Directory(old) as directory:
        calls, deal = record(program, directory)
    outcomes = [(call.name, outcome_of_kill(call, old)) for call in calls[1:deal]]
    require({outcome for _, outcome in outcomes} == {"old"}, "the start changed the list")
    return len(outcomes), [(call.name, outcome_of_kill(call, old)) for call in calls[deal:-1]]


def column(outcomes, names):
    """The outcomes beside the names, some of which they may lack."""
    rest = list(outcomes)
    return [rest.pop(0)[1] if rest and rest[0][0] == name else "-" for name in names]


lists = [list_bytes(0, None), *(list_bytes(places, 99) for places in PLACES)]
starts, deals = zip(*(kill_everywhere(old) for old in lists))
names = [name for name, _ in max(deals, key=len)]
rows = zip(names, *(column(outcomes, names) for outcomes in deals))
print_table(["killed before", "no list", *(f"{places} places" for places in PLACES)],
            [["the start's calls", *(f"old, {count} times" for count in starts)], *rows])
kills = sum(starts) + sum(len(outcomes) for outcomes in deals)
print(kills, "kills, each followed by a start and a deal")
