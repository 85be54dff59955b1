"""A configuration that a program works on."""

from __future__ import annotations

import contextlib
import dataclasses
import threading
import weakref
from collections.abc import Iterable, Iterator, Mapping, MutableMapping
from collections.abc import MutableSequence
from typing import Any, overload

from ._library import NULL, Opened, Server
from ._patch import apply
from .errors import ProtocolError, Refused
from .records import Diagnostic, Difference, Effect, Loss, Saved
from .records import SaidCommand, Setting, Written
from .values import Device, Value, from_json, to_json

_CHAIN = "chain"


def close_quietly(opened: Server, kind: str, handle: int) -> None:
    """Closes a board or a configuration that may be closed already."""
    try:
        opened.call(f"{kind}/close", **{kind: handle})
    except ProtocolError:
        pass


@contextlib.contextmanager
def forgetting(*configurations: Configuration) -> Iterator[None]:
    """Around a request for a patch: where it is lost after all, as by an
    interrupt, these have to ask for their states."""
    try:
        yield
    except BaseException as problem:
        if not isinstance(problem, (Refused, ProtocolError)) \
                or problem.kind == "internal":
            for one in configurations:
                one.__dict__["_told"] = None
        raise


def _value_in(state: dict[str, Any], name: str) -> Value:
    if name == _CHAIN:  # whose texts have their bytes beside them
        return [{field: from_json(one["value"], one.get("bytes"))
                 for field, one in device.items()}
                for device in state["chain"]]
    setting = state["settings"][name]
    return from_json(setting["value"], setting.get("bytes"))


class _ChainAttribute:
    """What is read is a chain, and what is given any devices: types of a
    property are one."""

    @overload
    def __get__(self, one: None, kind: type) -> _ChainAttribute: ...
    @overload
    def __get__(self, one: Configuration, kind: type) -> Chain: ...

    def __get__(self, one: Configuration | None,
                kind: type) -> Chain | _ChainAttribute:
        return self if one is None else Chain(one)

    def __set__(self, one: Configuration, devices: Iterable[Device]) -> None:
        one.change({_CHAIN: list(devices)})


