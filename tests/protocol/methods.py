"""The OpenRPC document of all methods: what each does, takes and answers.

Names, and which parameters there are, come from the server's own table; what is
said here of them has to fit it.
"""

import json
import re

import jsonschema

RESULTS = "protocol-results.schema.json#/properties/"
TEXT = {"type": "string"}
PATH = {"type": "string", "minLength": 1, "pattern": "^[^\\u0000]*$"}
MOST = 2 ** 63 - 1
HANDLE = {"type": "integer", "minimum": 1, "maximum": MOST}

# What the server says that a parameter has to be.
KINDS = {
    "a text": TEXT,
    "a text, or null": {"type": ["string", "null"]},
    "a text that is not empty, without null characters": PATH,
    "an array of texts that are not empty, without null characters": {"type": "array", "items": PATH},
    "an array of texts": {"type": "array", "items": TEXT},
    "true or false": {"type": "boolean"},
    "a number that an answer has given": HANDLE,
    "an array of numbers that answers have given": {"type": "array", "items": HANDLE},
    "a whole number from 1 to 100000000": {"type": "integer", "minimum": 1, "maximum": 100000000},
    "a whole number from 0": {"type": "integer", "minimum": 0, "maximum": MOST},
    "an object": {"type": "object"},
    "a text or a number": {"type": ["string", "number"]},
}

BOARD = {"board": "Its number"}
CONFIGURATION = {"configuration": "Its number"}
COMMAND = {"command": "The command"}
INTO = {"into": "The part of the board's project that is to say it: 'local', 'project' or 'profile:NAME'"}
FORCE = {"force": "Also where something would be lost, or the file is not what was read; false without it"}

# By method: what it does, and what its parameters mean.
MEANINGS = {
    "initialize": ("Says what the server is.", {}),
    "settings": ("Gives the table of settings.", {}),
    "board/open": ("Reads a design and finds its processors.", {
        "design": "Its file; it has to be given unless 'project' is",
        "project": "In its place: the project file that names it, with all that belongs to it",
        "probe": "With 'project': the probe to use, or none",
        "profile": "With 'project': the profile to use, or none",
        "library": "Folders and catalogs of its components",
        "view": "The view of each component that has several",
        "kinds": "A file that says which components play which part",
        "maxInstances": "How many instances to look at",
        "directory": "Where option files lie, in its etc/; the server's own without it; not with 'project'",
    }),
    "board/close": ("Closes a board with its configurations. Nothing is saved.", BOARD),
    "board/save": ("Saves several configurations at once: each wholly or not at all.", {
        **BOARD, "configurations": "Their numbers; all that are open on the board without it", **FORCE}),
    "configuration/open": ("Opens the configuration of a processor, as it is saved. Each time it is another one.", {
        **BOARD, "processor": "Its name in the design"}),
    "configuration/state": ("Gives all that is known of a configuration, with the file as it is now.", CONFIGURATION),
    "configuration/close": ("Closes a configuration. Nothing is saved.", CONFIGURATION),
    "configuration/change": ("Gives settings values: all of them, or none.", {
        **CONFIGURATION, "values": "Values by the ids of settings", **INTO}),
    "configuration/draft": ("Takes a text as a person types it: a value acts as a change, another text is kept.", {
        **CONFIGURATION, "setting": "The setting; 'command' for a whole command",
        "text": "The text; null drops the one that is kept"}),
    "configuration/edit": ("Makes the settings of a command its own; a faulty one is kept as a draft.", {
        **CONFIGURATION, **COMMAND}),
    "configuration/undo": ("Takes a change back.", CONFIGURATION),
    "configuration/redo": ("Does it again.", CONFIGURATION),
    "configuration/revert": ("Goes back to what is saved, drafts and all.", CONFIGURATION),
    "configuration/reset": ("Gives settings their defaults.", {
        **CONFIGURATION, "settings": "Their ids; all of them without it, none for an empty list", **INTO}),
    "configuration/copy": ("Takes over all of another one but what says which processor it is.", {
        **CONFIGURATION, "from": "The number of the other one"}),
    "configuration/save": ("Saves the option file, wholly or not at all.", {**CONFIGURATION, **FORCE}),
    "command/check": ("Says what is wrong with a command.", {
        **COMMAND, "board": "With 'processor': what that one would make of it", "processor": "With 'board': its name"}),
    "command/explain": ("Says what each word of a command changes.", COMMAND),
    "command/diff": ("Says in which settings two commands differ.", {
        "first": "The one", "second": "The other"}),
    "command/complete": ("Says what could stand in a command at a place.", {
        **COMMAND, "offset": "The place, in bytes of UTF-8"}),
    "$/cancelRequest": ("Cancels a request that waits, or a board that is being opened. As a notification.", {
        "id": "That of the request"}),
    "exit": ("Ends 'zeldebug serve'. As a notification.", {}),
}


