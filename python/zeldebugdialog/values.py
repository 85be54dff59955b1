"""Values of settings, between Python and JSON."""

from __future__ import annotations

import base64
import os
from collections.abc import Mapping
from typing import Any, Union

#: A device of a JTAG chain: values by the names of its settings, such as
#: {"partname": "pk9ab100", "devicenr": 1}.
Device = dict[str, Any]

#: What a setting has: a flag or number, a text, bytes for a text that is no
#: UTF-8, None for nothing, and the devices of a chain.
Value = Union[bool, int, str, bytes, None, list[Device]]


def from_json(value: Any, data: Any = None) -> Value:
    """A value of the library; `data` is what stands beside a text that is no
    UTF-8, in base64; beside a chain with such texts, those of each device.

    >>> from_json("\ufffd", "/w==")
    b'\\xff'
    >>> from_json([{"partname": "\ufffd", "devicenr": 1}], [{"partname": "/w=="}])
    [{'partname': b'\\xff', 'devicenr': 1}]
    """
    if isinstance(data, str):
        return base64.b64decode(data)
    if isinstance(data, list):
        return [{**device, **{name: from_json(None, text)
                              for name, text in texts.items()}}
                for device, texts in zip(value, data)]
    if isinstance(value, Mapping) and set(value) == {"bytes"}:
        return base64.b64decode(value["bytes"])
    if isinstance(value, list):
        return [dict(device) for device in value]
    return value  # type: ignore[no-any-return]


def member(document: dict[str, Any], name: str) -> Value:
    """A value that a record shows, whose bytes may stand beside it."""
    return from_json(document.get(name), document.get("bytes", {}).get(name))


def to_json(value: object) -> Any:
    """A value as the library takes it.

    >>> import pathlib
    >>> to_json(b"\\xff")
    {'bytes': '/w=='}
    >>> to_json(pathlib.PurePosixPath("a/b"))
    'a/b'
    """
    if isinstance(value, (bytes, bytearray)):
        return {"bytes": base64.b64encode(value).decode("ascii")}
    if isinstance(value, Mapping):
        return {name: to_json(part) for name, part in value.items()}
    if isinstance(value, (list, tuple)):
        return [to_json(part) for part in value]
    if isinstance(value, os.PathLike):
        return to_json(os.fspath(value))
    return value
