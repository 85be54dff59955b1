"""The C library, and requests to it."""

from __future__ import annotations

import ctypes
import itertools
import json
import os
import pathlib
import threading
from typing import Any, NoReturn, SupportsIndex

from .errors import LibraryNotFound, ProtocolError, Refused

_NAME = "libzeldebugdialog-c.so.1"
_REFUSED = 1
_OK = 0

#: A parameter that is null, where None would leave it out.
NULL = object()


def _load() -> ctypes.CDLL:
    """The library that the environment names, the one that came with the
    package, or that of the system."""
    beside = pathlib.Path(__file__).resolve().parent / _NAME
    named = os.environ.get("ZELDEBUGDIALOG_LIBRARY")
    place = named or (str(beside) if beside.exists() else _NAME)
    try:
        library = ctypes.CDLL(place)
        _declare(library)
    except OSError as problem:
        raise LibraryNotFound(f"{place} can't be loaded: {problem}") from None
    except AttributeError as missing:
        raise LibraryNotFound(f"{place} is another library: {missing}") \
            from None
    return library


def _declare(library: ctypes.CDLL) -> None:
    pointer = ctypes.c_void_p
    library.zdd_server_create.argtypes = [ctypes.POINTER(pointer)]
    library.zdd_server_release.argtypes = [pointer]
    library.zdd_answer.argtypes = [pointer, ctypes.c_char_p, ctypes.c_size_t,
                                   ctypes.POINTER(pointer),
                                   ctypes.POINTER(ctypes.c_size_t)]
    library.zdd_answer_release.argtypes = [pointer]
    library.zdd_version.argtypes = []
    library.zdd_version.restype = ctypes.c_char_p


class Server:
    """What this process has open in the library. Any thread may call."""

    def __init__(self) -> None:
        self._library = _load()
        self._server = ctypes.c_void_p()
        self._numbers = itertools.count(1)
        self._process = os.getpid()
        if self._library.zdd_server_create(ctypes.byref(self._server)) != _OK:
            raise MemoryError("no room for a server of debug configurations")

    def version(self) -> str:
        version: bytes = self._library.zdd_version()
        return version.decode()

    def call(self, method: str, **parameters: object) -> Any:
        """The result of a request; parameters that are None are left out.

        It raises Refused, ProtocolError."""
        self.expect_here()
        request = json.dumps({
            "jsonrpc": "2.0", "id": next(self._numbers), "method": method,
            "params": {name: None if value is NULL else value
                       for name, value in parameters.items()
                       if value is not None}}).encode()
        answer = json.loads(self._answer(request))
        if "error" not in answer:
            return answer["result"]
        error = answer["error"]
        if error["code"] == _REFUSED:
            raise Refused(error["message"], error.get("data", {}))
        raise ProtocolError(error["message"], error["code"],
                            error.get("data"))

    def expect_here(self) -> None:
        """Before anything waits for a lock that a thread may hold which the
        forked process does not have. It raises ProtocolError."""
        if self._process != os.getpid():
            raise ProtocolError("a forked process starts with nothing open")

    def _answer(self, request: bytes) -> bytes:
        text = ctypes.c_void_p()
        length = ctypes.c_size_t()
        try:
            status = self._library.zdd_answer(
                self._server, request, len(request), ctypes.byref(text),
                ctypes.byref(length))
            if status != _OK:
                raise MemoryError("no room for the answer to a request")
            return ctypes.string_at(text.value or 0, length.value)
        finally:
            self._library.zdd_answer_release(text)


class Opened:
    """What is open in the library: there is one of it."""

    def __reduce_ex__(self, _: SupportsIndex) -> NoReturn:
        raise TypeError(
            f"a {type(self).__name__} is open in the library of this process: "
            "it is neither copied nor pickled, and another one can be opened")


_lock = threading.Lock()
_server: Server | None = None


def server() -> Server:
    """That of this process, made on first use. It ends with the process:
    what is open in it belongs to boards, which close it."""
    global _server
    with _lock:
        if _server is None:
            _server = Server()
        return _server


def _start_anew() -> None:
    """A forked process has nothing open: its locks and threads are not those
    that the server was made with."""
    global _server, _lock
    _lock = threading.Lock()
    _server = None


os.register_at_fork(after_in_child=_start_anew)
