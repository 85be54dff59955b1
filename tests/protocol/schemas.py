#!/usr/bin/env python3
"""The schemas of what the protocol answers, made from the table of settings.

usage: schemas.py LIBRARY SCHEMA_FOLDER [--write]

Fails unless docs/schema/ holds them as they are made; --write writes them.
"""

import json
import pathlib
import sys

import jsonschema

from transports import Library

PREFIX = "protocol-"
COMMON = "common.schema.json#/$defs/"
ANYTHING = {"$ref": "protocol-results.schema.json#/$defs/anything"}
WHOLE = {"type": "integer", "minimum": 0}
HANDLE = {"type": "integer", "minimum": 1}
FLAG, TEXT, VALUE = {"type": "boolean"}, {"type": "string"}, {"$ref": COMMON + "value"}
STATE = {"$ref": "protocol-state.schema.json"}
LOSSES = {"$ref": "protocol-state.schema.json#/properties/losses"}

PATCH_STEP = {
    "type": "object", "additionalProperties": False, "required": ["op", "path"],
    "properties": {
        "op": {"type": "string", "enum": ["add", "remove", "replace"]},
        "path": {"type": "string", "pattern": "^/"},
        "value": {"$ref": "protocol-results.schema.json#/$defs/anything", "description": "Optional: not to remove"},
    }}
PATCH = {"type": "array", "description": "JSON Patch (RFC 6902) from the state before to the state after",
         "items": {"$ref": "protocol-results.schema.json#/$defs/patchStep"}}
DEFINITIONS = {"anything": {}, "patchStep": PATCH_STEP}


def closed(properties, optional=None, description=None):
    """An object with these members, and the optional ones with what they say."""
    optional = optional or {}
    told = {name: {**schema, "description": "Optional: " + schema["description"]} for name, schema in optional.items()}
    schema = {"type": "object", "additionalProperties": False, "required": list(properties),
              "properties": {**properties, **told}}
    return {**schema, "description": description} if description else schema


def listed(items, description=None):
    schema = {"type": "array", "items": items}
    return {**schema, "description": description} if description else schema


def described(schema, description):
    return {**schema, "description": description}


def document(name, title, schema, definitions=None):
    head = {"$schema": "https://json-schema.org/draft/2020-12/schema", "$id": f"{PREFIX}{name}.schema.json",
            "title": title}
    return {**head, **schema, **({"$defs": definitions} if definitions else {})}


def value_of(row):
    """What the values of a setting are."""
    kinds = {"flag": ["boolean", "integer"], "word": ["string", "integer"], "text": "string", "file": "string"}
    if row["kind"] == "chain":
        return listed({"$ref": COMMON + "device"})
    return {"type": kinds.get(row["kind"], "integer")}


def setting(row):
    """The state of one setting."""
    value = value_of(row)
    optional = {
        "bytes": described(TEXT, "in base64, where the value is a text that is no UTF-8"),
        "reason": described(TEXT, "why it is not applicable"),
        "draft": described(TEXT, "a text that is no value"),
        "error": described(TEXT, "what is wrong with the draft"),
    }
    if "choices" in row:
        choice = closed({"value": {"enum": [each["value"] for each in row["choices"]]},
                         "label": {"enum": [each["label"] for each in row["choices"]]}},
                        {"reason": described(TEXT, "why it cannot be chosen")})
        optional["choices"] = listed(choice, "what it can be")
    unit = f" In {row['unit']}." if "unit" in row else ""
    return closed({"value": value, "text": described(TEXT, "The value for people"), "default": value,
                   "origin": {"type": "string", "pattern": "^(default|design|changed|(file|command):[0-9]+)$"},
                   "applicable": FLAG}, optional, f"{row['label']}: {row['help']}{unit}")


def state(settings, check):
    loss = closed({"field": TEXT, "value": VALUE, "readBack": VALUE, "reason": TEXT,
                   "code": {"type": "string", "pattern": "^[a-z]+(-[a-z]+)*$"}, "blocking": FLAG},
                  {"anchor": described(TEXT, "the place in docs/round-trip.md"),
                   "displacedBy": described(TEXT, "the setting that takes its place")})
    word = closed({"offset": WHOLE, "length": WHOLE, "role": TEXT},
                  {"setting": described(TEXT, "one that stands in it")})
    whole = {row["id"]: setting(row) for row in settings if "[]" not in row["id"]}
    device = {row["id"].partition(".")[2]: setting(row) for row in settings if "[]" in row["id"]}
    return closed({
        "processor": TEXT, "file": described(TEXT, "The option file"), "exists": FLAG, "changedOnDisk": FLAG,
        "dirty": FLAG, "canUndo": FLAG, "canRedo": FLAG,
        "command": {"type": ["string", "null"], "description": "What would be written; null where nothing can"},
        "settings": closed(whole), "chain": listed(closed(device), "A device each"),
        "words": listed(word, "Of the command, once for each setting in one"),
        "losses": listed(loss, "What a written command does not bring back"),
        "differences": listed(closed({"setting": TEXT, "saved": VALUE, "now": VALUE}), "From what is saved"),
        "diagnostics": check["diagnostics"],
    }, {
        "problem": described(TEXT, "why what is saved could not be read"),
        "commandError": described(TEXT, "why none can be written"),
        "editedCommand": described(TEXT, "the command that was accepted, where it is another"),
        "draft": described(TEXT, "a command that is refused"),
    })


