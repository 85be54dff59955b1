#!/usr/bin/env python3
"""Checks that documents are valid in the edition of IP-XACT that they claim.

usage: check_documents.py --schemas FOLDER --broken LIST --project FOLDER
           [--programs PROGRAM...]

Looked at are the XML files of the tests and examples, the XML on pages, the
inputs that the fuzzer of documents starts from, and what the programs write
below the folder ZELDEBUGDIALOG_DOCUMENTS. A document claims an edition by its
namespace; the XML files have to claim one, of the others only those that do
are looked at.

Those that are broken on purpose stand in the list, a fault a row: a document
(or a pattern of them), two blanks or more, and a part of what xmllint says. A
row whose document is valid, or has another fault, fails, and so does a broken
document without a row.
"""

import argparse
import fnmatch
import os
import pathlib
import re
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "forms"))
from ipxact_schema import EDITIONS  # noqa: E402

NAMESPACES = {
    "http://www.spiritconsortium.org/XMLSchema/SPIRIT/1.5": "1.5",
    "http://www.spiritconsortium.org/XMLSchema/SPIRIT/1685-2009": "2009",
    "http://www.accellera.org/XMLSchema/IPXACT/1685-2014": "2014",
    "http://www.accellera.org/XMLSchema/IPXACT/1685-2022": "2022",
}
MARK = "==== "


def edition_of(text):
    """What the first element's own prefix stands for, or nothing."""
    element = re.search(r"<([A-Za-z][\w:.-]*)([^>]*)", re.sub(r"<!--.*?-->", "", text, flags=re.S))
    if element is None:
        return None
    prefix = element[1].rpartition(":")[0]
    name = f"xmlns:{prefix}" if prefix else "xmlns"
    space = re.search(rf"""\s{name}\s*=\s*["']([^"']*)""", element[2])
    return NAMESPACES.get(space[1].strip()) if space else None


def read(path):
    return path.read_bytes().decode("utf-8", "surrogateescape")


def files_of(project):
    """XML files, which have to claim an edition."""
    for folder in ("tests", "examples"):
        for path in sorted((project / folder).rglob("*.xml*")):
            if path.suffix in (".xml", ".in"):
                yield str(path.relative_to(project)), read(path)


def pieces_of_pages(project):
    """What stands between fences."""
    for page in [*sorted((project / "docs").glob("*.md")), *sorted(project.glob("*.md"))]:
        for number, block in enumerate(re.findall(r"^```.*?\n(.*?)^```", read(page), re.S | re.M)):
            yield f"{page.relative_to(project)}/{number}", block


def pieces_of_inputs(project):
    """The files that an input of the fuzzer consists of."""
    for path in sorted((project / "fuzz/corpus/documents").iterdir()):
        for piece in ("\n" + read(path)).split("\n" + MARK)[1:]:
            name, _, text = piece.partition("\n")
            yield f"{path.relative_to(project)}/{name}", text


def made_by(programs, folder):
    for program in programs:
        subprocess.run([program], check=True, stdout=subprocess.DEVNULL,
                       env={**os.environ, "ZELDEBUGDIALOG_DOCUMENTS": str(folder)})
    for path in sorted(folder.rglob("*")):
        if path.is_file():
            # TEST/READING/NAME
            parts = path.relative_to(folder).parts
            yield "/".join([parts[0], *parts[2:]]), read(path)


class Documents:
    """Texts that claim an edition, each once, with the places where it stands."""

    def __init__(self):
        self.places = {}

    def add(self, place, text):
        edition = edition_of(text)
        if edition is not None:
            self.places.setdefault((edition, text), set()).add(place)
        return edition is not None

    def faults(self, schemas):
        """The place and what xmllint says, for each that is broken."""
        found = []
        for edition, folder in EDITIONS.items():
            texts = [text for claimed, text in self.places if claimed == edition]
            for text, said in zip(texts, validate(texts, schemas / folder / "index.xsd")):
                found += [(place, said) for place in sorted(self.places[edition, text]) if said]
        return found


def validate(texts, schema):
    """What xmllint says of each, empty for one that is valid."""
    with tempfile.TemporaryDirectory() as folder:
        paths = [os.path.join(folder, f"{number}.xml") for number in range(len(texts))]
        for path, text in zip(paths, texts):
            with open(path, "wb") as file:
                file.write(text.encode("utf-8", "surrogateescape"))
        said = []
        for start in range(0, len(paths), 200):
            said += subprocess.run(
                ["xmllint", "--nonet", "--noout", "--schema", str(schema), *paths[start:start + 200]],
                stderr=subprocess.PIPE, check=False).stderr.decode("utf-8", "replace").splitlines()
        valid = {line.rpartition(" ")[0] for line in said if line.endswith(" validates")}
        return ["" if path in valid else
                "\n".join(line for line in said if line.startswith(path + ":")) or "no XML"
                for path in paths]


def read_list(path):
    rows = []
    for number, line in enumerate(path.read_text().splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            continue
        words = re.split(r"\s{2,}", line.strip(), maxsplit=1)
        if len(words) != 2:
            sys.exit(f"{path}:{number}: a row has a document and a fault")
        rows.append((number, *words))
    return rows


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--schemas", type=pathlib.Path, required=True)
    parser.add_argument("--broken", type=pathlib.Path, required=True)
    parser.add_argument("--project", type=pathlib.Path, required=True)
    parser.add_argument("--programs", nargs="*", default=[])
    arguments = parser.parse_args()

    documents = Documents()
    wrong = []
    for place, text in files_of(arguments.project):
        if not documents.add(place, text):
            wrong.append(f"{place}: it claims no edition")
    for place, text in [*pieces_of_pages(arguments.project), *pieces_of_inputs(arguments.project)]:
        documents.add(place, text)
    with tempfile.TemporaryDirectory() as folder:
        for place, text in made_by(arguments.programs, pathlib.Path(folder)):
            documents.add(place, text)

    rows = read_list(arguments.broken)
    used = set()
    for place, said in documents.faults(arguments.schemas):
        fitting = {number for number, pattern, fault in rows
                   if fnmatch.fnmatchcase(place, pattern) and fault in said}
        used |= fitting
        if not fitting:
            wrong.append(f"{place}: {said.splitlines()[0].partition(': ')[2]}")
    for number, pattern, fault in rows:
        if number not in used:
            wrong.append(f"{arguments.broken}:{number}: no document {pattern} has the fault {fault}")
    print("\n".join(wrong))
    if wrong or not documents.places:
        sys.exit(f"{len(wrong)} faults among {len(documents.places)} documents")
    print(f"{len(documents.places)} documents, {len(rows)} kinds of faults on purpose")


if __name__ == "__main__":
    main()
