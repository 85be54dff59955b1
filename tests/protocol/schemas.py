#!/usr/bin/env python3
"""The schemas of what the protocol answers, made from the table of settings; the
OpenRPC document of its methods, made from the server's table of them; and the page that
says what each member is.

usage: schemas.py LIBRARY PRINT_METHODS DOCS_FOLDER [--write]

Fails unless DOCS_FOLDER holds them as they are made; --write writes them. Fails as
well where the server takes a parameter that its schema does not, or the other way.
"""

import json
import pathlib
import subprocess
import sys

import jsonschema

import methods
import reference
from transports import Library

PREFIX = "protocol-"
OPENRPC = "protocol.openrpc.json"
COMMON = "common.schema.json#/$defs/"
ANYTHING = {"$ref": "protocol-results.schema.json#/$defs/anything"}
WHOLE = {"type": "integer", "minimum": 0}
HANDLE = {"type": "integer", "minimum": 1}
FLAG, TEXT, VALUE = {"type": "boolean"}, {"type": "string"}, {"$ref": COMMON + "value"}
STATE = {"$ref": "protocol-state.schema.json", "description": "Everything that is known of the configuration"}
STATE_DEFS = "protocol-state.schema.json#/$defs/"
REMARKS = {"type": "array", "items": {"$ref": STATE_DEFS + "remark"}}
LOSSES = {"$ref": "protocol-state.schema.json#/properties/losses",
          "description": "What the file does not bring back"}
# Of a text; of a chain, those of each device.
BYTES = {"oneOf": [TEXT, {"type": "array", "items": {"type": "object", "additionalProperties": TEXT}}]}

PATCH_STEP = {
    "type": "object", "additionalProperties": False, "required": ["op", "path"],
    "properties": {
        "op": {"type": "string", "enum": ["add", "remove", "replace"], "description": "What is done"},
        "path": {"type": "string", "pattern": "^/", "description": "Where, as a JSON Pointer (RFC 6901)"},
        "value": {"$ref": "protocol-results.schema.json#/$defs/anything", "description": "Optional: not to remove"},
    }}
PATCH = {"type": "array", "description": "JSON Patch (RFC 6902) from the state that was last told to the state now",
         "items": {"$ref": "protocol-results.schema.json#/$defs/patchStep"}}
EFFECTS = ("What has become different: after a change, the draft of a setting and whatever has 'into', all that was not "
           "asked for; otherwise all of it, and after a copy also what this processor does not allow, with the same value "
           "before and after")
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


def bytes_of(*names):
    """The optional member `bytes`, beside members that show values."""
    told = {name: described(BYTES, f"of '{name}'") for name in names}
    return described(closed({}, told), "in base64, the texts in them that are no UTF-8")


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
        "bytes": described(BYTES, "in base64, where the value has a text that is no UTF-8"),
        "reason": described(TEXT, "why it is not applicable"),
        "draft": described(TEXT, "a text that is no value"),
        "error": described(TEXT, "what is wrong with the draft"),
        "project": {"$ref": STATE_DEFS + "said", "description": "what the files of the board's project say of it"},
    }
    if "choices" in row:
        choice = closed({
            "value": {"enum": [each["value"] for each in row["choices"]], "description": "What a change takes"},
            "label": {"enum": [each["label"] for each in row["choices"]], "description": "The same for people"},
        }, {"reason": described(TEXT, "why it cannot be chosen")})
        optional["choices"] = listed(choice, "what it can be")
    unit = f" In {row['unit']}." if "unit" in row else ""
    return closed({
        "value": described(value, "What it is"),
        "text": described(TEXT, "The value for people"),
        "default": described(value, "What it is where nobody has set it; of a cable's setting, that of the cable"),
        "origin": {"type": "string", "pattern": "^(default|design|project|changed|(file|command):[0-9]+)$",
                   "description": "Where it comes from; behind 'file' and 'command' the column, from 1"},
        "applicable": described(FLAG, "Whether it can change the command"),
    }, optional, f"{row['label']}: {row['help']}{unit}")


PLACE = {
    "file": {"type": "string", "description": "The file that says it"},
    "line": {"type": "integer", "minimum": 1, "description": "Its line, from 1"},
    "column": {"type": "integer", "minimum": 1, "description": "Its column, from 1, in bytes"},
}


