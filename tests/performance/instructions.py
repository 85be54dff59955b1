#!/usr/bin/env python3
"""Counts instructions of the engine's work, and of the tool's, and holds them to
recorded figures.

Instructions, not time: a count is the same on a busy machine. It stays the same
on another machine as well once the C library is kept from choosing its string
routines by the processor, which GLIBC_TUNABLES does here.

  instructions.py check   PROGRAM FIGURES [--only WORK]
  instructions.py linear  PROGRAM
  instructions.py record  PROGRAM FIGURES --reason TEXT

PROGRAM is counted_work of an optimized build, with the tool beside it: the works
that tool_work.py knows are lines of that, counted from start to end. VALGRIND in
the environment names another valgrind than the one of the PATH. Exit status:
0 held, 1 a figure was exceeded, 2 nothing could be counted.
"""

import argparse
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import tool_work

TOLERANCE = 0.03

# What holds whatever is recorded: the example command of two chain devices; all
# processors of a large board, with nothing to save; 0.3 million a command.
MOST = {"read 2": 10000, "set-all-again 1000": 1500000000, "check 1000": 300000000}

# What the C library may not use, so that every processor runs the routines that
# all have.
NOT_USED = ("AVX", "AVX2", "AVX512F", "AVX512VL", "AVX512BW", "BMI2", "ERMS",
            "FSRM", "RTM", "SSSE3", "SSE4_1", "SSE4_2",
            "AVX_Fast_Unaligned_Load", "Fast_Unaligned_Copy")
PINNED = "glibc.cpu.hwcaps=" + ",".join("-" + name for name in NOT_USED)
CHOSEN_ROUTINE = re.compile(
    r"\b__(?:mem|str|wcs|wmem)\w+?_(?:avx|evex|ssse3|sse4|\w*erms)\w*")

# Reading ten times the devices takes at most ten times the instructions.
LONGER = (20, 200)
LONGER_FACTOR = 10
# Setting or synchronizing all of ten times the processors, a little more.
MORE_PROCESSORS = (100, 1000)
MORE_PROCESSORS_FACTOR = 10.5
# What may be added to each unit of work that grows from one size to the other:
# to a byte of text, to a processor. The heap takes longer to find room among
# more records.
MUCH_LONGER = (200, 20000)
GROWTH = {"read": 1.05, "write": 1.05, "discover": 1.10, "look-up": 1.05}
# What instructions do not show: how much more often a unit of work waits for memory,
# where there is too much for the caches. They are played, and so the same on every
# machine. Names that are looked up in records, which lie far apart, make it 1.56.
CACHES = ["--cache-sim=yes", "--I1=32768,8,64", "--D1=32768,8,64", "--LL=2097152,16,64"]
MISSES = {"discover": 1.3}
MISSES_SIZES = (2_000, 20_000)


class CannotCount(Exception):
    pass


def events(program, work, *options):
    """What callgrind counts of one piece of work, such as "read 2": numbers by their names."""
    valgrind = shutil.which(os.environ.get("VALGRIND", "valgrind"))
    if valgrind is None:
        raise CannotCount("valgrind was not found: nothing can be counted")
    environment = dict(os.environ, LD_BIND_NOW="1", GLIBC_TUNABLES=PINNED)
    name, size = work.split()
    region, line = ["--toggle-collect=countedRegion"], [name, size]
    program = program.resolve()
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        profile = folder / "profile"
        if name in tool_work.WORKS:
            program = program.with_name("zeldebug")
            region, line = [], tool_work.WORKS[name](program, folder, int(size))
        run = subprocess.run(
            [valgrind, "--tool=callgrind", f"--callgrind-out-file={profile}", *options, *region, program, *line],
            cwd=folder, env=environment, capture_output=True, text=True, check=False)
        if run.returncode != 0:
            raise CannotCount(f"{work}: {program} failed\n{run.stderr}")
        text = profile.read_text(encoding="utf-8", errors="replace")
    chosen = CHOSEN_ROUTINE.search(text)
    if chosen:
        raise CannotCount(f"{work}: the C library chose {chosen.group()} for "
                          "this processor; add what it needs to NOT_USED")
    names = re.search(r"^events: (.*)$", text, re.MULTILINE).group(1).split()
    numbers = re.search(r"^(?:totals|summary): (.*)$", text, re.MULTILINE).group(1).split()
    counted = dict(zip(names, map(int, numbers)))
    if counted["Ir"] == 0:
        raise CannotCount(f"{work}: countedRegion was never entered")
    return counted


