#!/usr/bin/env python3
"""Holds option files to the system calls that they can't do without.

  system_calls.py PROGRAM

PROGRAM is option_file_work. STRACE in the environment names another strace than
the one of the PATH. Exit status: 0 held, 1 other calls, 2 nothing to see.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

# The path is made, the file opened and known to be a regular one.
WRITING = ["getcwd", "openat", "newfstatat", "ftruncate", "write", "close"]
# The second read finds the end: no line ends the only line.
READING = ["getcwd", "openat", "newfstatat", "read", "read", "close"]

CALL = re.compile(r"^(\w+)\(")
MARK = '"option-file-work"'


def calls(strace, program, work, folder):
    trace = pathlib.Path(folder, "trace")
    run = subprocess.run([strace, "-o", str(trace), str(program), work],
                         cwd=folder, capture_output=True, text=True, check=False)
    if run.returncode != 0:
        sys.exit(f"{work}: {program} failed\n{run.stderr}")
    lines = trace.read_text(encoding="utf-8").splitlines()
    marks = [index for index, line in enumerate(lines) if MARK in line]
    if len(marks) != 2:
        sys.exit(f"{work}: the trace has {len(marks)} marks")
    names = (CALL.match(line) for line in lines[marks[0] + 1:marks[1]])
    return ["newfstatat" if name.group(1) == "fstat" else name.group(1)
            for name in names if name]


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    strace = shutil.which(os.environ.get("STRACE", "strace"))
    if strace is None:
        print("strace was not found: system calls can't be seen", file=sys.stderr)
        return 2
    held = True
    with tempfile.TemporaryDirectory() as folder:
        os.mkdir(os.path.join(folder, "etc"))
        for work, expected in (("write", WRITING), ("read", READING)):
            made = calls(strace, program, work, folder)
            held = held and made == expected
            print(f"{work}: {len(made)} system calls: {' '.join(made)}")
            if made != expected:
                print(f"  instead of {len(expected)}: {' '.join(expected)}")
    return 0 if held else 1


if __name__ == "__main__":
    sys.exit(main())
