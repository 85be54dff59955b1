"""What the library tells, as plain records. Values are not in their hashes: that
of a chain is a list."""

from __future__ import annotations

import dataclasses
from typing import Any

from .values import Value, from_json, member


@dataclasses.dataclass(frozen=True)
class Processor:
    """A processor that a debugger can reach.

    name: its instance name; type: that of its component in the design
    connections: those that it allows, such as "hw" and "sim"
    """

    name: str
    type: str
    number: int
    connections: tuple[str, ...]

    @classmethod
    def of(cls, document: dict[str, Any]) -> Processor:
        return cls(document["instanceName"], document["type"],
                   document["cpuNr"], tuple(document["connections"]))


@dataclasses.dataclass(frozen=True)
class Undebuggable:
    """A processor that no debugger reaches, and why."""

    name: str
    type: str
    reason: str

    @classmethod
    def of(cls, document: dict[str, Any]) -> Undebuggable:
        return cls(document["instanceName"], document["type"],
                   document["reason"])


@dataclasses.dataclass(frozen=True)
class Diagnostic:
    """Something that is wrong with a design or a command.

    Of a design: file and line. Of a command: code (which `zeldebug
    explain-code` knows), offset and length of the word in bytes, accepted words
    and the nearest of them.
    """

    severity: str
    message: str
    file: str | None = None
    line: int | None = None
    code: str | None = None
    offset: int | None = None
    length: int | None = None
    accepted: tuple[str, ...] = ()
    suggestion: str | None = None

    @classmethod
    def of(cls, document: dict[str, Any]) -> Diagnostic:
        return cls(document["severity"],
                   document.get("summary") or document["message"],
                   document.get("file"), document.get("line"),
                   document.get("code"), document.get("offset"),
                   document.get("length"),
                   tuple(document.get("accepted") or ()),
                   document.get("suggestion"))


@dataclasses.dataclass(frozen=True)
class Effect:
    """A setting that is not what it was. A change tells of those that were not
    asked for, and so does a draft, and what goes to a file of a project; all
    else tells of every one.

    before, after: the same where `copy_from` could not take a value over
    """

    setting: str
    before: Value = dataclasses.field(hash=False)
    after: Value = dataclasses.field(hash=False)
    why: str

    @classmethod
    def of(cls, document: dict[str, Any]) -> Effect:
        return cls(document["setting"], member(document, "before"),
                   member(document, "after"), document["why"])


@dataclasses.dataclass(frozen=True)
class Loss:
    """A setting that a saved configuration does not bring back.

    value: what was to be saved; read_back: what comes back instead
    code: a stable word, which `zeldebug explain-code` knows
    displaced_by: the setting that takes its place, if one does
    blocking: whether saving is refused because of it
    """

    setting: str
    value: Value = dataclasses.field(hash=False)
    read_back: Value = dataclasses.field(hash=False)
    reason: str
    code: str
    displaced_by: str | None
    blocking: bool

    @classmethod
    def of(cls, document: dict[str, Any]) -> Loss:
        return cls(document["field"], member(document, "value"),
                   member(document, "readBack"), document["reason"],
                   document["code"], document.get("displacedBy") or None,
                   document["blocking"])


@dataclasses.dataclass(frozen=True)
class Difference:
    """A setting that is not as it is saved."""

    setting: str
    saved: Value = dataclasses.field(hash=False)
    now: Value = dataclasses.field(hash=False)

    @classmethod
    def of(cls, document: dict[str, Any]) -> Difference:
        return cls(document["setting"], member(document, "saved"),
                   member(document, "now"))


@dataclasses.dataclass(frozen=True)
class Choice:
    """One of the values of a setting that has few.

    reason: why it can't be chosen here; None if it can
    """

    value: Value
    label: str
    reason: str | None

    @classmethod
    def of(cls, document: dict[str, Any]) -> Choice:
        return cls(from_json(document["value"]), document["label"],
                   document.get("reason"))