def said():
    return closed({
        "layer": {"type": "string", "pattern": "^(project|local|(probe|profile):.+)$",
                  "description": "Which part of the files it stands in"},
        **PLACE,
    }, {"value": described(VALUE, "the value; not of what is shown of the connection"),
        "text": described(TEXT, "the value for people"),
        "bytes": described(BYTES, "in base64, where the value has a text that is no UTF-8")},
        "What counts of a setting in the files of a project")


def remark():
    optional = {name: {**schema, "description": schema["description"][0].lower() + schema["description"][1:]}
                for name, schema in PLACE.items()}
    return closed({
        "severity": {"enum": ["warning", "note"], "description": "How much it matters"},
        "code": {"type": "string", "pattern": "^[a-z]+(-[a-z]+)*$",
                 "description": "What it is, as a stable word; 'zeldebug explain-code' explains it"},
        "message": described(TEXT, "The same for people"),
    }, {"setting": described(TEXT, "the setting that it is about"), **optional},
        "What there is to say of the files of a project")


def loss_row():
    return closed({
        "field": described(TEXT, "The setting"),
        "value": described(VALUE, "What it is"),
        "readBack": described(VALUE, "What is read instead"),
        "reason": described(TEXT, "Why, for people"),
        "code": {"type": "string", "pattern": "^[a-z]+(-[a-z]+)*$",
                 "description": "Why, as a stable word; 'zeldebug explain-code' explains it"},
        "blocking": described(FLAG, "Whether saving is refused because of it, unless it is forced"),
    }, {
        "bytes": bytes_of("value", "readBack"),
        "anchor": described(TEXT, "the place in docs/round-trip.md"),
        "displacedBy": described(TEXT, "the setting that takes its place"),
    })


def word_row():
    return closed({
        "offset": described(WHOLE, "In bytes of UTF-8, of the command as it is shown"),
        "length": described(WHOLE, "In the same"),
        "role": described(TEXT, "What it is: head, target, connection, option, name, value, ignored, lost"),
    }, {"setting": described(TEXT, "one that stands in it")})


def difference_row():
    return closed({"setting": described(TEXT, "The setting"), "saved": described(VALUE, "What is saved"),
                   "now": described(VALUE, "What it is")}, {"bytes": bytes_of("saved", "now")})


def effect_row():
    return closed({"setting": described(TEXT, "The setting"), "before": described(VALUE, "What it was"),
                   "after": described(VALUE, "What it is"), "why": described(TEXT, "Why, for people")},
                  {"bytes": bytes_of("before", "after")})


def state(settings, check):
    whole = {row["id"]: setting(row) for row in settings if "[]" not in row["id"]}
    device = {row["id"].partition(".")[2]: setting(row) for row in settings if "[]" in row["id"]}
    return closed({
        "processor": described(TEXT, "Its name in the design"),
        "file": described(TEXT, "The option file"),
        "exists": described(FLAG, "Whether the file is there"),
        "changedOnDisk": described(FLAG, "Whether it is no longer what was read or saved"),
        "dirty": described(FLAG, "Whether there is something to save"),
        "canUndo": described(FLAG, "Whether there is a step to take back"),
        "canRedo": described(FLAG, "Whether there is one to do again"),
        "command": {"type": ["string", "null"], "description": "What would be written; null where nothing can"},
        "settings": described(closed(whole), "Each by its id"),
        "chain": listed(closed(device), "A device each: the settings of one, by the name of its field"),
        "words": listed(word_row(), "Of the command, once for each setting in one"),
        "losses": listed(loss_row(), "What a written command does not bring back"),
        "differences": listed(difference_row(), "From what is saved"),
        "diagnostics": described(check["diagnostics"], "Of the draft, where there is one; else of the command"),
    }, {
        "problem": described(TEXT, "why what is saved could not be read"),
        "commandError": described(TEXT, "why none can be written"),
        "editedCommand": described(TEXT, "the command that was accepted, where it is another"),
        "draft": described(TEXT, "a command that is refused"),
        "project": closed({
            "command": {"type": ["string", "null"], "description": "The option file that they ask for; null for none"},
            "remarks": described(REMARKS, "What became of values"),
        }, {"problem": described(TEXT, "why there is none"),
            **{name: {**schema, "description": "of the problem: " + schema["description"][0].lower() +
                      schema["description"][1:]} for name, schema in PLACE.items()}},
            "what the files of the board's project say of the processor"),
    })


