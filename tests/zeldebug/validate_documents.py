#!/usr/bin/env python3
"""Checks zeldebug's JSON documents against the schemas.

usage: validate_documents.py SCHEMA_FOLDER DOCUMENT_FOLDER

Every document must pass the schema of its subcommand, and for each schema that
was met damaged copies of its fullest document, five at least, must not. The
schemas themselves say the type of every member, take no others, and tell which
ones are optional. Those of the project's files are no documents.
"""

import copy
import json
import pathlib
import sys

import jsonschema


SHARED = "common"


def local(schema):
    """The schema with references to the shared one as if to itself."""
    text = json.dumps(schema).replace(f"{SHARED}.schema.json#/", "#/")
    return json.loads(text)


def load_validators(folder):
    schemas = {
        path.name.removesuffix(".schema.json"): local(json.loads(path.read_text()))
        for path in sorted(pathlib.Path(folder).glob("*.schema.json"))
        if not path.name.startswith("project-file")
    }
    definitions = schemas[SHARED]["$defs"]
    return {
        name: jsonschema.Draft202012Validator({**schema, "$defs": definitions})
        for name, schema in schemas.items()
    }


TYPES = {"type", "$ref", "const", "enum", "oneOf"}


def looseness(schema, place):
    """What a schema leaves open, a line each."""
    if isinstance(schema, list):
        for item in schema:
            yield from looseness(item, place)
        return
    if not isinstance(schema, dict):
        return
    closed = schema.get("additionalProperties", True)
    if "object" in schema.get("type", []) and closed is True:
        yield f"{place}: takes members that it does not name"
    if "array" in schema.get("type", []) and "items" not in schema:
        yield f"{place}: does not say what the list holds"
    for name, member in schema.get("properties", {}).items():
        if not TYPES & set(member):
            yield f"{place}/{name}: has no type"
        is_required = name in schema.get("required", [])
        is_optional = member.get("description", "").startswith("Optional")
        if is_required == is_optional:
            yield f"{place}/{name}: neither required nor told to be optional"
    for name, part in schema.items():
        yield from looseness(part, f"{place}/{name}")


def schema_of(document):
    """A run that failed has no result, or says how far it got."""
    members = document.keys() - {"version", "command", "warnings", "diagnostics", "faults"}
    if members - {"failure"} == {"text"}:
        return "text"
    return "failure" if members == {"failure"} else document["command"]


def objects_in(value):
    """Every object below a value, the value itself not counted."""
    children = value.values() if isinstance(value, dict) else value
    for child in children:
        if isinstance(child, dict):
            yield child
        if isinstance(child, (dict, list)):
            yield from objects_in(child)


def own_members(document):
    return [name for name in document if name not in ("version", "command")]


def without_version(document):
    del document["version"]


def of_another_version(document):
    document["version"] = 2


def of_another_command(document):
    document["command"] = 7


def with_something_more(document):
    document["surplus"] = True


def with_another_type(document):
    document[own_members(document)[0]] = 3.5


def with_something_more_inside(document):
    next(objects_in(document))["surplus"] = 3.5


def with_something_less_inside(document):
    inner = next(objects_in(document))
    del inner[next(iter(inner))]


DAMAGES = [
    without_version,
    of_another_version,
    of_another_command,
    with_something_more,
    with_another_type,
]
def places_in(value):
    """The places of docs/round-trip.md that a document points to."""
    if isinstance(value, list):
        for item in value:
            yield from places_in(item)
    if isinstance(value, dict):
        if value.get("anchor") is not None:
            yield value["anchor"]
        for item in value.values():
            yield from places_in(item)


INNER_DAMAGES = [with_something_more_inside, with_something_less_inside]


def main(schema_folder, document_folder):
    validators = load_validators(schema_folder)
    page = (pathlib.Path(schema_folder).parent / "round-trip.md").read_text()
    faults = []
    for name, validator in validators.items():
        validator.check_schema(validator.schema)
        faults += looseness(validator.schema, name)
    fullest = {}
    for path in sorted(pathlib.Path(document_folder).glob("*.json")):
        text = path.read_text()
        document = json.loads(text)
        name = schema_of(document)
        for error in validators[name].iter_errors(document):
            where = "/".join(str(step) for step in error.path)
            faults.append(f"{name}: {where}: {error.message}\n{text}")
        for place in places_in(document):
            if f'<a id="{place}"></a>' not in page:
                faults.append(f"{name}: docs/round-trip.md has no '{place}'")
        if len(text) > len(fullest.get(name, "")):
            fullest[name] = text
    for name, text in fullest.items():
        damages = list(DAMAGES)
        if list(objects_in(json.loads(text))):
            damages += INNER_DAMAGES
        for damage in damages:
            damaged = copy.deepcopy(json.loads(text))
            damage(damaged)
            if validators[name].is_valid(damaged):
                faults.append(f"{name}: a document {damage.__name__} passes")
    for fault in faults:
        print(fault, file=sys.stderr)
    return 1 if faults or not fullest else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
