#!/usr/bin/env python3
"""Checks that the rooms of the design model look down only.

usage: check_rooms.py SOURCES

What a room may include beside itself. A row names rows below it alone, so that
no way leads back.
"""

import pathlib
import re
import sys

ROOMS = {
    "elaboration": {"graph", "kinds", "records", "library", "expressions", "xml", "messages", "names"},
    "graph": {"messages", "names"},
    "kinds": {"xml", "messages", "names"},
    "records": {"xml", "messages", "names"},
    "library": {"xml", "messages", "names"},
    "expressions": {"messages", "names"},
    "xml": {"messages", "names"},
    "messages": {"names"},
    "names": set(),
}


def main():
    sources = pathlib.Path(sys.argv[1])
    order = list(ROOMS)
    faults = [f"{room} may include {below}, which is not below it"
              for room, rooms in ROOMS.items() for below in rooms
              if order.index(below) <= order.index(room)]
    found = {path.name for path in sources.iterdir() if path.is_dir()}
    faults += [f"{room}: no row says what it may include" for room in sorted(found - set(ROOMS))]
    count = 0
    for path in sorted(sources.glob("*/*")):
        room = path.parent.name
        for included in re.findall(r'^#include "([a-z]+)/', path.read_text(), re.M):
            count += 1
            if included != room and included not in ROOMS.get(room, set()):
                faults.append(f"{path.relative_to(sources)}: {room} does not look at {included}")
    print("\n".join(faults))
    if faults or count == 0:
        sys.exit(f"{len(faults)} faults among {count} includes")
    print(f"{count} includes")


if __name__ == "__main__":
    main()