def setting_row():
    choice = closed({"value": described(VALUE, "What a change takes"), "label": described(TEXT, "The same for people")})
    return closed({
        "id": described(TEXT, "Its name, such as cable.port"),
        "group": described(TEXT, "The heading that it belongs under"),
        "label": described(TEXT, "What people call it"),
        "help": described(TEXT, "What it is"),
        "kind": {"enum": ["flag", "number", "address", "frequency", "text", "file", "word", "chain"],
                 "description": "What its values are"},
        "settable": described(FLAG, "Whether a change takes it")}, {
            "unit": described(TEXT, "what numbers count"),
            "minimum": {"type": "integer", "description": "what a change takes"},
            "maximum": {"type": "integer", "description": "the same, upwards"},
            "together": listed(TEXT, "settings that its writer looks at as well"),
            "choices": listed(choice, "its values, where it has few")})


def error():
    data = closed({
        "kind": {"type": "string", "pattern": "^[a-z]+(-[a-z]+)*$", "description": "What is wrong, as a stable word"},
        "message": described(TEXT, "What is wrong, without the setting"),
    }, {
        "parameter": described(TEXT, "the parameter at fault"),
        "setting": described(TEXT, "the setting at fault"),
        "value": described(TEXT, "what was given; of a setting and of a command, a byte that cannot be shown stands in "
                                 "it as a backslash, x and two digits"),
        "accepted": listed(TEXT, "what would have been accepted"),
        "suggestion": described(TEXT, "the nearest of them"),
        "file": described(TEXT, "the file at fault"),
        "line": {"type": "integer", "minimum": 1, "description": "the line in it"},
        "faults": {"$ref": COMMON + "faults",
                   "description": "where the files of a project are at fault, all that is wrong with them"}})
    return closed({
        "code": {"enum": [-32700, -32600, -32601, -32602, -32603, -32800, 1],
                 "description": "Of JSON-RPC, or 1 where the model refuses"},
        "message": described(TEXT, "What is wrong, for people"),
        "data": described(data, "The same for programs")})


def results(tool):
    """The result of each method."""
    effects = {"effects": listed(effect_row(), EFFECTS), "patch": PATCH}
    written = closed({
        "file": described(TEXT, "The file that says it now"),
        "changed": described(FLAG, "Whether it did not say so already"),
        "remarks": described(REMARKS, "What there is to say of it"),
    }, None, "with 'into': what has been written")
    saved = {"file": described(TEXT, "The option file"), "command": described(TEXT, "What is in it now"),
             "losses": LOSSES, "patch": PATCH}
    refused = {"error": {"$ref": "protocol-error.schema.json", "description": "Why it is not saved"}, "patch": PATCH}
    number = described(HANDLE, "Its number, for other requests")
    of_board = [closed({"configuration": described(HANDLE, "Which one"), **members}) for members in (saved, refused)]
    nothing = closed({})
    project = closed({
        "file": described(TEXT, "The project file"),
        "probes": listed(TEXT, "The names of the probes that there are"),
        "profiles": listed(TEXT, "The names of the profiles"),
        "warnings": described(REMARKS, "What there is to say of the files"),
    }, {"local": described(TEXT, "the local file beside it"),
        "probe": described(TEXT, "the probe that is chosen"),
        "profile": described(TEXT, "the profile that is chosen")}, "the project that the board was opened from")
    by_method = {
        "initialize": closed({"version": {"const": 1, "description": "Of the protocol"},
                              "name": {"const": "zeldebug", "description": "Of the server"},
                              "methods": listed(TEXT, "All that there are")}),
        "settings": {"$ref": "protocol-settings.schema.json"},
        "board/open": closed({
            "board": number, "processors": described(tool["list"]["processors"], "Those that a debugger can reach"),
            "undebuggable": described(tool["list"]["undebuggable"], "Those that none can, and why"),
            "diagnostics": {"$ref": COMMON + "diagnostics",
                            "description": "What there is to say of the files of the design"}},
            {"project": project}),
        "board/close": nothing,
        "board/save": closed({"configurations": listed({"oneOf": of_board}, "What became of each")}),
        "configuration/open": closed({"configuration": number, "state": STATE}),
        "configuration/state": closed({"state": STATE}),
        "configuration/close": nothing,
        "configuration/save": closed(saved),
        "command/check": {**tool["check"], "description": "As a command of 'zeldebug check --json'"},
        "command/explain": closed({name: tool["explain"][name] for name in ("text", "result", "error", "words")}),
        "command/diff": closed({name: tool["diff"][name] for name in ("equal", "differences")}),
        "command/complete": closed({
            "from": described(WHOLE, "Where the word begins that is completed, in bytes"),
            "to": described(WHOLE, "Where it ends"),
            "words": listed(closed({"text": described(TEXT, "What can stand there"),
                                    "label": described(TEXT, "The same for people")}), "In the order to offer them")}),
        "$/cancelRequest": {"type": "null"},
        "exit": {"type": "null"},
    }
    for act in ("change", "reset"):
        by_method[f"configuration/{act}"] = closed(effects, {"written": written})
    for act in ("draft", "edit", "undo", "redo", "revert", "copy"):
        by_method[f"configuration/{act}"] = closed(effects)
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
                             closed({"settings": listed(setting_row(), "A row each, in the order to show them")})),
        "state": document("state", "Everything that is known of a configuration",
                          state(settings, tool["check"]["properties"]),
                          {"said": said(), "remark": remark()}),
        "error": document("error", "Why a request is not done", error()),
        "results": document("results", "What each method answers: an object whose one member is named as the method",
                            results(tool), DEFINITIONS),
    }


