#!/usr/bin/env python3
"""Shows that reading and writing a command of any shape takes memory that is
bounded by its size and instructions that grow with it.

  sizes.py PROGRAM [SHAPE...]

PROGRAM is hostile_work of an optimized build. For each shape it prints the most
memory that was in use for each byte, at 1, 10 and 100 MB, and the instructions
for each byte at 1 MB, compared with those at 100 KB. Exit status: 0 held, 1 a
bound was exceeded, 2 nothing could be counted.
"""

import argparse
import pathlib
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent
                       / "performance"))
import instructions  # noqa: E402

MEMORY_SIZES = (1_000_000, 10_000_000, 100_000_000)
# Bytes in use at most for each byte that goes in or comes out, and beside that.
MOST_FOR_A_BYTE = 12
MOST_BESIDE = 16384

COUNTED_SIZES = (100_000, 1_000_000)
# What may be added to each byte of the larger: the heap takes longer to find
# room among more records.
GROWTH = 1.10
# Instructions that do not grow, so that a text of few may be counted.
BESIDE = 20_000


def memory(program, work, shape, size):
    """(bytes that went in or came out, most bytes in use)"""
    run = subprocess.run([str(program), work, shape, str(size)], check=False,
                         capture_output=True, text=True)
    if run.returncode != 0:
        raise instructions.CannotCount(f"{work} {shape} {size}: {run.stderr}")
    return tuple(int(number) for number in run.stdout.split())


def check(program, work, shape):
    factors = []
    held = True
    for size in MEMORY_SIZES:
        moved, peak = memory(program, work, shape, size)
        if moved < size / 10:
            return True  # little of this command is kept, and so written
        held = held and peak <= MOST_FOR_A_BYTE * moved + MOST_BESIDE
        factors.append(peak / moved)
    few, many = (instructions.count(program, f"{work} {shape} {size}")
                 for size in COUNTED_SIZES)
    grown = COUNTED_SIZES[1] / COUNTED_SIZES[0]
    held = held and many <= grown * few * GROWTH + BESIDE
    print(f"{work:5} {shape:28}", *(f"{factor:6.2f}" for factor in factors),
          f"{many / COUNTED_SIZES[1]:8.2f} {many / few / grown:6.2f}",
          "" if held else "EXCEEDED", flush=True)
    return held


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("shapes", nargs="*")
    given = parser.parse_args()
    program = given.program.resolve()
    shapes = given.shapes or subprocess.run(
        [str(program), "shapes"], check=True, capture_output=True,
        text=True).stdout.split()
    print("memory for a byte at 1, 10 and 100 MB; instructions for a byte at "
          "1 MB, and how many times those at 100 KB")
    held = True
    for shape in shapes:
        for work in ("read", "write"):
            held = check(program, work, shape) and held
    return held


if __name__ == "__main__":
    try:
        sys.exit(0 if main() else 1)
    except instructions.CannotCount as reason:
        print(reason, file=sys.stderr)
        sys.exit(2)
