"""Replays the recorded calls of a deal into every state that a power cut may leave: what was not
flushed is lost, in part or whole, in any order, or has its length but zeros for content; names
change or not, whether or not their files' content has arrived. In each the list is whole, and the
next start goes on from there.

    power_cut.py DEALS_PROGRAM
"""
import itertools
import os
import re
import sys

from dealer import LIST, PLACES, Directory, deal_once, list_bytes, next_deal, print_table, record, require

program = sys.argv[1]
SECTOR = 512


class Disk:
    """Files and names of one directory: what is safe, and what has changed since."""

    def __init__(self, old):
        self.safe_names = {} if old is None else {LIST: 0}
        self.safe_content = {0: old or b""}
        self.writes = {}  # of a file, since its flush
        self.changes = []  # of names, since the directory's flush
        self.names = dict(self.safe_names)

    def create(self, name):
        file = len(self.safe_content)
        self.safe_content[file] = b""
        self.change({name: file})

    def change(self, change):
        self.changes.append(change)
        self.names = apply(self.names, change)

    def write(self, name, data):
        self.writes.setdefault(self.names[name], []).append(data)

    def flush(self, name):
        file = self.names[name]
        self.safe_content[file] += b"".join(self.writes.pop(file, []))

    def flush_names(self):
        self.safe_names, self.changes = self.names, []

    def contents(self, file):
        """What the file may hold: each byte of a write is there, or zero, or beyond the end."""
        safe, data = self.safe_content[file], b"".join(self.writes.get(file, []))
        cuts = {0, 1, len(data) - 1, len(data), *range(0, len(data), SECTOR)} if data else {0}
        ends = sorted(cut for cut in cuts if 0 <= cut <= len(data))
        for end in ends:
            yield safe + data[:end]
            yield safe + data[:end] + bytes(len(data) - end)
            yield safe + bytes(end) + data[end:]

    def after_power_cut(self):
        """Every directory that may be found, as bytes by name."""
        for count in range(len(self.changes) + 1):
            for kept in itertools.combinations(self.changes, count):
                names = self.safe_names
                for change in kept:
                    names = apply(names, change)
                for contents in itertools.product(*(self.contents(file) for file in names.values())):
                    yield dict(zip(names, contents))


def apply(names, change):
    """Names after a change; nothing in place of a file takes the name away."""
    return {name: file for name, file in {**names, **change}.items() if file is not None}


def text(escaped):
    return bytes.fromhex(escaped.replace("\\x", "")).decode("latin1")


def perform(disk, call):
    """The call's effect on the disk, if it has any."""
    if call.result.startswith("-1"):
        return
    paths = [text(path) for path in re.findall(r'["<]((?:\\x[0-9a-f]{2})+)[">]', call.arguments)]
    name = os.path.basename(paths[-1]) if paths else ""
    if call.name == "openat" and "O_CREAT" in call.arguments:
        disk.create(name)
    elif call.name == "write" and not call.arguments.startswith("1<"):
        disk.write(os.path.basename(paths[0]), paths[1].encode("latin1"))
    elif call.name == "fsync":
        disk.flush(name) if name in disk.names else disk.flush_names()
    elif call.name == "rename":
        old_name = os.path.basename(paths[0])
        disk.change({name: disk.names[old_name], old_name: None})
    elif call.name == "unlink":
        disk.change({name: None})
    else:
        require(call.name not in ("pwrite64", "writev", "ftruncate", "fdatasync", "renameat2"),
                "a call that the replay does not know:", call.name)


def replay(calls, old, without=None):
    """All states that a cut after each of the calls may leave; `without` names a flush left out:
    0 the file's, 1 the directory's. Last the states after the whole deal, apart."""
    disk, states, flushes = Disk(old), [], 0
    for call in calls:
        if call.name == "fsync":
            flushes += 1
            if flushes - 1 == without:
                continue
        perform(disk, call)
        last = list(disk.after_power_cut())
        states += last
    return states, last


def broken(states, allowed):
    return sum(state.get(LIST) not in allowed for state in states)


def goes_on(state):
    with Directory() as directory:
        for name, content in state.items():
            with open(os.path.join(directory.path, name), "wb") as file:
                file.write(content)
        _, errors = deal_once(program, directory)
        require(directory.content() == next_deal(state.get(LIST)), "the next deal is lost", state)
        require(not errors and not directory.strays(), errors, directory.strays())


rows = []
for places, dealt in [(0, None), *((places, 99) for places in PLACES)]:
    old = list_bytes(places, dealt)
    new = next_deal(old)
    with Directory(old) as directory:
        calls, deal = record(program, directory)
    states, last = replay(calls[deal:], old)
    require(broken(states, (old, new)) == 0, "a power cut breaks the list")
    require(broken(last, (new,)) == 0, "a power cut undoes a deal that was done")
    different = {tuple(sorted(state.items())) for state in states}
    for state in different:
        goes_on(dict(state))
    # The replay must see what the flushes are for.
    torn = broken(replay(calls[deal:], old, without=0)[0], (old, new))
    undone = broken(replay(calls[deal:], old, without=1)[1], (new,))
    require(torn and undone, "the replay sees no difference without a flush")
    rows.append(["no list" if old is None else f"{places} places", len(states), len(different), 0, torn, undone])
print_table(["list", "states", "different", "broken", "torn without the file's flush",
             "undone without the directory's"], rows)
