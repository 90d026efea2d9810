"""Measures what benchmarks/run has built and prints one table; with --write puts it into
docs/performance.md. Each program is measured in turn with what it is compared to; figures are
medians, their spread is the distance between the quartiles in percent of the median.
"""
import collections
import json
import os
import platform
import re
import resource
import shutil
import statistics
import subprocess
import sys
import time

ROUNDS = 15
RELEASE = os.path.abspath("build/release")
TOOLS = RELEASE + "/benchmarks"
WINDOWS = os.path.abspath("build/windows")
DOCUMENT = "docs/performance.md"
MARKS = "<!-- measured by benchmarks/run -->\n", "<!-- end -->\n"

# How much of what is measured, seconds, milliseconds, nanoseconds, kilobytes or bytes, makes up a unit
# shown.
UNITS = {"s": 1, "ms": 1, "µs": 1000, "MB": 1024, "kB": 1000, "million": 1e6}

Figure = collections.namedtuple("Figure", "value spread")
rows = []


def figure(values):
    middle = statistics.median(values)
    low, _, high = statistics.quantiles(values, n=4)
    return Figure(middle, 100 * (high - low) / middle if middle else 0)


def compare(what, unit, bare, program, aim, ratio=None):
    """A row for two figures whose ratio is to be at most `aim`, shown in a unit such as "ms". Where
    the ratio of each round is known, its figure is given."""
    def shown(measured):
        return f"{measured.value / UNITS[unit]:,.1f} {unit}"
    ratio = ratio or Figure(program.value / bare.value, max(bare.spread, program.spread))
    add(what, shown(bare), shown(program), f"{ratio.value:.2f}", f"≤ {aim}", ratio.value <= aim, ratio.spread)


def state(what, text, spread=0, aim="", reached=None):
    """A row for a figure that is compared to nothing. It has an aim where that holds on any machine."""
    add(what, "", text, "", aim, reached, spread)


def add(what, bare, program, ratio, aim, reached, spread):
    answer = {True: "yes", False: "no", None: ""}[reached]
    rows.append((what, bare, program, ratio, aim, answer, f"{spread:.0f} %"))
    print(*(cell for cell in rows[-1] if cell), sep=" | ", file=sys.stderr)


def output(*command, **options):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL,
                          text=True, timeout=500, **options).stdout


def google(program, pattern, rounds=ROUNDS, seconds=0.1):
    """The runs of the benchmarks that match, by name, each a dictionary of its figures."""
    report = output(program, "--benchmark_filter=" + pattern, f"--benchmark_repetitions={rounds}",
                    f"--benchmark_min_time={seconds}", "--benchmark_format=json",
                    "--benchmark_enable_random_interleaving=true", cwd=TOOLS)
    runs = collections.defaultdict(lambda: collections.defaultdict(list))
    for run in json.loads(report)["benchmarks"]:
        if run["run_type"] != "iteration":
            continue
        for key, value in run.items():
            if isinstance(value, (int, float)):
                runs[run["run_name"]][key].append(value)
    return {name: {key: figure(values) for key, values in figures.items()}
            for name, figures in runs.items()}


def rules():
    runs = google(TOOLS + "/rules_benchmark", "Rules|Shuffle|Deal|WholeProgram")
    clicks = runs["Rules"]["items_per_second"]
    state("rules alone", f"{clicks.value / 1e6:,.0f} million clicks/s", clicks.spread)
    allocations = runs["Rules"]["allocations"].value
    state("heap allocations in these clicks", f"{allocations:.0f}", 0, "0", allocations == 0)
    events = runs["WholeProgram"]["items_per_second"]
    state("whole program without windows", f"{events.value / 1e3:,.0f} thousand clicks/s", events.spread)
    compare("a deal against a bare shuffle", "µs", runs["BareShuffle"]["cpu_time"],
            runs["Deal"]["cpu_time"], 3)


def growth():
    runs = google(TOOLS + "/rules_benchmark", "AfterGames", rounds=5)
    first, last = (runs[f"AfterGames/{games}/iterations:100"] for games in (1, 10000))
    compare("1000 clicks in game 10,000 against the first", "µs", first["cpu_time"],
            last["cpu_time"], 1.1)
    compare("memory held after 10,000 games against one", "kB", first["bytes"], last["bytes"],
            1.01)


