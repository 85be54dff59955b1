"""The page that says what each method takes and answers, made from the schemas."""

HEAD = """# Every method and member

What [the protocol](protocol.md) takes and answers, member by member. This page is made from the same tables as the schemas in [schema/](schema/); [protocol.openrpc.json](schema/protocol.openrpc.json) has the methods for programs, as an [OpenRPC](https://spec.open-rpc.org/) document.

A member whose description begins with "Optional" is left out where it does not apply.

## Methods
"""


KINDS = {"string": "a text", "integer": "a whole number", "number": "a number", "boolean": "true or false",
         "object": "an object", "array": "an array", "null": "null"}


def types_of(schema):
    return schema["type"] if isinstance(schema["type"], list) else [schema["type"]]


def kind_of(schema):
    """A schema in a word or two."""
    if "const" in schema:
        return repr(schema["const"]).replace("'", '"')
    if "enum" in schema and "type" not in schema:
        return "one of several"
    if "oneOf" in schema or "$ref" in schema and schema["$ref"].endswith("/value"):
        return "a value"
    if "$ref" in schema:
        last = schema["$ref"].rpartition("/")[2]
        if last in ("names", "diagnostics", "losses", "faults"):
            return "an array"
        return {"result": "a number", "nullableText": "a text, or null", "anything": "anything"}.get(last, "an object")
    return ", or ".join(KINDS[each] for each in types_of(schema))


def row(*cells):
    return "| " + " | ".join(cell.replace("|", "\\|") for cell in cells) + " |"


def members(properties):
    lines = ["", "| member | is | meaning |", "|---|---|---|"]
    lines += [row(f"`{name}`", kind_of(schema), described(schema)) for name, schema in properties.items()]
    return lines


def described(schema):
    return schema.get("description", "")


def nested(place, schema):
    """The tables of all objects in a schema, but for those behind references."""
    if schema.get("type") == "array" or "items" in schema:
        yield from nested(place, schema["items"])
    for each in schema.get("oneOf", []):
        yield from nested(place, each)
    if schema.get("properties"):
        yield place, schema["properties"]
        for name, inner in schema["properties"].items():
            yield from nested(f"{place}.{name}" if place else name, inner)


def tables(schema, lines):
    last = None
    for place, properties in nested("", schema):
        if place:
            lines += ["", "Or else:" if place == last else f"Of `{place}`:"]
        last = place
        lines += members(properties)


def title(lines, heading, schema):
    lines += ["", f"## {heading}"]
    tables(schema, lines)


def any_setting(settings):
    """What is true of every setting: one with choices, and with the kinds of value of all."""
    one = next(each for each in settings if "choices" in each["properties"])
    properties = dict(one["properties"])
    for member in ("value", "default"):
        found = {kind for each in settings for kind in types_of(each["properties"][member])}
        properties[member] = {**properties[member], "type": [kind for kind in KINDS if kind in found]}
    return {**one, "properties": properties}


def page(content, schemas):
    lines = [HEAD.rstrip()]
    results, told = schemas["results"]["properties"], []
    for method in content["methods"]:
        lines += ["", f"### {method['name']}", "", method["summary"]]
        if method["params"]:
            lines += ["", "| parameter | is | meaning |", "|---|---|---|"]
            lines += [row(f"`{each['name']}`", kind_of(each["schema"]),
                          ("" if each["required"] else "Optional: ") + each["summary"]) for each in method["params"]]
        result = results[method["name"]]
        like = next((name for name in told if results[name].get("properties") == result.get("properties")), None)
        if result.get("properties") and like:
            lines += ["", f"The result has the members of that of `{like}`."]
        elif result.get("properties"):
            told.append(method["name"])
            lines += ["", "The result:"]
            tables(result, lines)
        elif result.get("type") == "object":
            lines += ["", "The result has no members."]
        elif result.get("type") == "null":
            lines += ["", "A request is answered with null."]
        else:
            lines += ["", "The result is [the table of settings](#the-table-of-settings)."]
    state = dict(schemas["state"]["properties"])
    settings, device = state["settings"]["properties"], state["chain"]["items"]["properties"]
    one = any_setting(list(settings.values()))
    # Each is told by the table of settings; what is told of all of them stands once.
    state["settings"] = {"type": "object", "description": described(state["settings"])}
    state["chain"] = {"type": "array", "items": {}, "description": described(state["chain"])}
    title(lines, "The state", {"properties": state})
    title(lines, "A setting in the state", one)
    lines += ["", "The settings of a device of the chain are " +
              ", ".join(f"`{name}`" for name in device) + "; the others are:", ""]
    lines += ["| setting | meaning |", "|---|---|"]
    lines += [row(f"`{name}`", described(each)) for name, each in settings.items()]
    title(lines, "What the files of a project say of a setting", schemas["state"]["$defs"]["said"])
    title(lines, "What there is to say of the files of a project", schemas["state"]["$defs"]["remark"])
    title(lines, "The table of settings", schemas["settings"])
    title(lines, "An error", schemas["error"])
    title(lines, "A step of a patch", schemas["results"]["$defs"]["patchStep"])
    return "\n".join(lines) + "\n"


def undescribed(schemas):
    """The members that no schema says anything of."""
    for name, schema in schemas.items():
        for place, properties in nested("", schema):
            for member, inner in properties.items():
                if not described(inner) and "$ref" not in inner:
                    yield f"protocol-{name}.schema.json: nothing is said of {place}.{member}"
