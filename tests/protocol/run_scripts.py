#!/usr/bin/env python3
"""Runs conversations with a server and compares every answer.

usage: run_scripts.py (--serve PROGRAM | --library LIBRARY) PROJECT SCRIPT...

A script is text; each runs with a server and an empty folder of its own.

  # ...                      a comment
  method {"name": ...}       a request with these parameters; $name is replaced
  raw TEXT                   a request as it is; \\xNN is a byte
  repeat N TEXT              a raw request: TEXT so many times
  nest N                     a raw request: so many arrays in each other
    {...}                    indented: what the answer must hold
    no answer                indented: that there is none
  let name path.to.member    keeps a member of the last answer for $name
  file NAME TEXT             writes a file of the folder
  link NAME TARGET           makes a symbolic link
  remove NAME                removes it
  folder NAME                makes a folder
  saved NAME TEXT            expects that text in a file, and no more
  missing NAME               expects that there is no such file

An expected object names the members that count, "!name" those that must not be
there; an expected array counts whole. {"~": PATTERN} is a text that holds the
pattern, {"#": N} an array of N items, {"has": ITEM} one with such an item,
{"any": true} anything. $work is the folder, $board the design of examples/board.

Every answer is validated against the schemas. After each answer with a patch, the
state that was last told, patched, must be the state that is asked for. It is asked
for before as well only where an option file may be another since.
"""

import json
import pathlib
import re
import shutil
import sys
import tempfile

import schemas
from transports import Library, Serve


def mismatch(expected, found, place="answer"):
    """What is not as expected, as a line; None if all is."""
    if isinstance(expected, dict):
        if "any" in expected:
            return None
        if "~" in expected:
            good = isinstance(found, str) and re.search(expected["~"], found)
            return None if good else f"{place} is {found!r}, without {expected['~']!r}"
        if "#" in expected:
            good = isinstance(found, list) and len(found) == expected["#"]
            return None if good else f"{place} has not {expected['#']} items: {found!r}"
        if "has" in expected:
            good = isinstance(found, list) and any(mismatch(expected["has"], item) is None for item in found)
            return None if good else f"{place} has no {expected['has']!r}: {found!r}"
        if not isinstance(found, dict):
            return f"{place} is no object: {found!r}"
        for name, member in expected.items():
            if name.startswith("!"):
                if name[1:] in found:
                    return f"{place}.{name[1:]} is there: {found[name[1:]]!r}"
            elif name not in found:
                return f"{place}.{name} is missing: {found!r}"
            else:
                fault = mismatch(member, found[name], f"{place}.{name}")
                if fault:
                    return fault
        return None
    if isinstance(expected, list):
        if not isinstance(found, list) or len(found) != len(expected):
            return f"{place} is no array of {len(expected)}: {found!r}"
        faults = (mismatch(*pair, f"{place}[{at}]") for at, pair in enumerate(zip(expected, found)))
        return next(filter(None, faults), None)
    same = expected == found and type(expected) is type(found)
    return None if same else f"{place} is {found!r}, not {expected!r}"


def patched(document, patch):
    """The document after a JSON Patch of 'add', 'remove' and 'replace' (RFC 6902)."""
    document = json.loads(json.dumps(document))
    for step in patch:
        *path, last = [part.replace("~1", "/").replace("~0", "~") for part in step["path"].split("/")[1:]]
        target = document
        for part in path:
            target = target[int(part)] if isinstance(target, list) else target[part]
        if isinstance(target, list):
            last = len(target) if last == "-" else int(last)
            assert last <= len(target)
        if step["op"] == "add":
            if isinstance(target, list):
                target.insert(last, step["value"])
            else:
                target[last] = step["value"]
        elif step["op"] == "remove":
            del target[last]
        else:
            assert step["op"] == "replace"
            target[last]  # it has to be there
            target[last] = step["value"]
    return document


def unescaped(text):
    return text.encode("latin-1").decode("unicode_escape").encode("latin-1")


class Failed(Exception):
    pass


