#!/usr/bin/env python3
"""The JSON Schemas of the project file and of the local file, made of the tables from
which both are read.

usage: schemas.py PRINT_SCHEMAS ZELDEBUG PROJECT_FOLDER [--write]

Fails unless docs/schema holds them as they are made; --write writes them. Fails as well
unless the files of docs/project-file.md pass, after each of its commands, and unless each
row below is taken or refused as it says, by the schema and by the program.
"""

import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import tomllib

import jsonschema

DESIGN = 'design = "hw/board.xml"\n'
DEVICE = "devicenr = 1, partname = 'a', irlength = 6, idcode = 1"

# A project file behind its design; near misses below what they miss.
TAKEN = [
    "",
    "version = 1",
    "library = ['hw']\nuse.probe = 'none'\nuse.profile = 'none'",
    "[settings]\ndebugDevice = 3",
    "[settings]\ndebugDevice = '0x3'",
    "[settings]\ndebugDevice = 127",
    "[settings]\nicacheStartAdr = 'not set'",
    "[settings]\nconnection = 'hw'",
    "[settings]\ncable.cableType = 'quorla_podusb'\ncable.frequency = '3 MHz'",
    "[settings.cable]\ncableType = 3",
    "[settings]\nuartOverHdu = true",
    "[settings]\nunset = ['debugDevice', 'cable.esn', 'chain']",
    "[settings]\nchain = [{" + DEVICE + "}]",
    "[settings]\nchain = []",
    "[settings]\nchain = [{" + DEVICE + ", nppc = 0}]",
    "[type.lumacore]\ndebugDevice = 3",
    "[processor.lumacore_0]\ndebugDevice = 3",
    "[processor.'lumacore*']\ndebugDevice = 3",
    "[probe.lab-1]\nesn = '0042'\nunset = ['port']",
    "[probe.lab]\nunset = ['cable.port']",
    "[profile.slow.settings]\ndebugDevice = 3",
    "[profile.slow.processor.lumacore_0]\ndebugDevice = 3",
    "[profile.slow.type.lumacore]\ndebugDevice = 3",
]
REFUSED = [
    "version = 2",
    "version = '1'",
    "verison = 1",
    "Version = 1",
    "library = 'hw'",
    "library = [1]",
    "view = 1",
    "view = ''",
    "kinds = ''",
    "use = 'lab'",
    "use.prob = 'none'",
    "use.probe = 1",
    "[setting]",
    "[settings]\ndebugdevice = 3",
    "[settings]\ndebugDevice = 3.5",
    "[settings]\ndebugDevice = true",
    "[settings]\ndebugDevice = -1",
    "[settings]\ndebugDevice = 128",
    "[settings]\ndebugDevice = ''",
    "[settings]\ndebugDevice = [3]",
    "[settings]\nconnection = 'hardware'",
    "[settings]\nconnectionType = 2",
    "[settings]\ndebugAddressMap = 0x70000000",
    "[settings]\ninstanceName = 'a'",
    "[settings]\nconnectCommand = 'connect lc sim'",
    "[settings]\ncable = 'quorla_podusb'",
    "[settings]\ncable.cabelType = 'quorla_podusb'",
    "[settings]\ncable.cableType = 'quorla_pod'",
    "[settings]\ncable.esn = 42",
    "[settings]\ncable.esn = 2026-11-22",
    "[settings]\ncable.moduleArgs = ['a', 'b']",
    "[settings]\nuartOverHdu = 1",
    "[settings]\nunset = 'debugDevice'",
    "[settings]\nunset = ['debugdevice']",
    "[settings]\nunset = ['connectionType']",
    "[settings]\nchain = {" + DEVICE + "}",
    "[settings]\nchain = [{devicenr = 1, partname = 'a', irlength = 6}]",
    "[settings]\nchain = [{" + DEVICE + ", idcode2 = 1}]",
    "[type.lumacore]\nlumacore_0 = 3",
    "[type]\nlumacore = 3",
    "[processor]\nlumacore_0 = 3",
    "[probe.none]\nesn = '0042'",
    "[probe.'la b']\nesn = '0042'",
    "[probe.lab]\nesn = 42",
    "[probe.lab]\ncable.esn = '0042'",
    "[probe.lab]\ndebugDevice = 3",
    "[probe.lab]\nunset = ['debugDevice']",
    "[profile.none.settings]\ndebugDevice = 3",
    "[profile.slow]\ndebugDevice = 3",
    "[profile.slow.probe.lab]\nesn = '0042'",
]
# Of the local file alone.
LOCAL_TAKEN = ["", "version = 1", "library = ['hw']", "directory = 'out'", "use.probe = 'none'",
               "[settings]\ncable.esn = '0042'", "[probe.mine]\nesn = '0042'", "[profile.mine.settings]"]