class Validator:
    """Says what is wrong with an answer."""

    def __init__(self, folder):
        self.store = {path.name: json.loads(path.read_text(encoding="utf-8"))
                      for path in pathlib.Path(folder).glob("*.schema.json")}
        self.results, self.error = (self.of(f"{PREFIX}{name}.schema.json") for name in ("results", "error"))

    def of(self, name):
        schema = self.store[name]
        resolver = jsonschema.RefResolver(schema["$id"], schema, self.store)
        return jsonschema.Draft202012Validator(schema, resolver=resolver)

    def faults(self, method, answer):
        """Each fault of an answer to a request of that method, a line each."""
        if set(answer) not in ({"jsonrpc", "id", "result"}, {"jsonrpc", "id", "error"}) or answer["jsonrpc"] != "2.0":
            return [f"no answer: {sorted(answer)}"]
        found = self.error.iter_errors(answer["error"]) if "error" in answer else \
            self.results.iter_errors({method: answer["result"]})
        return [f"{'/'.join(map(str, each.path))}: {each.message[:400]}" for each in found]


def settings_of(server):
    answer = server.answer(b'{"jsonrpc": "2.0", "id": 1, "method": "settings"}')
    return json.loads(answer)["result"]["settings"]


def as_text(content):
    return json.dumps(content, indent=2, ensure_ascii=False) + "\n"


def main(library, print_methods, folder, *options):
    folder, failed = pathlib.Path(folder), 0
    server = Library(library)
    table = json.loads(subprocess.run([print_methods], check=True, capture_output=True, text=True).stdout)
    schemas = make(settings_of(server), folder / "schema")
    all_methods = methods.document(table, (folder / "protocol.md").read_text(encoding="utf-8"))
    for schema in schemas.values():
        jsonschema.Draft202012Validator.check_schema(schema)
    methods.validate(all_methods, pathlib.Path(__file__).parent / "openrpc")
    made = {folder / "schema" / f"{PREFIX}{name}.schema.json": as_text(schema) for name, schema in schemas.items()}
    made[folder / "schema" / OPENRPC] = as_text(all_methods)
    made[folder / "protocol-reference.md"] = reference.page(all_methods, schemas)
    for path, text in made.items():
        if options == ("--write",):
            path.write_text(text, encoding="utf-8")
        elif not path.exists() or path.read_text(encoding="utf-8") != text:
            failed += 1
            print(f"{path}: is not what the tables make: 'schemas.py ... --write'")
    faults = [*reference.undescribed(schemas), *methods.disagreements(all_methods, server)]
    server.close()
    for fault in faults[:20]:
        print(fault)
    return 1 if failed or faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