def errors(page):
    """Those that are this protocol's own, as the page of the protocol lists them: the
    ones below -32000 that JSON-RPC defines may come from any method, and it says so."""
    rows = re.findall(r"^\| (-?\d+) \| (.+?) \|$", page, re.MULTILINE)
    return {f"E{code}".replace("-", ""): {"code": int(code), "message": message} for code, message in rows
            if not -32768 <= int(code) <= -32600}


def document(table, page):
    """@param table  the server's, as print_methods prints it
    @param page  the text of docs/protocol.md"""
    listed, own = [], errors(page)
    for row in table:
        summary, meanings = MEANINGS[row["name"]]
        if set(meanings) != {each["name"] for each in row["parameters"]}:
            raise SystemExit(f"methods.py says nothing, or too much, of the parameters of {row['name']}")
        result = RESULTS + row["name"].replace("~", "~0").replace("/", "~1")
        listed.append({
            "name": row["name"],
            "summary": summary,
            "paramStructure": "by-name",
            "params": [{"name": each["name"], "summary": meanings[each["name"]], "required": each["required"],
                        "schema": KINDS[each["is"]]} for each in row["parameters"]],
            "result": {"name": "result", "schema": {"$ref": result}},
            "errors": [{"$ref": f"#/components/errors/{name}"} for name in own],
        })
    return {"openrpc": "1.3.2",
            "info": {"title": "The protocol of ZelDebugDialog", "version": "1",
                     "description": "JSON-RPC 2.0 over the pipes of 'zeldebug serve', or in process by its C library. "
                                    "An error has 'data' as x-error says."},
            "methods": listed,
            "components": {"errors": own},
            "x-error": {"$ref": "protocol-error.schema.json"}}


def validate(content, folder):
    """Holds the document against the schema of OpenRPC.
    @param folder  with that schema, and the one of JSON Schema that it refers to"""
    openrpc, json_schema = (json.loads((folder / name).read_text(encoding="utf-8"))
                            for name in ("schema-1.3.json", "json-schema.json"))
    store = {json_schema["$id"].rstrip("/"): json_schema, json_schema["$id"]: json_schema}
    resolver = jsonschema.RefResolver(openrpc["$id"], openrpc, store)
    jsonschema.Draft7Validator(openrpc, resolver=resolver).validate(content)


PROBES = [None, True, False, 0, 1, 1.0, 1.5, -1, 100000000, 100000001, 2 ** 63, 1e300, "", "a", "\0", "ä", [], [""],
          ["a"], ["\0"], [1], [1.0], [1, "a"], [True], [-1], {}, {"a": 1}]


def disagreements(content, server):
    """Where the server takes a parameter that its schema does not, or the other way.
    No number of anything is given here: those refused for that alone are taken."""
    def valid(schema, value):
        return jsonschema.Draft202012Validator(schema).is_valid(value)

    def good(schema):
        return next(value for value in PROBES[::-1] if valid(schema, value))

    for method in content["methods"]:
        needed = {each["name"]: good(each["schema"]) for each in method["params"] if each["required"]}
        for each in method["params"]:
            for value in PROBES:
                if each["schema"] == HANDLE and value == 0:
                    continue  # is a number, but none that was given
                params = {**needed, each["name"]: value}
                request = {"jsonrpc": "2.0", "id": 1, "method": method["name"], "params": params}
                error = json.loads(server.answer(json.dumps(request).encode())).get("error", {})
                refused = error.get("code") == -32602 and error["data"].get("parameter") == each["name"] and \
                    error["message"].startswith(f"'{each['name']}' is not ")
                if refused == valid(each["schema"], value):
                    yield f"{method['name']}: {each['name']} {value!r}: {error}, and the schema is {each['schema']}"
        for name in needed:
            params = {other: value for other, value in needed.items() if other != name}
            request = {"jsonrpc": "2.0", "id": 1, "method": method["name"], "params": params}
            error = json.loads(server.answer(json.dumps(request).encode())).get("error", {})
            if "is missing" not in error.get("message", ""):
                yield f"{method['name']}: {name} may be missing: {error}"