def count(program, work):
    """Its instructions."""
    return events(program, work)["Ir"]


def misses(program, work):
    """How often it reads what is not in the first cache."""
    return events(program, work, *CACHES)["D1mr"]


def check(program, figures, only):
    recorded = json.loads(figures.read_text(encoding="utf-8"))
    held = True
    for work, figure in recorded.items():
        if only not in (None, work):
            continue
        instructions = count(program, work)
        limit = figure["instructions"]
        excess = instructions / limit - 1
        verdict = "held"
        if excess > TOLERANCE:
            verdict = f"{excess:.1%} above the recorded figure"
            held = False
        elif instructions > MOST.get(work, instructions):
            verdict = f"more than {MOST[work]}"
            held = False
        print(f"{work}: {instructions} instructions, recorded {limit}: "
              f"{verdict}", flush=True)
    return held


def grows(program, work, sizes, factor):
    few, many = (count(program, f"{work} {size}") for size in sizes)
    print(f"{work} {sizes[1]}: {many / few:.2f} times {sizes[0]}, at most {factor}", flush=True)
    return many <= factor * few


def linear(program):
    held = grows(program, "read", LONGER, LONGER_FACTOR)
    for work in ("set-all", "sync"):
        held = grows(program, work, MORE_PROCESSORS, MORE_PROCESSORS_FACTOR) and held
    for work, limit in GROWTH.items():
        few, many = (count(program, f"{work} {size}") / units(program, work, size)
                     for size in MUCH_LONGER)
        print(f"{work} {MUCH_LONGER[1]}, instructions a unit: {many / few:.3f} "
              f"times those of {MUCH_LONGER[0]}, at most {limit}", flush=True)
        held = held and many / few <= limit
    for work, limit in MISSES.items():
        few, many = (misses(program, f"{work} {size}") / size for size in MISSES_SIZES)
        print(f"{work} {MISSES_SIZES[1]}, reads a unit that miss the cache: {many / few:.3f} "
              f"times those of {MISSES_SIZES[0]}, at most {limit}", flush=True)
        held = held and many / few <= limit
    return held


def units(program, work, size):
    return text_size(program, size) if work in ("read", "write") else size


def text_size(program, devices):
    run = subprocess.run([str(program), "text-size", str(devices)], check=True,
                         capture_output=True, text=True)
    return int(run.stdout)


def record(program, figures, reason):
    if not reason.strip() or "\n" in reason:
        raise CannotCount("a reason is one line of text")
    changed = subprocess.run(["git", "status", "--porcelain"], check=True,
                             cwd=figures.parent, capture_output=True, text=True)
    if changed.stdout:
        raise CannotCount("figures are recorded of a clean tree only:\n"
                          + changed.stdout)
    recorded = json.loads(figures.read_text(encoding="utf-8"))
    for work, figure in recorded.items():
        instructions = count(program, work)
        # A whole process is not the same to the last instruction.
        close = instructions / 500 if work.split()[0] in tool_work.WORKS else 0
        if abs(instructions - figure["instructions"]) > close:
            print(f"{work}: {figure['instructions']} -> {instructions}")
            figure.update(instructions=instructions, reason=reason)
    figures.write_text(json.dumps(recorded, indent=2) + "\n", encoding="utf-8")
    return True


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("action", choices=("check", "linear", "record"))
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("figures", type=pathlib.Path, nargs="?")
    parser.add_argument("--only")
    parser.add_argument("--reason", default="")
    given = parser.parse_args()
    if given.action != "linear" and given.figures is None:
        parser.error("FIGURES is missing")
    if given.action == "check":
        return check(given.program, given.figures, given.only)
    if given.action == "linear":
        return linear(given.program)
    return record(given.program, given.figures, given.reason)


if __name__ == "__main__":
    try:
        sys.exit(0 if main() else 1)
    except CannotCount as reason:
        print(reason, file=sys.stderr)
        sys.exit(2)