LOCAL_REFUSED = ["design = 'hw/board.xml'", "view = 'a'", "kinds = 'a'", "[settings]\ncable.esn = 42"]


class Check:
    def __init__(self, schemas, zeldebug, folder):
        self.validators = {name: jsonschema.Draft202012Validator(schema) for name, schema in schemas.items()}
        self.zeldebug, self.folder = zeldebug, folder
        self.faults = []

    def passes(self, name, text):
        return self.validators[name].is_valid(tomllib.loads(text))

    def row(self, project, local, is_taken):
        """A row is taken by the schema, and by the program."""
        with tempfile.TemporaryDirectory() as place:
            place = pathlib.Path(place)
            (place / "hw").symlink_to(self.folder / "examples" / "board")
            (place / "zeldebug.toml").write_text(project)
            if local is not None:
                (place / "zeldebug.local.toml").write_text(local)
            run = subprocess.run([self.zeldebug, "list", "-q"], cwd=place, capture_output=True, text=True, check=False)
        schema = self.passes("project-file", project) if local is None else self.passes("project-file-local", local)
        text = project if local is None else local
        for who, took in (("the schema", schema), ("the program", run.returncode == 0)):
            if took != is_taken:
                self.faults.append(f"{who} {'takes' if took else 'refuses'}:\n{text}\n{run.stderr}")

    def story(self):
        """The files of the page pass after each of its commands, but behind the one that spoils them."""
        page = (self.folder / "docs" / "project-file.md").read_text()
        lines = re.findall(r"^\$ (.*)$", page, re.MULTILINE)
        seen = refused = 0
        with tempfile.TemporaryDirectory() as place:
            place = pathlib.Path(place)
            (place / "examples").symlink_to(self.folder / "examples")
            path = f"{pathlib.Path(self.zeldebug).parent}:{os.environ['PATH']}"
            for line in lines:
                subprocess.run(["bash", "-c", line], cwd=place, env={**os.environ, "PATH": path},
                               capture_output=True, check=False)
                for name, file in (("project-file", "zeldebug.toml"), ("project-file-local", "zeldebug.local.toml")):
                    if not (place / file).exists():
                        continue
                    seen += 1
                    takes = self.passes(name, (place / file).read_text())
                    refused += not takes
                    if not takes and refused == 1 and "cabelType" not in line:
                        self.faults.append(f"docs/project-file.md: {file} is refused behind: {line}")
        if seen < 10 or refused == 0:
            self.faults.append(f"docs/project-file.md: {seen} files seen, {refused} refused")

    def examples(self):
        """Whole files on the page."""
        page = (self.folder / "docs" / "project-file.md").read_text()
        found = re.findall(r"```toml\n(# zeldebug(\.local)?\.toml.*?)```", page, re.DOTALL)
        if len(found) != 2:
            self.faults.append("docs/project-file.md: no example of each file")
        for text, local in found:
            if not self.passes("project-file-local" if local else "project-file", text):
                self.faults.append(f"docs/project-file.md: refused:\n{text}")


def main(printer, zeldebug, folder, *flags):
    folder = pathlib.Path(folder)
    schemas = json.loads(subprocess.run([printer], capture_output=True, check=True).stdout)
    check = Check(schemas, zeldebug, folder)
    for name, schema in schemas.items():
        jsonschema.Draft202012Validator.check_schema(schema)
        path = folder / "docs" / "schema" / f"{name}.schema.json"
        text = json.dumps(schema, indent=2, ensure_ascii=False) + "\n"
        if "--write" in flags:
            path.write_text(text)
        elif not path.exists() or path.read_text() != text:
            check.faults.append(f"{path.relative_to(folder)} is not as it is made: --write writes it")
    check.examples()
    check.story()
    for is_taken, rows in ((True, TAKEN), (False, REFUSED)):
        for row in rows:
            check.row(DESIGN + row + "\n", None, is_taken)
    for is_taken, rows in ((True, LOCAL_TAKEN), (False, LOCAL_REFUSED)):
        for row in rows:
            check.row(DESIGN, row + "\n", is_taken)
    check.row("version = 1\n", None, False)
    for fault in check.faults:
        print(fault, file=sys.stderr)
    return 1 if check.faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
