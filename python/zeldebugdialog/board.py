"""A design, and the processors in it that a debugger can reach."""

from __future__ import annotations

import contextlib
import os
import threading
import weakref
from collections.abc import Iterable
from typing import Any

from ._library import Opened, server
from .configuration import Configuration, close_quietly, forgetting
from .errors import Refused
from .records import Diagnostic, Loss, Processor, Saved, Undebuggable

_Path = str | os.PathLike[str]


class Board(Opened):
    """The processors of one design, found once.

    design: its file; library: folders and catalogs of its components
    kinds: a table of what plays a part; view: that of each component
    max_instances: how many to look at; directory: option files lie in `etc/` of
    it, the current one unless it says otherwise
    project: in the place of all these, the project file that names them; with
    it, probe and profile choose of those that it has

    >>> board = Board("board/board.xml")
    >>> board
    <Board 'board/board.xml': 7 processors>
    >>> [processor.name for processor in board.processors][:2]
    ['lumacore_0', 'lumacore_1']
    >>> board.undebuggable[0].name
    'r5_0'

    `design` is the file that it was opened from, `warnings` what there is to
    say of the files of a project.

    It raises Refused where the design can't be read, or a project has faults.
    """

    def __init__(self, design: _Path | None = None, *,
                 library: _Path | Iterable[_Path] = (),
                 view: str | None = None, kinds: _Path | None = None,
                 max_instances: int | None = None,
                 directory: _Path | None = None, project: _Path | None = None,
                 probe: str | None = None, profile: str | None = None) -> None:
        if (design is None) == (project is None):
            raise TypeError("a board is of a design, or of a project")
        opened_as = design if project is None else project
        assert opened_as is not None
        self.design = os.fspath(opened_as)
        folders = [library] if isinstance(library, (str, os.PathLike)) \
            else library
        self._server = server()
        opened = self._server.call(
            "board/open", design=None if design is None else self.design,
            project=None if project is None else self.design,
            probe=probe, profile=profile,
            library=[os.fspath(folder) for folder in folders] or None,
            view=view, kinds=None if kinds is None else os.fspath(kinds),
            maxInstances=max_instances,
            directory=None if directory is None and project is not None
            else os.fspath(directory or "."))
        self._handle: int = opened["board"]
        self.processors: tuple[Processor, ...] = tuple(
            map(Processor.of, opened["processors"]))
        self.undebuggable: tuple[Undebuggable, ...] = tuple(
            map(Undebuggable.of, opened["undebuggable"]))
        self.diagnostics: tuple[Diagnostic, ...] = tuple(
            map(Diagnostic.of, opened["diagnostics"]))
        self.warnings: tuple[Diagnostic, ...] = tuple(map(
            Diagnostic.of, opened.get("project", {}).get("warnings", ())))
        self._configurations: weakref.WeakValueDictionary[
            int, Configuration] = weakref.WeakValueDictionary()
        # Around that. What is let go of meanwhile may use the board again.
        self._lock = threading.RLock()
        self._finalizer = weakref.finalize(self, close_quietly, self._server,
                                           "board", self._handle)
        # What a process has open ends with it.
        self._finalizer.atexit = False

    def configuration(self, processor: str) -> Configuration:
        """What is saved for a processor, or its defaults, to be worked on. Each
        call opens another one, independent of those before.

        It raises Refused (unknown-processor, not-debuggable)."""
        made = Configuration(self._server, self._handle, processor)
        made.__dict__["_board"] = self  # which stays open as long
        with self._lock:
            self._configurations[made._handle] = made
        return made

    def save(self, *configurations: Configuration,
             force: bool = False) -> list[Saved]:
        """Saves several at once: these, or all that are open. Each is saved
        wholly or not at all. Where some were refused, it raises the first
        Refused when the others have been saved; its notes (`__notes__`, which a
        traceback shows) tell the other refusals."""
        saved: list[Saved] = []
        refusals: list[Refused] = []
        for outcome in self._outcomes(configurations, force):
            error = outcome.get("error")
            if error is None:
                saved.append(Saved.of(outcome))
            else:
                refusals.append(Refused(error["message"],
                                        error.get("data", {})))
        if refusals:
            first, *others = refusals
            for other in others:
                first.add_note(f"refused as well: {other}")
            raise first
        return saved

    def _outcomes(self, configurations: tuple[Configuration, ...],
                  force: bool) -> list[dict[str, Any]]:
        self._server.expect_here()
        with self._lock:
            known = configurations or tuple(self._configurations.values())
        with contextlib.ExitStack() as turns:
            # What a change tells from another thread comes before or behind; in
            # one order, so that two of these don't wait for each other.
            for one in sorted(known, key=lambda each: each._handle):
                turns.enter_context(one._turn())
            if not configurations:
                known = tuple(one for one in known if one._is_open)
            turns.enter_context(forgetting(*known))
            answer = self._server.call(
                "board/save", board=self._handle, force=force,
                configurations=[one._handle for one in known])
            outcomes: list[dict[str, Any]] = answer["configurations"]
            by_handle = {one._handle: one for one in known}
            for outcome in outcomes:
                by_handle[outcome["configuration"]]._patched(outcome)
        return outcomes

    def losses(self) -> dict[str, list[Loss]]:
        """What would not survive of what is saved, by processor."""
        found: dict[str, list[Loss]] = {}
        for processor in self.processors:
            with self.configuration(processor.name) as one:
                if one.losses:
                    found[processor.name] = one.losses
        return found

    def close(self) -> None:
        """Closes it with its configurations; nothing is saved. Closing it again
        does nothing."""
        self._finalizer()

    def __enter__(self) -> Board:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def __repr__(self) -> str:
        return f"<Board {self.design!r}: {len(self.processors)} processors>"