class Configuration(Opened, MutableMapping[str, Value]):
    """The settings of one processor, by their names.

    It is a mapping, and has each setting as an attribute as well. A setting is
    given a value of its own kind, or the text that a person would type for it:

    >>> import zeldebugdialog
    >>> board = zeldebugdialog.Board("board/board.xml")
    >>> configuration = board.configuration("lumacore_0")
    >>> configuration["cable.cableType"] = "quorla_podusb"
    >>> configuration.cable.frequency
    6000000
    >>> configuration.cable.frequency = "3 MHz"
    >>> configuration.command
    'connect lc hdu -cable type quorla_podusb port USB21 frequency 3000000 -debugdevice cpunr 1'

    Several that hold together are changed together, all or none of them, in
    whatever order:

    >>> for effect in configuration.change({"cable.esn": "00:12", "debugDevice": 2}):
    ...     print(effect.setting, effect.after)
    >>> del configuration["cable.esn"]  # back to its default

    Any thread may use it; two that use it at once take turns. What is changed
    is saved by `save` only.
    """

    _server: Server
    _handle: int
    # The state, a new one after each change; none where an answer was lost.
    _told: dict[str, Any] | None
    _lock: threading.RLock
    _written: Written | None
    _finalizer: Any

    def __init__(self, server: Server, board: int, processor: str) -> None:
        opened = server.call("configuration/open", board=board,
                             processor=processor)
        own = self.__dict__
        own["_server"] = server
        own["_handle"] = opened["configuration"]
        own["_told"] = opened["state"]
        own["_lock"] = threading.RLock()
        own["_written"] = None
        finalizer = weakref.finalize(self, close_quietly, server,
                                     "configuration", self._handle)
        finalizer.atexit = False
        own["_finalizer"] = finalizer

    # --- Changing: each tells what has become different -----------------------

    def change(self, values: Mapping[str, object],
               into: str | None = None) -> list[Effect]:
        """Gives settings values: each has it afterwards, or nothing changed.
        Of a project's board, `into` writes them to a file as well: "local",
        "project" or "profile:NAME"; `written` says what that has come to.

        It raises Refused (unknown-setting, not-settable, bad-value,
        not-allowed, excluded; with `into` what is wrong with the files, and
        changed-on-disk where they name another board)."""
        return self._effects("configuration/change", values=to_json(values),
                             into=into)

    def draft(self, setting: str, text: str | None) -> list[Effect]:
        """Takes a text as it is typed. A value acts as `change`; another text
        stays in the setting's `draft`, with its `error`, and changes nothing.
        None drops it. The setting "command" takes a whole command."""
        return self._effects("configuration/draft", setting=setting,
                             text=NULL if text is None else text)

    def edit(self, command: str) -> list[Effect]:
        """Makes the settings of a command its own. A command with faults stays
        in `draft_command`, and its faults in `diagnostics`."""
        return self._effects("configuration/edit", command=command)

    def undo(self) -> list[Effect]:
        """Takes the last change back. It raises Refused (nothing-to-undo)."""
        return self._effects("configuration/undo")

    def redo(self) -> list[Effect]:
        """Does it again. It raises Refused (nothing-to-redo)."""
        return self._effects("configuration/redo")

    def revert(self) -> list[Effect]:
        """Back to what is saved, drafts and all."""
        return self._effects("configuration/revert")

    def reset(self, *settings: str | Iterable[str],
              into: str | None = None) -> list[Effect]:
        """Back to the defaults: of these settings, or of all. With `into` a
        file of the project says nothing of them any more, nor what is below.

        The names may be in a list, too: `reset([])` is of none."""
        names = [name for one in settings
                 for name in ([one] if isinstance(one, str) else one)]
        return self._effects("configuration/reset",
                             settings=names if settings else None, into=into)

    def copy_from(self, other: Configuration) -> list[Effect]:
        """Everything of another one but what says which processor it is. What
        this processor does not allow is told with its value as it stays."""
        return self._effects("configuration/copy", **{"from": other._handle})

    def save(self, force: bool = False) -> Saved:
        """Saves the option file, wholly or not at all.

        It raises Refused (would-be-lost, unreadable, changed-on-disk, read-only:
        not with `force`; draft, no-command, no-regular-file, no-folder,
        file-system)."""
        with self._turn(), forgetting(self):
            answer = self._call("configuration/save", force=force)
            self._patched(answer)
            return Saved.of(answer)

    # --- Asking ---------------------------------------------------------------

    @property
    def processor(self) -> str:
        """The name of its processor."""
        return str(self._state["processor"])

    @property
    def file(self) -> str:
        """The option file that it saves."""
        return str(self._state["file"])

    @property
    def exists(self) -> bool:
        """Whether the file is there: looks at it now."""
        return bool(self._asked()["exists"])

    @property
    def problem(self) -> str | None:
        """Why what is saved could not be read: then it starts from the
        defaults, and saving needs `force`."""
        return self._text("problem")

    @property
    def project(self) -> SaidCommand | None:
        """What the files of the board's project make of it, if there is one."""
        said = self._state.get("project")
        return None if said is None else SaidCommand.of(said)

    @property
    def dirty(self) -> bool:
        """Whether it is not what is saved."""
        return bool(self._state["dirty"])

    @property
    def changed_on_disk(self) -> bool:
        """Whether the file is no longer what was loaded: looks at it now."""
        return bool(self._asked()["changedOnDisk"])

    @property
    def command(self) -> str | None:
        """What would be saved; None where no command can be written."""
        return self._text("command")

    @property
    def command_error(self) -> str | None:
        """Why no command can be written."""
        return self._text("commandError")

    @property
    def edited_command(self) -> str | None:
        """The command that was taken, where it is not the one that is
        written."""
        return self._text("editedCommand")

    @property
    def draft_command(self) -> str | None:
        """A command with faults."""
        return self._text("draft")

    @property
    def losses(self) -> list[Loss]:
        """What saving would lose."""
        return [Loss.of(loss) for loss in self._state["losses"]]

    @property
    def differences(self) -> list[Difference]:
        """What is not as it is saved."""
        return [Difference.of(one) for one in self._state["differences"]]

    @property
    def diagnostics(self) -> list[Diagnostic]:
        """What is wrong with the draft of a command, or doubtful in the
        command."""
        return [Diagnostic.of(one) for one in self._state["diagnostics"]]

    @property
    def written(self) -> Written | None:
        """What the last change has written to a file of the project."""
        return self._written

    def setting(self, name: str) -> Setting:
        """All that is known of a setting. It raises KeyError."""
        state = self._state
        return dataclasses.replace(
            Setting.of(name, state["settings"][name]),
            value=_value_in(state, name))

    #: The devices of the JTAG chain, as a list.
    chain = _ChainAttribute()

    def refresh(self) -> None:
        """Asks for everything anew, such as whether the file has changed."""
        self._asked()

    # --- As a mapping ----------------------------------------------------------

    def __getitem__(self, name: str) -> Value:
        return _value_in(self._state, name)

    def __setitem__(self, name: str, value: object) -> None:
        self.change({name: value})

    def __delitem__(self, name: str) -> None:
        self.reset(name)

    def __iter__(self) -> Iterator[str]:
        return iter(list(self._state["settings"]))

    def __len__(self) -> int:
        return len(self._state["settings"])

    def update(self, *values: Any, **more: Any) -> None:
        """As `change`: all or none."""
        self.change(dict(*values, **more))

    def clear(self) -> None:
        """As `reset()`."""
        self.reset()

    # --- As attributes ---------------------------------------------------------

    def __getattr__(self, name: str) -> Any:
        if not name.startswith("_"):
            if name in self._state["settings"]:
                return self[name]
            if self._has_group(name):
                return Group(self, name)
        raise AttributeError(f"'{name}' is no setting")

    def __setattr__(self, name: str, value: object) -> None:
        if hasattr(getattr(type(self), name, None), "__set__"):
            super().__setattr__(name, value)
        elif name in self._state["settings"]:
            self[name] = value
        else:
            raise AttributeError(f"'{name}' is no setting")

    def __delattr__(self, name: str) -> None:
        if name not in self._state["settings"]:
            raise AttributeError(f"'{name}' is no setting")
        del self[name]

    def __dir__(self) -> Iterable[str]:
        names = {name.partition(".")[0] for name in self}
        return sorted({*super().__dir__(), *names})

    def _has_group(self, name: str) -> bool:
        return any(each.startswith(name + ".") for each in self)

    # --- Open and closed -------------------------------------------------------

    def close(self) -> None:
        """Closes it; what is not saved is gone. Closing it again does
        nothing."""
        with contextlib.suppress(ProtocolError):  # of a forked process
            with self._turn():  # not while it is being saved
                self._finalizer()

    @property
    def _is_open(self) -> bool:
        return bool(self._finalizer.alive)

    def __enter__(self) -> Configuration:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def __eq__(self, other: object) -> bool:
        return self is other

    def __hash__(self) -> int:
        return id(self)

    def __repr__(self) -> str:
        state = self._state
        command = state["command"] or f"no command: {state.get('commandError')}"
        return (f"<Configuration of '{state['processor']}'"
                f"{', not saved' if state['dirty'] else ''}: {command}>")

    # --- Requests --------------------------------------------------------------

    def _turn(self) -> threading.RLock:
        self._server.expect_here()
        return self._lock

    def _call(self, method: str, **parameters: object) -> Any:
        return self._server.call(method, configuration=self._handle,
                                 **parameters)

    def _asked(self) -> dict[str, Any]:
        with self._turn():
            state: dict[str, Any] = self._call("configuration/state")["state"]
            self.__dict__["_told"] = state
            return state

    @property
    def _state(self) -> dict[str, Any]:
        told = self._told
        return self._asked() if told is None else told

    def _effects(self, method: str, **parameters: object) -> list[Effect]:
        with self._turn(), forgetting(self):
            return self._patched(self._call(method, **parameters))

    def _patched(self, answer: dict[str, Any]) -> list[Effect]:
        if self._told is not None:
            self.__dict__["_told"] = apply(self._told, answer["patch"])
        written = answer.get("written")
        self.__dict__["_written"] = written and Written.of(written)
        return [Effect.of(effect) for effect in answer.get("effects", [])]

    def _text(self, member: str) -> str | None:
        text = self._state.get(member)
        return None if text is None else str(text)


