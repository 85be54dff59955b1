#!/usr/bin/env python3
"""Checks where the readers of IP-XACT look for what.

usage: check_forms.py TABLE --sources FOLDER --trace PROGRAM DESIGN...
       check_forms.py TABLE --schemas FOLDER

With --sources: every place where the readers look, as the program tells it of
the designs, is in the table, and every place of the table is one of them; every
name in the sources is in the table.
With --schemas: the table says of each place in which editions it is, and that
is what the schemas say; each place is in one edition at least.
"""

import argparse
import pathlib
import re
import subprocess
import sys

from ipxact_schema import EDITIONS, Schema

# The rooms of the model that know names of the standard.
ROOMS = ("library", "records", "xml")
# What looks like a name in them, but is none of an element or attribute.
OTHER_WORDS = {
    "bit": "a type of parameters",
    "bitString": "a format of values",
    "bool": "a format of values",
    "document": "what a message calls a document of no type",
    "localhost": "this machine, in a URI",
    "long": "a format of values",
    "memory": "a usage of a block",
    "names": "the end of a message",
    "real": "a type of parameters",
    "shortreal": "a type of parameters",
    "string": "a type of parameters",
    "xml": "a prefix",
    "xmlns": "a prefix",
}


def split(place):
    """What the place is in, and the rest: "a/b", "/c" or "a/b", "@c"."""
    at = max(place.rfind("/"), place.rfind("@"))
    return (place[:at], place[at:]) if at >= 0 else ("", place)


class Table:
    """The places, and those that are read alike."""

    def __init__(self, path):
        self.rows = {}
        self.alike = []
        for number, line in enumerate(path.read_text().splitlines(), 1):
            words = line.partition("#")[0].split()
            if not words:
                continue
            if words[0] == "alike":
                self.alike += [(other, words[1]) for other in words[2:]]
                continue
            if len(words) != 1 + len(EDITIONS):
                sys.exit(f"{path}:{number}: a row has a place and {len(EDITIONS)} columns")
            for place in self.expand(words[0]):
                if place in self.rows:
                    sys.exit(f"{path}:{number}: {place} stands twice")
                self.rows[place] = [word != "-" for word in words[1:]]
            for word, edition in zip(words[1:], EDITIONS):
                if word not in ("-", edition):
                    sys.exit(f"{path}:{number}: {word} should be {edition} or -")

    @staticmethod
    def expand(place):
        """a/b,c and a@b,c are two places each."""
        start = max(place.rfind("/"), place.rfind("@")) + 1
        return [place[:start] + name for name in place[start:].split(",")]

    def canonical(self, place):
        """The place under which all that are read like it stand."""
        around, rest = split(place)
        changed = True
        while changed:
            changed = False
            for other, first in self.alike:
                if around == other or around.startswith(other + "/"):
                    around = first + around[len(other):]
                    changed = True
        return around + rest

    def variants(self, place):
        """The places that stand under this one, itself among them."""
        around, rest = split(place)
        return [place] + [
            other + around[len(first):] + rest
            for other, first in self.alike
            if around == first or around.startswith(first + "/")
        ]

    def names(self):
        alike = [path for pair in self.alike for path in pair]
        return {name for place in [*self.rows, *alike] for name in re.split("[/@]", place)}


def check_trace(table, command):
    faults = []
    asked = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout.split()
    reached = {table.canonical(place): place for place in asked}
    for place in sorted(set(reached) - set(table.rows)):
        faults.append(f"{reached[place]}: the readers look there; the table does not have it")
    documents = {place for place in table.rows if "/" not in place and "@" not in place}
    for place in sorted(set(table.rows) - set(reached) - documents):
        faults.append(f"{place}: no reader looks there")
    return faults


def check_names(table, folder):
    known = table.names()
    faults = []
    met = set()
    for room in ROOMS:
        for source in sorted((folder / room).glob("*.[ch]*")):
            for number, line in enumerate(source.read_text().splitlines(), 1):
                if line.startswith("#include"):
                    continue
                for name in re.findall(r'"([A-Za-z]+)"', line.partition("//")[0]):
                    met.add(name)
                    if name not in known and name not in OTHER_WORDS:
                        faults.append(f"{source}:{number}: {name} is not in the table")
    for word in sorted(set(OTHER_WORDS) - met):
        faults.append(f"{word}: the sources no longer have it")
    return faults


def check_schemas(table, folder):
    schemas = {edition: Schema(folder / name) for edition, name in EDITIONS.items()}
    faults = []
    for place, said in table.rows.items():
        if not any(said):
            faults.append(f"{place}: in no edition")
        for edition, is_said in zip(EDITIONS, said):
            is_there = any(schemas[edition].allows(one) for one in table.variants(place))
            if is_there != is_said:
                faults.append(f"{place}: {edition} {'has' if is_there else 'does not have'} it")
    for other, first in table.alike:
        for path in (other, first):
            if not any(schema.allows(path) for schema in schemas.values()):
                faults.append(f"alike {path}: in no edition")
    return faults


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("table", type=pathlib.Path)
    parser.add_argument("--sources", type=pathlib.Path)
    parser.add_argument("--schemas", type=pathlib.Path)
    parser.add_argument("--trace", nargs="+", default=[])
    arguments = parser.parse_args()
    table = Table(arguments.table)
    faults = []
    if arguments.trace:
        faults += check_trace(table, arguments.trace)
    if arguments.sources:
        faults += check_names(table, arguments.sources)
    if arguments.schemas:
        faults += check_schemas(table, arguments.schemas)
    for fault in faults:
        print(fault)
    if faults or not table.rows:
        sys.exit(f"{len(faults)} faults of {len(table.rows)} places")
    print(f"{len(table.rows)} places")


if __name__ == "__main__":
    main()
