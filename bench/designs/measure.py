#!/usr/bin/env python3
"""Measures the ways to load a design, each time in a fresh process.

  measure.py BENCH_LOAD RESULTS

BENCH_LOAD is the program of the ways in C++; RESULTS is written, in the form of
the other benchmark programs. Answers are compared before anything is measured.
Times are those of the work alone, without the start of the program; so are the
instructions, which are those of a run that loads less those of a run that loads
nothing. They are counted at the largest size, once: they hardly differ.
"""

import collections
import json
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

import flat_design

sys.path.insert(0, str(flat_design.boards.__file__).rpartition("/")[0])
import instructions  # noqa: E402  (from the folder of the boards)

SIZES = (230, 2300, 23000)
ROUNDS = 11  # the least time of all counts

LOAD_TREE = pathlib.Path(__file__).resolve().with_name("load_tree.py")
# Debian's own, which has Debian's packages.
PYTHON = "/usr/bin/python3" if os.path.exists("/usr/bin/python3") else sys.executable

OURS = "design model"
Way = collections.namedtuple("Way", "name program argument leaves_out")
WAYS = (
    Way(OURS, "C++", "design-model", ""),
    Way("libxml2, SAX", "C++", "sax", "a tree, namespaces"),
    Way("pugixml", "C++", "pugixml", "namespaces"),
    Way("pugixml, load alone", "C++", "trees-only", "every answer"),
    Way("lxml", "Python", "lxml", ""),
    Way("ElementTree", "Python", "elementtree", ""),
)
GIVES_NO_ANSWER = "trees-only"

# The same in every run: symbols bound at the start, and the order of sets; where
# instructions are counted, the routines of the C library as well.
TIMED = dict(os.environ, LD_BIND_NOW="1", PYTHONHASHSEED="0")
COUNTED = dict(TIMED, GLIBC_TUNABLES=instructions.PINNED)


def run(words, **options):
    done = subprocess.run(list(map(str, words)), capture_output=True, text=True, check=False, **options)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, words))}: {done.returncode}\n{done.stderr}")
    return done


def line(way, program, *arguments):
    start = [program] if way.program == "C++" else [PYTHON, LOAD_TREE]
    return [*start, way.argument, *arguments]


# --- Instructions -------------------------------------------------------------

def by_perf(words):
    done = subprocess.run(["perf", "stat", "-x,", "-e", "instructions:u", *map(str, words)],
                          capture_output=True, text=True, check=False, env=COUNTED)
    counted = re.search(r"^(\d+),", done.stderr, re.MULTILINE)
    return int(counted.group(1)) if done.returncode == 0 and counted else None


def by_cachegrind(words):
    done = run(["valgrind", "--tool=cachegrind", "--cache-sim=no", "--cachegrind-out-file=/dev/null", *words],
               env=COUNTED)
    return int(re.search(r"I +refs: +([\d,]+)", done.stderr).group(1).replace(",", ""))


def find_counter():
    """@return its name, and a function of a line's words; None twice where nothing counts"""
    if shutil.which("perf") and by_perf(["true"]) is not None:
        return "perf stat", by_perf
    if shutil.which("valgrind"):
        return "cachegrind", by_cachegrind
    return None, None


# --- The measurements ---------------------------------------------------------

def check_answers(program, design, folder):
    answers = {}
    for way in WAYS:
        answer = folder / "answer"
        run(line(way, program, design, answer))
        answers[way.name] = answer.read_text(encoding="utf-8")
    for way in WAYS:
        expected = "" if way.argument == GIVES_NO_ANSWER else answers[OURS]
        if answers[way.name] != expected or not answers[OURS]:
            sys.exit(f"wrong result: {way.name}")


def measure(program, instances, count):
    """@return a result for each way at one size"""
    with tempfile.TemporaryDirectory() as folder:
        folder = pathlib.Path(folder)
        design, size = flat_design.write(folder, instances)
        check_answers(program, design, folder)
        least = {way: {} for way in WAYS}
        for _ in range(ROUNDS):
            for way in WAYS:  # in turn, so that a busy moment doesn't fall on one way alone
                taken = json.loads(run(line(way, program, design), env=TIMED).stdout)
                least[way] = {name: min(value, least[way].get(name, value)) for name, value in taken.items()}
        for way in WAYS:
            result = {"name": f"load/{way.name}/{instances}", "run_type": "iteration", "bytes": size,
                      "label": way.leaves_out, **least[way]}
            if count is not None and instances == max(SIZES):
                result["instructions"] = count(line(way, program, design)) - count(line(way, program))
            yield result


def main():
    program, results = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
    counter, count = find_counter()
    measured = []
    for instances in SIZES:
        measured += measure(program, instances, count)
    results.write_text(json.dumps({"counter": counter, "benchmarks": measured}, indent=1) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
