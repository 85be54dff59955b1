"""Connect commands as texts."""

from __future__ import annotations

import dataclasses
from typing import Any

from ._library import server
from .records import Diagnostic, SettingInfo
from .values import Device, Value, from_json


@dataclasses.dataclass(frozen=True)
class Word:
    """A word of a command, and the setting that it says something of.

    offset and length are bytes of UTF-8."""

    offset: int
    length: int
    text: str
    role: str
    setting: str | None
    value: Value


@dataclasses.dataclass(frozen=True)
class Completion:
    """What could stand in place of the bytes from `start` to `end`."""

    start: int
    end: int
    words: tuple[str, ...]


def version() -> str:
    """That of the library.

    >>> version().count(".")
    2
    """
    return server().version()


def settings() -> tuple[SettingInfo, ...]:
    """The table of settings.

    >>> [row.label for row in settings() if row.id == "cable.frequency"]
    ['Frequency']
    """
    rows = server().call("settings")["settings"]
    return tuple(map(SettingInfo.of, rows))


def check(command: str) -> list[Diagnostic]:
    """What is wrong with a command, or surely not meant.

    >>> for one in check("connect lc hdu -cabel type quorla_podusb"):
    ...     print(one.severity, one.message, "->", one.suggestion)
    error '-cabel' is no option here -> -cable
    """
    answer = server().call("command/check", command=command)
    return [Diagnostic.of(one) for one in answer["diagnostics"]]


def explain(command: str) -> list[Word]:
    """What each word of a command does.

    >>> explain("connect lc hdu")[2].setting
    'connectionType'
    """
    words: list[dict[str, Any]] = server().call(
        "command/explain", command=command)["words"]
    return [Word(word["offset"], word["length"], word["text"], word["role"],
                 word["field"], from_json(word["value"])) for word in words]


def diff(first: str, second: str) \
        -> dict[str, tuple[Value | Device, Value | Device]]:
    """The settings in which two commands differ. A device that only one of
    them has stands as a whole, as "chain[0]", and None for it in the other.

    >>> diff("connect lc hdu", "connect lc hdu -debugdevice devicenr 3")
    {'debugDevice': (0, 3)}
    """
    answer = server().call("command/diff", first=first, second=second)
    return {one["name"]: (from_json(one["before"]), from_json(one["after"]))
            for one in answer["differences"]}


def complete(command: str, offset: int | None = None) -> Completion:
    """What could stand at an offset (in bytes), the end unless it is given.

    >>> complete("connect lc h").words
    ('hdu',)
    """
    if offset is None:
        offset = len(command.encode())
    answer = server().call("command/complete", command=command, offset=offset)
    return Completion(answer["from"], answer["to"],
                      tuple(word["text"] for word in answer["words"]))
