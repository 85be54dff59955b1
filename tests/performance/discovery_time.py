#!/usr/bin/env python3
"""Holds how the time of discovery grows, which instructions don't tell: it waits for memory.

  discovery_time.py PROGRAM [--processors FEW MANY] [--most RATIO]

PROGRAM is discover_once. The two sizes take turns, each time in a fresh process;
their medians are compared. A busy machine may spoil a few rounds, so that they are
repeated before it is a failure.
"""

import argparse
import statistics
import subprocess
import sys

ROUNDS = 11
ATTEMPTS = 6


def nanoseconds(program, processors):
    run = subprocess.run([program, str(processors)], capture_output=True, text=True, check=False)
    if run.returncode != 0:
        sys.exit(f"{program} {processors}: {run.returncode}\n{run.stderr}")
    return int(run.stdout)


def growth(program, sizes):
    rounds = [[nanoseconds(program, size) for size in sizes] for _ in range(ROUNDS)]
    few, many = map(statistics.median, zip(*rounds))
    return many / few


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("--processors", nargs=2, type=int, default=(10_000, 100_000))
    parser.add_argument("--most", type=float, default=12)
    given = parser.parse_args()
    for _ in range(ATTEMPTS):
        found = growth(given.program, given.processors)
        print(f"discovery of {given.processors[1]:,} processors: {found:.1f} times that of "
              f"{given.processors[0]:,}, at most {given.most:g}", flush=True)
        if found <= given.most:
            return 0
    print("discovery grows faster than that")
    return 1


if __name__ == "__main__":
    sys.exit(main())