class Group:
    """Settings whose names begin alike, as attributes: `configuration.cable`."""

    def __init__(self, configuration: Configuration, name: str) -> None:
        self.__dict__["_configuration"] = configuration
        self.__dict__["_name"] = name

    def __getattr__(self, name: str) -> Value:
        try:
            return self._whole[f"{self.__dict__['_name']}.{name}"]
        except KeyError as missing:
            raise AttributeError(f"{missing} is no setting") from None

    def __setattr__(self, name: str, value: object) -> None:
        self._whole[self._known(name)] = value

    def __delattr__(self, name: str) -> None:
        del self._whole[self._known(name)]

    def __dir__(self) -> Iterable[str]:
        front = self.__dict__["_name"] + "."
        return sorted(name[len(front):] for name in self._whole
                      if name.startswith(front))

    def __repr__(self) -> str:
        front = self.__dict__["_name"]
        state = self._whole._state
        values = ", ".join(f"{name}={_value_in(state, f'{front}.{name}')!r}"
                           for name in dir(self))
        return f"<{front}: {values}>"

    def _known(self, name: str) -> str:
        full = f"{self.__dict__['_name']}.{name}"
        if full not in self._whole:
            raise AttributeError(f"'{full}' is no setting")
        return full

    @property
    def _whole(self) -> Configuration:
        whole: Configuration = self.__dict__["_configuration"]
        return whole