def writing():
    runs = google(TOOLS + "/rules_benchmark", "Write", seconds=0.2)
    compare("writing the best times against the bare calls", "µs",
            runs["BareWrite/real_time"]["real_time"], runs["BestTimesWrite/real_time"]["real_time"],
            1.1)


def refresh():
    table = TOOLS + "/table"
    shutil.rmtree(table, ignore_errors=True)
    shutil.copytree(RELEASE + "/Solvanta", table)
    shutil.copy(TOOLS + "/refresh_benchmark", table)
    runs = google(table + "/refresh_benchmark", ".")
    for pictures in (20, 60):
        compare(f"refresh of {pictures} pictures against bare reading", "µs",
                runs[f"BareRead/{pictures}"]["cpu_time"], runs[f"Refresh/{pictures}"]["cpu_time"],
                3)
    times = {count: runs[f"Refresh/{count}"]["cpu_time"] for count in (20, 40, 60)}
    line = Figure((times[20].value + times[60].value) / 2, times[20].spread)
    compare("refresh of 40 against the middle of 20 and 60", "µs", line, times[40], 1.1)
    designed, large = (runs[f"Select/60/{size}"] for size in ("822/520", "3840/2160"))
    compare("a column selected at 3840 by 2160 against the designed size", "µs", designed["cpu_time"],
            large["cpu_time"], 2.5)
    state("peak of memory there", f"{large['megabytes'].value:.0f} MB")
    drag = runs["Drag/60"]["cpu_time"]
    rate = 1e9 / drag.value
    state("pictures a second while an edge is dragged at 1920 by 1080", f"{rate:.0f}", drag.spread, "≥ 30", rate >= 30)


def watch(what, *command):
    return [[float(word) for word in line.split()]
            for line in output(TOOLS + "/screen_watch", what, *command).splitlines()]


def starts(commands, rounds):
    """For each command the milliseconds to the first painted pixel and the peak of kilobytes."""
    seen = [[] for _ in commands]
    for command in commands:
        watch("start", *command)  # from here on the files are in memory
    for _ in range(rounds):
        for command, values in zip(commands, seen):
            values += watch("start", *command)
    return [[figure(values) for values in zip(*value)] for value in seen]


def instructions(command):
    log = TOOLS + "/callgrind.log"
    watch("start", "valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null",
          "--log-file=" + log, *command)
    with open(log, encoding="utf-8") as file:
        # A helper process that the toolkit starts has a count of its own.
        return Figure(max(int(count) for count in re.findall(r"Collected : (\d+)", file.read())), 0)


def start():
    empty, word = [TOOLS + "/empty_window"], [TOOLS + "/empty_window", "word"]
    program = [RELEASE + "/Solvanta/Solvanta"]
    names = "an empty window", "a window with one word"
    shown = starts([empty, word, program], ROUNDS)
    for name, bare in zip(names, shown):
        compare("start to first paint against " + name, "ms", bare[0], shown[2][0], 1.15)
    counts = [instructions(command) for command in (empty, word, program)]
    for name, bare in zip(names, counts):
        compare("instructions of a start against " + name, "million", bare, counts[2], 1.5)
    for name, bare in zip(names, shown):
        compare("peak of memory against " + name, "MB", bare[1], shown[2][1], 1.15)


def processor_time(*command):
    """The milliseconds of processor time that a program takes until it has long been painted."""
    before = resource.getrusage(resource.RUSAGE_CHILDREN)
    with subprocess.Popen(command, stderr=subprocess.DEVNULL) as program:
        time.sleep(0.8)
        program.terminate()
    after = resource.getrusage(resource.RUSAGE_CHILDREN)
    return 1000 * (after.ru_utime + after.ru_stime - before.ru_utime - before.ru_stime)


def start_in_wine():
    # The program and the server that it asks for everything share one processor: which of two each
    # would get is chance, and makes up to a third of the time.
    free = os.sched_getaffinity(0)
    for process in ["0", *output("pgrep", "wineserver").split()]:
        os.sched_setaffinity(int(process), {max(free)})
    # Both begin where the program is: libraries are looked for among all the files there.
    bare = shutil.copy(WINDOWS + "/benchmarks/empty_window.exe", WINDOWS + "/Solvanta")
    times = [[statistics.mean(values) for values in zip(*(
        (processor_time("wine", bare, "word"), processor_time("wine", WINDOWS + "/Solvanta/Solvanta.exe"))
        for _ in range(4)))] for _ in range(ROUNDS)]
    os.remove(bare)
    os.sched_setaffinity(0, free)
    compare("Windows under Wine: processor time of a start against a window with one word", "ms",
            *map(figure, zip(*times)), 1.3, figure([program / word for word, program in times]))


