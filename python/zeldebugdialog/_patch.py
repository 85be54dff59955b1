"""JSON Patch (RFC 6902), as far as the library writes it."""

from __future__ import annotations

from typing import Any


def _tokens(pointer: str) -> list[str]:
    return [token.replace("~1", "/").replace("~0", "~")
            for token in pointer.split("/")[1:]]


def apply(document: Any, patch: list[dict[str, Any]]) -> Any:
    """The document with a patch applied. The one that was given stays as it is;
    what the patch leaves alone is part of both.

    >>> first = {"a": [1, 2], "b": 3}
    >>> apply(first, [
    ...     {"op": "remove", "path": "/a/0"},
    ...     {"op": "add", "path": "/a/-", "value": 4},
    ...     {"op": "replace", "path": "/b", "value": 5}])
    {'a': [2, 4], 'b': 5}
    >>> first
    {'a': [1, 2], 'b': 3}
    """
    for step in patch:
        document = _changed(document, _tokens(step["path"]), step)
    return document


def _changed(place: Any, tokens: list[str], step: dict[str, Any]) -> Any:
    if not tokens:
        return step["value"]
    first, *rest = tokens
    copy = place.copy()
    if rest:
        at = int(first) if isinstance(place, list) else first
        copy[at] = _changed(place[at], rest, step)
    else:
        _apply_to(copy, first, step)
    return copy


def _apply_to(place: Any, last: str, step: dict[str, Any]) -> None:
    operation = step["op"]
    if operation not in ("add", "remove", "replace"):
        raise ValueError(f"a patch with the operation '{operation}'")
    if not isinstance(place, list):
        if operation == "remove":
            del place[last]
        else:
            place[last] = step["value"]
    elif operation == "remove":
        del place[int(last)]
    elif operation == "replace":
        place[int(last)] = step["value"]
    else:
        place.insert(len(place) if last == "-" else int(last), step["value"])
