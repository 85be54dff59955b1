"""The two ways to a server: the pipes of `zeldebug serve`, and the C library."""

import ctypes
import json
import subprocess


def frame(text):
    return b"Content-Length: %d\r\n\r\n" % len(text) + text


def read_frame(stream):
    """The text of the next frame; None at the end."""
    line = stream.readline()
    if not line:
        return None
    name, _, length = line.partition(b": ")
    assert name == b"Content-Length" and line.endswith(b"\r\n"), line
    assert stream.readline() == b"\r\n"
    text = stream.read(int(length))
    assert len(text) == int(length)
    return text


class Serve:
    """A program that is asked over its standard input and output."""

    def __init__(self, program, *arguments):
        self.process = subprocess.Popen([program, "serve", *arguments], stdin=subprocess.PIPE,
                                        stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.sent = 0

    def send(self, text):
        self.process.stdin.write(frame(text))
        self.process.stdin.flush()

    def read(self):
        return read_frame(self.process.stdout)

    def answer(self, text):
        """The answer, or None: then the one to a request behind it comes first."""
        self.sent += 1
        mark = f"mark {self.sent}"
        self.send(text)
        self.send(json.dumps({"jsonrpc": "2.0", "id": mark, "method": "initialize"}).encode())
        answers = []
        while True:
            answers.append(self.read())
            assert answers[-1] is not None, "the answers end"
            if json.loads(answers[-1])["id"] == mark:
                break
        assert len(answers) <= 2, answers
        return answers[0] if len(answers) == 2 else None

    def close(self):
        """Ends the input: exit status 0, and nothing on standard error."""
        out, err = self.process.communicate(timeout=60)
        assert (self.process.returncode, out, err) == (0, b"", b""), (self.process.returncode, out, err)


class Library:
    """libzeldebugdialog-c, loaded with nothing else."""

    OK, NO_ANSWER, NULL_POINTER = 0, 1, 2

    def __init__(self, path):
        self.library = ctypes.CDLL(path)
        pointer, size = ctypes.c_void_p, ctypes.c_size_t
        self.library.zdd_server_create.argtypes = [ctypes.POINTER(pointer)]
        self.library.zdd_server_release.argtypes = [pointer]
        self.library.zdd_answer.argtypes = [pointer, ctypes.c_char_p, size, ctypes.POINTER(pointer),
                                            ctypes.POINTER(size)]
        self.library.zdd_answer_release.argtypes = [pointer]
        self.server = pointer()
        assert self.library.zdd_server_create(ctypes.byref(self.server)) == self.OK

    def answer(self, text):
        answer, length = ctypes.c_void_p(), ctypes.c_size_t()
        status = self.library.zdd_answer(self.server, text, len(text), ctypes.byref(answer), ctypes.byref(length))
        if status == self.NO_ANSWER:
            assert answer.value is None
            return None
        assert status == self.OK, status
        found = ctypes.string_at(answer, length.value)
        assert self.library.zdd_answer_release(answer) == self.OK
        return found

    def close(self):
        assert self.library.zdd_server_release(self.server) == self.OK