def clicks():
    bare, program = (figure([time for time, in watch(*command)]) for command in (
        ("bare_clicks", TOOLS + "/empty_window", "blink"), ("clicks", RELEASE + "/Solvanta/Solvanta")))
    compare("click to painted pixels on the screen against a window in one colour", "ms", bare, program, 1.5)


def page():
    seen = json.loads(output("node", "build/web/benchmarks/page.mjs"))
    for ratio, (size, requests) in enumerate(seen["loads"], 1):
        aim = 450 if ratio == 1 else 600
        state(f"page: first load at ratio {ratio}", f"{size / 1000:,.0f} KB in {requests} requests", 0,
              f"≤ {aim} KB", size <= 1000 * aim)
    compare("page: time to table against an empty program", "ms", figure(seen["times"]["bare"]),
            figure(seen["times"]["page"]), 1.3)
    middle, late = (statistics.quantiles(seen["clicks"], n=20)[place] for place in (9, 18))
    state("page: click to paint, median and 95 %", f"{middle:.0f} ms, {late:.0f} ms")
    first, last = (Figure(size / 1024, 0) for size in seen["memory"])
    compare("page: memory after 100 games against one", "MB", first, last, 1.05)


def sizes():
    stripped = TOOLS + "/stripped"
    output("strip", "-o", stripped, RELEASE + "/Solvanta/Solvanta")
    for system, file, aim in (("Linux", stripped, 300),
                              ("Windows", WINDOWS + "/Solvanta/Solvanta.exe", 600)):
        size = os.path.getsize(file) / 1024
        state(f"stripped program, {system}", f"{size:,.0f} KB", 0, f"≤ {aim} KB", size <= aim)


def seconds_of(*command):
    begin = time.monotonic()
    output(*command)
    return time.monotonic() - begin


def building():
    folder = os.path.abspath("build/timed")
    shutil.rmtree(folder, ignore_errors=True)
    output("cmake", "--preset", "release", "-B", folder)
    clean = seconds_of("cmake", "--build", folder, "--parallel", "2")
    os.utime("core/moves.cpp")
    again = seconds_of("cmake", "--build", folder, "--parallel", "2")
    compare("build after a change in core against a clean one with all tests", "s", Figure(clean, 0),
            Figure(again, 0), 0.2)
    shutil.rmtree(folder)


def tests():
    report = output("ctest", "--preset", "release")
    times = re.findall(r": (\S+) \.+ +Passed +([\d.]+) sec", report)
    name, longest = max(times, key=lambda test: float(test[1]))
    state(f"longest test ({name})", f"{float(longest):.0f} s")


def machine():
    def first(file, pattern):
        with open(file, encoding="utf-8") as lines:
            return re.search(pattern, lines.read()).group(1)
    return (f"{os.cpu_count()} cores ({first('/proc/cpuinfo', 'model name.*: (.*)')}), "
            f"{int(first('/proc/meminfo', 'MemTotal: *([0-9]+)')) / 2**20:.0f} GB, "
            f"{first('/etc/os-release', 'PRETTY_NAME=.(.*).')}, Linux {platform.release().split('-')[0]}, "
            f"{time.strftime('%B %Y')}")


def table():
    head = ["", "bare", "Solvanta", "ratio", "aim", "reached", "spread"]
    lines = [head, ["---"] * len(head), *rows]
    return "".join("| " + " | ".join(cells) + " |\n" for cells in lines)


def write(measured):
    with open(DOCUMENT, encoding="utf-8") as file:
        before, rest = file.read().split(MARKS[0])
    after = rest.split(MARKS[1])[1]
    with open(DOCUMENT, "w", encoding="utf-8") as file:
        file.write(before + MARKS[0] + "\n" + measured + "\n" + MARKS[1] + after)


def main():
    for variable, value in (("QT_QPA_PLATFORM", "xcb"), ("LC_ALL", "de_DE.UTF-8")):
        os.environ[variable] = value
    for measure in (start, start_in_wine, refresh, clicks, rules, growth, writing, page, sizes, building,
                    tests):
        measure()
    measured = machine() + "\n\n" + table()
    print(measured, end="")
    if "--write" in sys.argv[1:]:
        write(measured)


main()
