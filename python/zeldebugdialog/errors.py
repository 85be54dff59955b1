"""What the package raises."""

from __future__ import annotations

from typing import Any


class ZelDebugDialogError(Exception):
    """The base of all of them. Each is made anew of its message alone, and then
    gets its attributes: so it is copied, and comes out of another process."""


class LibraryNotFound(ZelDebugDialogError):
    """The library libzeldebugdialog-c could not be loaded."""


class Refused(ZelDebugDialogError):
    """Something that was asked for can't be done, and nothing was.

    Attributes that do not apply are None, or empty.

    kind: a stable word, such as "bad-value", "would-be-lost", "unknown-setting"
    setting: the setting at fault
    value: what was given, as a text
    problem: what is wrong, without its subject
    accepted: what would have been accepted
    suggestion: the nearest of them
    file, line: the file at fault, and the line in it, from 1
    faults: of the files of a project, all that is wrong, as dictionaries with
    file, line, column, code, message, accepted and suggestion
    """

    def __init__(self, message: str,
                 data: dict[str, Any] | None = None) -> None:
        super().__init__(message)
        told = data or {}
        self.kind: str = told.get("kind", "")
        self.setting: str | None = told.get("setting")
        self.value: str | None = told.get("value")
        self.problem: str = told.get("message", message)
        self.accepted: list[str] = list(told.get("accepted", []))
        self.suggestion: str | None = told.get("suggestion")
        self.file: str | None = told.get("file")
        self.line: int | None = told.get("line")
        self.faults: list[dict[str, Any]] = list(told.get("faults", []))


class ProtocolError(ZelDebugDialogError):
    """A request that the library does not understand, a value of a kind that no
    setting has, or what is closed.

    code: that of JSON-RPC 2.0, such as -32602 for wrong parameters
    parameter: the parameter at fault
    kind, setting, value, accepted, suggestion: as those of Refused
    """

    def __init__(self, message: str, code: int = -32602,
                 data: dict[str, Any] | None = None) -> None:
        super().__init__(message)
        told = data or {}
        self.code = code
        self.kind: str = told.get("kind", "")
        self.parameter: str | None = told.get("parameter")
        self.setting: str | None = told.get("setting")
        self.value: str | None = told.get("value")
        self.accepted: list[str] = list(told.get("accepted", []))
        self.suggestion: str | None = told.get("suggestion")