@dataclasses.dataclass(frozen=True)
class Said:
    """What the files of a project say of a setting, and where.

    layer: "project", "local", "probe:NAME" or "profile:NAME"
    file, line, column: the place, from 1, in bytes
    value: None of what is shown of the connection
    """

    layer: str
    file: str
    line: int
    column: int
    value: Value | None = dataclasses.field(hash=False)

    @classmethod
    def of(cls, document: dict[str, Any]) -> Said:
        value = from_json(document["value"], document.get("bytes")) \
            if "value" in document else None
        return cls(document["layer"], document["file"], document["line"],
                   document["column"], value)


@dataclasses.dataclass(frozen=True)
class SaidCommand:
    """The command that the files of a project make for a processor.

    command: None where they make none
    problem: why; file, line, column: the place of it, from 1, in bytes
    remarks: what there is to say of them
    """

    command: str | None
    problem: str | None
    file: str | None
    line: int | None
    column: int | None
    remarks: tuple[Diagnostic, ...]

    @classmethod
    def of(cls, document: dict[str, Any]) -> SaidCommand:
        return cls(document["command"], document.get("problem"),
                   document.get("file"), document.get("line"),
                   document.get("column"),
                   tuple(map(Diagnostic.of, document["remarks"])))


@dataclasses.dataclass(frozen=True)
class Setting:
    """A setting of a configuration, and what is known of it.

    text: the value for people; default: of a cable's setting that of the cable
    origin: "default", "design", "file:<column>", "command:<column>", "changed",
    or "project" where it started as the files of a project say
    applicable: whether the command depends on it; reason: why it does not
    draft: a text that is no value; error: what is wrong with it
    choices: all that there are, with the reason against some; or none
    said: what the files of the board's project say of it
    """

    id: str
    value: Value = dataclasses.field(hash=False)
    text: str
    default: Value = dataclasses.field(hash=False)
    origin: str
    applicable: bool
    reason: str | None
    draft: str | None
    error: str | None
    choices: tuple[Choice, ...]
    said: Said | None = None

    @classmethod
    def of(cls, name: str, document: dict[str, Any]) -> Setting:
        return cls(name, from_json(document["value"], document.get("bytes")),
                   document["text"], from_json(document["default"]),
                   document["origin"], document["applicable"],
                   document.get("reason"), document.get("draft"),
                   document.get("error"),
                   tuple(map(Choice.of, document.get("choices", ()))),
                   Said.of(document["project"]) if "project" in document
                   else None)


@dataclasses.dataclass(frozen=True)
class Written:
    """What a change has written to a file of a project.

    file: the one that says it now; changed: whether it did not do so before
    remarks: what there is to say of it
    """

    file: str
    changed: bool
    remarks: tuple[Diagnostic, ...]

    @classmethod
    def of(cls, document: dict[str, Any]) -> Written:
        return cls(document["file"], document["changed"],
                   tuple(map(Diagnostic.of, document["remarks"])))


@dataclasses.dataclass(frozen=True)
class SettingInfo:
    """A setting of any configuration: a row of the table of settings.

    choices: its values, where it has few; a configuration tells which of them it
    allows
    """

    id: str
    group: str
    label: str
    help: str
    kind: str
    unit: str | None
    minimum: int | None
    maximum: int | None
    settable: bool
    together: tuple[str, ...]
    choices: tuple[Choice, ...]

    @classmethod
    def of(cls, document: dict[str, Any]) -> SettingInfo:
        return cls(document["id"], document["group"], document["label"],
                   document["help"], document["kind"], document.get("unit"),
                   document.get("minimum"), document.get("maximum"),
                   document["settable"], tuple(document.get("together", ())),
                   tuple(map(Choice.of, document.get("choices", ()))))


@dataclasses.dataclass(frozen=True)
class Saved:
    """What became of saving: the file, the command in it, and what it does not
    bring back."""

    file: str
    command: str
    losses: tuple[Loss, ...]

    @classmethod
    def of(cls, document: dict[str, Any]) -> Saved:
        return cls(document["file"], document["command"],
                   tuple(map(Loss.of, document["losses"])))
