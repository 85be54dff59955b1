"""many_changes.py CHANGES: fails if a program needs more memory the more changes it makes.

A configuration keeps the steps that can be undone, so it is closed after a few
changes, and the next one opened. It works in a copy of examples/.
"""

import gc
import pathlib
import resource
import sys

from zeldebugdialog import Board

CHANGES_OF_ONE = 20
MOST_GROWTH = 1024  # KiB


def resident_memory():
    """In KiB, once what nobody has is gone."""
    gc.collect()
    pages = int(pathlib.Path("/proc/self/statm").read_text().split()[1])
    return pages * resource.getpagesize() // 1024


def work(board):
    with board.configuration("lumacore_0") as configuration:
        for number in range(CHANGES_OF_ONE):
            configuration.change({
                "debugDevice": number + 1, "cable.cableType": 0 if number % 2 else "quorla_podusb",
                "chain": [{"devicenr": number % 5 + 1, "partname": "pk9ab100"}]})
        configuration.undo()
        configuration.refresh()


def main(changes):
    whole, done, first, most = int(changes), 0, 0, 0
    with Board("board/board.xml") as board:
        while done < whole:
            work(board)
            done += CHANGES_OF_ONE
            # What is kept for good is there after the first tenth.
            if done <= whole // 10:
                first = resident_memory()
            else:
                most = max(most, resident_memory())
    print(f"{done} changes: {first} KiB after the first {whole // 10}, at most {most} KiB since")
    return 1 if first == 0 or most - first > MOST_GROWTH else 0


sys.exit(main(*sys.argv[1:]))