class Chain(MutableSequence[Device]):
    """The devices of a JTAG chain. Each change of the list is a change of the
    configuration; a device that was taken out of it is a copy."""

    def __init__(self, configuration: Configuration) -> None:
        self._configuration = configuration

    def _devices(self) -> list[Device]:
        devices = self._configuration[_CHAIN]
        assert isinstance(devices, list)
        return devices

    @contextlib.contextmanager
    def _changed(self) -> Iterator[list[Device]]:
        """The devices, which are given to the configuration afterwards; no
        other thread changes it meanwhile."""
        with self._configuration._turn():
            devices = self._devices()
            yield devices
            self._configuration.change({_CHAIN: devices})

    @overload
    def __getitem__(self, index: int) -> Device: ...
    @overload
    def __getitem__(self, index: slice) -> list[Device]: ...

    def __getitem__(self, index: int | slice) -> Device | list[Device]:
        return self._devices()[index]

    @overload
    def __setitem__(self, index: int, value: Device) -> None: ...
    @overload
    def __setitem__(self, index: slice, value: Iterable[Device]) -> None: ...

    def __setitem__(self, index: int | slice, value: Any) -> None:
        with self._changed() as devices:
            devices[index] = value

    def __delitem__(self, index: int | slice) -> None:
        with self._changed() as devices:
            del devices[index]

    def __len__(self) -> int:
        return len(self._devices())

    def __iter__(self) -> Iterator[Device]:
        return iter(self._devices())

    def insert(self, index: int, value: Device) -> None:
        with self._changed() as devices:
            devices.insert(index, value)

    def extend(self, values: Iterable[Device]) -> None:
        """All of them in one change."""
        more = list(values)
        with self._changed() as devices:
            devices += more

    def __add__(self, others: Iterable[Device]) -> list[Device]:
        return [*self._devices(), *others]

    def __eq__(self, other: object) -> bool:
        return isinstance(other, (Chain, list)) and list(self) == list(other)

    def __repr__(self) -> str:
        return repr(self._devices())