def setting_row():
    choice = closed({"value": VALUE, "label": TEXT})
    return closed({
        "id": TEXT, "group": TEXT, "label": TEXT, "help": TEXT,
        "kind": {"enum": ["flag", "number", "address", "frequency", "text", "file", "word", "chain"]},
        "settable": described(FLAG, "Whether a change takes it")}, {
            "unit": described(TEXT, "what numbers count"),
            "minimum": {"type": "integer", "description": "what a change takes"},
            "maximum": {"type": "integer", "description": "the same, upwards"},
            "together": listed(TEXT, "settings that its writer looks at as well"),
            "choices": listed(choice, "its values, where it has few")})


def error():
    return closed({"code": {"enum": [-32700, -32600, -32601, -32602, -32603, -32800, 1]}, "message": TEXT,
                   "data": closed({"kind": {"type": "string", "pattern": "^[a-z]+(-[a-z]+)*$"}, "message": TEXT}, {
                       "setting": described(TEXT, "the setting at fault"),
                       "value": described(TEXT, "what was given"),
                       "accepted": listed(TEXT, "what would have been accepted"),
                       "suggestion": described(TEXT, "the nearest of them"),
                       "file": described(TEXT, "the file at fault"),
                       "line": {"type": "integer", "minimum": 1, "description": "the line in it"}})})


def results(tool):
    """The result of each method."""
    effects = closed({"effects": listed(closed({"setting": TEXT, "before": VALUE, "after": VALUE, "why": TEXT})),
                      "patch": PATCH})
    saved = {"file": TEXT, "command": TEXT, "losses": LOSSES, "patch": PATCH}
    refused = {"error": {"$ref": "protocol-error.schema.json"}, "patch": PATCH}
    of_board = [closed({"configuration": HANDLE, **members}) for members in (saved, refused)]
    nothing = closed({})
    by_method = {
        "initialize": closed({"version": {"const": 1}, "name": {"const": "zeldebug"}, "methods": listed(TEXT)}),
        "settings": {"$ref": "protocol-settings.schema.json"},
        "board/open": closed({"board": HANDLE, "processors": tool["list"]["processors"],
                              "undebuggable": tool["list"]["undebuggable"],
                              "diagnostics": {"$ref": COMMON + "diagnostics"}}),
        "board/close": nothing,
        "board/save": closed({"configurations": listed({"oneOf": of_board})}),
        "configuration/open": closed({"configuration": HANDLE, "state": STATE}),
        "configuration/state": closed({"state": STATE}),
        "configuration/close": nothing,
        "configuration/save": closed(saved),
        "command/check": {**tool["check"], "description": "As a command of 'zeldebug check --json'"},
        "command/explain": closed({name: tool["explain"][name] for name in ("text", "result", "error", "words")}),
        "command/diff": closed({name: tool["diff"][name] for name in ("equal", "differences")}),
        "command/complete": closed({"from": WHOLE, "to": WHOLE,
                                    "words": listed(closed({"text": TEXT, "label": TEXT}))}),
        "$/cancelRequest": {"type": "null"},
        "exit": {"type": "null"},
    }
    for act in ("change", "draft", "edit", "undo", "redo", "revert", "reset", "copy"):
        by_method[f"configuration/{act}"] = effects
    told = {name: described(schema, f"Optional: the result of {name}") for name, schema in by_method.items()}
    return {"type": "object", "additionalProperties": False, "minProperties": 1, "maxProperties": 1,
            "properties": told}


def make(settings, folder):
    """Every schema by its name."""
    def of_tool(name):
        return json.loads((folder / f"{name}.schema.json").read_text(encoding="utf-8"))["properties"]
    tool = {name: of_tool(name) for name in ("list", "explain", "diff")}
    tool["check"] = of_tool("check")["commands"]["items"]
    return {
        "settings": document("settings", "The table of settings",
                             closed({"settings": listed(setting_row())})),
        "state": document("state", "Everything that is known of a configuration",
                          state(settings, tool["check"]["properties"])),
        "error": document("error", "Why a request is not done", error()),
        "results": document("results", "What each method answers: an object whose one member is named as the method",
                            results(tool), DEFINITIONS),
    }


class Validator:
    """Says what is wrong with an answer."""

    def __init__(self, folder):
        store = {path.name: json.loads(path.read_text(encoding="utf-8"))
                 for path in pathlib.Path(folder).glob("*.schema.json")}
        def of(name):
            schema = store[f"{PREFIX}{name}.schema.json"]
            resolver = jsonschema.RefResolver(schema["$id"], schema, store)
            return jsonschema.Draft202012Validator(schema, resolver=resolver)
        self.results, self.error = of("results"), of("error")

    def faults(self, method, answer):
        """Each fault of an answer to a request of that method, a line each."""
        if set(answer) not in ({"jsonrpc", "id", "result"}, {"jsonrpc", "id", "error"}) or answer["jsonrpc"] != "2.0":
            return [f"no answer: {sorted(answer)}"]
        found = self.error.iter_errors(answer["error"]) if "error" in answer else \
            self.results.iter_errors({method: answer["result"]})
        return [f"{'/'.join(map(str, each.path))}: {each.message[:400]}" for each in found]


def settings_of(library):
    server = Library(library)
    answer = server.answer(b'{"jsonrpc": "2.0", "id": 1, "method": "settings"}')
    server.close()
    return json.loads(answer)["result"]["settings"]


def main(library, folder, *options):
    folder, failed = pathlib.Path(folder), 0
    for name, schema in make(settings_of(library), folder).items():
        jsonschema.Draft202012Validator.check_schema(schema)
        text = json.dumps(schema, indent=2, ensure_ascii=False) + "\n"
        path = folder / f"{PREFIX}{name}.schema.json"
        if options == ("--write",):
            path.write_text(text, encoding="utf-8")
        elif not path.exists() or path.read_text(encoding="utf-8") != text:
            failed += 1
            print(f"{path}: is not what the table of settings makes: 'schemas.py ... --write'")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
