#!/usr/bin/env python3
"""Holds sessions to the files that they may touch: nothing but the option file,
its lock and its scratch, in the folder that they were given, and two flushes
however many are saved: of what was written, then of the names in the folder.

  session_calls.py PROGRAM

PROGRAM is session_work. STRACE in the environment names another strace than the
one of the PATH. Exit status: 0 held, 1 not, 2 nothing to see.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

CALL = re.compile(r"^(\w+)\((.*)\)\s+= (-?\d+|\?)")
MARK = '"session-work"'
TEXT = re.compile(r'"((?:[^"\\]|\\.)*)"')

# What changes names or contents of files, what leaves the folder, and what
# waits for a disk.
WRITING = {"rename", "renameat", "renameat2", "unlink", "unlinkat", "mkdir", "mkdirat",
           "rmdir", "link", "linkat", "symlink", "symlinkat", "chmod", "fchmodat",
           "fchmod", "truncate", "ftruncate", "creat", "mknod", "mknodat", "utimensat",
           "chown", "fchownat", "fchown"}
MOVING = {"chdir", "fchdir", "chroot"}
STARTING = {"fork", "vfork", "clone", "clone3", "execve", "connect", "socket"}
FLUSHING = {"fsync", "fdatasync", "syncfs", "sync"}

# Work, its flush, and whether it may write at all.
WORKS = {"open": ([], False), "change": ([], False), "state": ([], False),
         "save": (["fsync", "fsync"], True),
         "save-all": (["syncfs", "fsync"], True),
         "save-same": ([], False), "refuse": ([], False)}


def calls(strace, program, work, folder):
    trace = pathlib.Path(folder, "trace")
    options = pathlib.Path(folder, "options")
    options.mkdir()
    run = subprocess.run([strace, "-f", "-s", "4096", "-o", str(trace), str(program),
                          str(options), work],
                         cwd=folder, capture_output=True, text=True, check=False)
    if run.returncode != 0:
        sys.exit(f"{work}: {program} failed\n{run.stderr}")
    lines = [line.split(None, 1)[1]
             for line in trace.read_text(encoding="utf-8").splitlines()]
    marks = [index for index, line in enumerate(lines) if MARK in line]
    if len(marks) != 2:
        sys.exit(f"{work}: the trace has {len(marks)} marks")
    found = (CALL.match(line) for line in lines[marks[0] + 1:marks[1]])
    return [(match.group(1), match.group(2)) for match in found if match]


def is_flushed_folder(path, arguments, options):
    return path == str(options) and "O_RDONLY" in arguments and "O_DIRECTORY" in arguments


def is_allowed(path, options):
    name = os.path.basename(path)
    return os.path.dirname(path) == str(options) and bool(
        re.fullmatch(r"\.?kvo_(lc|ppc405|ppc440|a9)\.opt(\.lock|\.new)?", name))


def faults_of(work, made, options):
    flush, may_write = WORKS[work]
    flushes = []
    for name, arguments in made:
        opens = name in ("open", "openat", "creat")
        writes = name in WRITING or (opens and re.search(
            r"O_(WRONLY|RDWR|CREAT|TRUNC|APPEND)", arguments))
        if name in FLUSHING:
            flushes.append(name)
        if name in MOVING or name in STARTING:
            yield f"{name}({arguments})"
        if writes and not may_write:
            yield f"{name}({arguments}): it writes"
        if writes or opens:
            for path in TEXT.findall(arguments):
                is_folder = may_write and is_flushed_folder(path, arguments, options)
                if not is_folder and not is_allowed(path, options):
                    yield f"{name}({arguments}): {path}"
    if flushes != flush:
        yield f"flushes {flushes} in place of {flush}"


def main():
    program = pathlib.Path(sys.argv[1]).resolve()
    strace = shutil.which(os.environ.get("STRACE", "strace"))
    if strace is None:
        print("strace was not found: system calls can't be seen", file=sys.stderr)
        return 2
    held = True
    for work, (_, may_write) in WORKS.items():
        with tempfile.TemporaryDirectory() as folder:
            made = calls(strace, program, work, folder)
            faults = list(faults_of(work, made, pathlib.Path(folder, "options")))
            written = sorted(os.listdir(os.path.join(folder, "options")))
            expected = {"save": ["kvo_lc.opt"], "save-same": ["kvo_lc.opt"],
                        "save-all": ["kvo_a9.opt", "kvo_lc.opt", "kvo_ppc405.opt"]}
            if written != expected.get(work, []):
                faults.append(f"it leaves {written}")
            print(f"{work}: {len(made)} system calls")
            for fault in faults:
                print(f"  {fault}")
            held = held and not faults
    return 0 if held else 1


if __name__ == "__main__":
    sys.exit(main())