class Conversation:
    def __init__(self, server, validator, names):
        self.server, self.validator, self.names = server, validator, names
        self.work = pathlib.Path(names["work"])
        self.count, self.patches, self.last = 0, 0, None
        self.told, self.stale = {}, set()  # states, by the numbers of their configurations

    def text(self, line):
        return re.sub(r"\$([a-z_0-9]+)", lambda name: str(self.names[name.group(1)]), line)

    def ask(self, method, params):
        self.count += 1
        request = {"jsonrpc": "2.0", "id": self.count, "method": method, "params": params}
        answer = json.loads(self.server.answer(json.dumps(request).encode()))
        self.check(method, answer, self.count)
        return answer

    def check(self, method, answer, identification):
        faults = self.validator.faults(method, answer)
        if answer["id"] != identification:
            faults.append(f"the id is {answer['id']!r}")
        if faults:
            raise Failed("\n".join(faults))

    def state(self, configuration):
        """What is asked for; None of what is not open."""
        answer = self.ask("configuration/state", {"configuration": configuration})
        self.told[configuration] = answer.get("result", {}).get("state")
        self.stale.discard(configuration)
        return self.told[configuration]

    def known(self, configuration):
        """What a client knows without asking, where it can."""
        is_known = self.told.get(configuration) is not None and configuration not in self.stale
        return self.told[configuration] if is_known else self.state(configuration)

    def expect_patched(self, configuration, patch):
        before = self.told[configuration]
        if patched(before, patch) != self.state(configuration):
            raise Failed(f"the state that was last told, patched, is not the state after: {patch}")
        self.patches += 1

    def request(self, method, params):
        named = params.get("configuration")
        is_open = isinstance(named, int) and self.known(named) is not None
        if method == "board/save":
            for number in list(self.stale):
                self.state(number)
        answer = self.ask(method, params)
        result = answer["result"] if isinstance(answer.get("result"), dict) else {}
        if "state" in result:
            self.told[result.get("configuration", named)] = result["state"]
        elif method.endswith("/close"):
            self.told.clear()
        elif is_open:
            self.expect_patched(named, result.get("patch", []))
        for saved in result.get("configurations", []):
            self.expect_patched(saved["configuration"], saved["patch"])
        if method.endswith("/save"):
            self.stale.update(set(self.told) - {named})
        return answer

    def raw(self, text):
        answer = self.server.answer(text)
        if answer is None:
            return None
        answer = json.loads(answer)
        faults = self.validator.faults("initialize", answer) if "error" in answer else []
        if faults:
            raise Failed("\n".join(faults))
        return answer

    def run(self, line, expected):
        word, _, rest = line.partition(" ")
        place = self.work / rest.partition(" ")[0]
        if word in ("file", "link", "remove") and place.parent.name == "etc":
            self.stale.update(self.told)
        content = rest.partition(" ")[2]
        if word == "let":
            name, _, path = rest.partition(" ")
            value = self.last
            for part in path.split("."):
                value = value[int(part) if part.isdigit() else part]
            self.names[name] = value
        elif word == "file":
            place.parent.mkdir(exist_ok=True)
            place.write_bytes(unescaped(content))
        elif word == "link":
            place.symlink_to(content)
        elif word == "folder":
            place.mkdir()
        elif word == "remove":
            place.unlink()
        elif word == "missing":
            if place.exists():
                raise Failed(f"there is a {place}")
        elif word == "saved":
            if place.read_bytes() != unescaped(content):
                raise Failed(f"{place} holds {place.read_bytes()!r}")
        else:
            self.converse(word, rest, expected)

    def converse(self, word, rest, expected):
        if word == "raw":
            self.last = self.raw(unescaped(rest) if "\\x" in rest else rest.encode())
        elif word == "nest":
            self.last = self.raw(b"[" * int(rest) + b"]" * int(rest))
        elif word == "repeat":
            count, _, text = rest.partition(" ")
            self.last = self.raw(text.encode() * int(count))
        else:
            self.last = self.request(word, json.loads(rest or "{}"))
        if expected == "no answer":
            if self.last is not None:
                raise Failed(f"there is an answer: {self.last}")
        elif expected:
            fault = mismatch(json.loads(expected), self.last)
            if fault:
                raise Failed(fault)


def steps_of(script):
    """(line number, line, expectation) of each step."""
    steps = []
    for number, line in enumerate(script.read_text(encoding="utf-8").split("\n"), 1):
        if not line.strip() or line.startswith("#"):
            continue
        if line.startswith(" "):
            steps[-1][2] += line.strip()
        else:
            steps.append([number, line, ""])
    return steps


def main(kind, path, project, *scripts):
    validator = schemas.Validator(pathlib.Path(project) / "docs" / "schema")
    failed = asked = patches = 0
    for script in map(pathlib.Path, scripts):
        work = tempfile.mkdtemp()
        server = Serve(path) if kind == "--serve" else Library(path)
        board = pathlib.Path(project) / "examples" / "board" / "board.xml"
        talk = Conversation(server, validator, {"work": work, "board": board})
        number, line = 0, ""
        try:
            for number, line, expected in steps_of(script):
                talk.run(talk.text(line), talk.text(expected))
            server.close()
        except (Failed, AssertionError, KeyError, IndexError, TypeError, ValueError, OSError) as fault:
            failed += 1
            print(f"{script}:{number}: {line}\n  {type(fault).__name__}: {str(fault)[:3000]}")
        shutil.rmtree(work)
        asked, patches = asked + talk.count, patches + talk.patches
    print(f"{len(scripts)} scripts, {asked} requests, {patches} states patched, {failed} failed")
    return 1 if failed or patches == 0 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
