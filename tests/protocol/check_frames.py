#!/usr/bin/env python3
"""Hostile bytes on the standard input of `zeldebug serve`: answers or a clean end.

usage: check_frames.py PROGRAM BOARD

A row is what is sent, then the codes of the answers (0 for a result), the exit
status, and what standard error says. Nothing may hang, and standard output holds
whole frames of JSON and nothing else.
"""

import io
import json
import os
import signal
import subprocess
import sys

from transports import frame, read_frame

LONGEST = 64 * 1024 * 1024
PATIENCE = 60


def request(identification, method="initialize", **params):
    return json.dumps({"jsonrpc": "2.0", "id": identification, "method": method, "params": params}).encode()


def notification(method, **params):
    return json.dumps({"jsonrpc": "2.0", "method": method, "params": params}).encode()


ONE, TWO = frame(request(1)), frame(request(2))
CLEAN = ""
HEADER = "Content-Length: N"
ENDS = "ends inside"

# (name, what is sent, codes of the answers, exit status, what standard error says)
ROWS = [
    ("nothing", b"", [], 0, CLEAN),
    ("one frame", ONE, [0], 0, CLEAN),
    ("two frames", ONE + TWO, [0, 0], 0, CLEAN),
    ("lines that end with LF alone", ONE.replace(b"\r\n", b"\n"), [0], 0, CLEAN),
    ("a field in capitals", ONE.replace(b"Content-Length", b"CONTENT-LENGTH"), [0], 0, CLEAN),
    ("another field", b"Content-Type: application/json; charset=utf-8\r\n" + ONE, [0], 0, CLEAN),
    ("blanks around the length", ONE.replace(b": ", b":  \t", 1).replace(b"\r", b" \r", 1), [0], 0, CLEAN),
    ("no blank", ONE.replace(b": ", b":", 1), [0], 0, CLEAN),
    ("leading zeros", ONE.replace(b": ", b": 000", 1), [0], 0, CLEAN),
    ("no text at all", frame(b"") + ONE, [-32700, 0], 0, CLEAN),
    ("no JSON, and on", frame(b"nonsense") + ONE, [-32700, 0], 0, CLEAN),
    ("no UTF-8, and on", frame(b'{"jsonrpc":"2.0","id":"\xff","method":"initialize"}') + ONE, [-32700, 0], 0, CLEAN),
    ("depth 10,000", frame(b"[" * 10000) + frame(b"[" * 10000 + b"]" * 10000) + ONE, [-32700, -32700, 0], 0, CLEAN),
    ("a notification", frame(notification("initialize")) + ONE, [0], 0, CLEAN),
    ("a frame inside a text", frame(request(1, "command/check", command=ONE.decode())), [0], 0, CLEAN),
    # the end
    ("exit", frame(notification("exit")), [], 0, CLEAN),
    ("exit, and requests behind it", ONE + frame(notification("exit")) + TWO, [0], 0, CLEAN),
    ("exit, and garbage behind it", ONE + frame(notification("exit")) + b"\0\0\0", [0], 0, CLEAN),
    ("exit that wants an answer is none", frame(request(3, "exit")) + ONE, [0, 0], 0, CLEAN),
    # a length that lies
    ("one byte too long", frame(request(1))[:-1], [], 1, ENDS),
    ("far too long", b"Content-Length: 1000\r\n\r\n{}", [], 1, ENDS),
    ("100 MB that never come", b"Content-Length: 100000000\r\n\r\n{}", [], 1, ENDS),
    ("18 digits that never come", b"Content-Length: 999999999999999999\r\n\r\n{}", [], 1, ENDS),
    ("19 digits", b"Content-Length: 9999999999999999999\r\n\r\n{}", [], 1, HEADER),
    ("one byte too short", ONE.replace(b"%d" % len(request(1)), b"%d" % (len(request(1)) - 1)) + TWO,
     [-32700], 1, HEADER),
    ("negative", b"Content-Length: -2\r\n\r\n{}", [], 1, HEADER),
    ("signed", b"Content-Length: +2\r\n\r\n{}", [], 1, HEADER),
    ("hexadecimal", b"Content-Length: 0x2\r\n\r\n{}", [], 1, HEADER),
    ("a fraction", b"Content-Length: 2.0\r\n\r\n{}", [], 1, HEADER),
    ("two numbers", b"Content-Length: 2 2\r\n\r\n{}", [], 1, HEADER),
    ("none", b"Content-Length:\r\n\r\n{}", [], 1, HEADER),
    ("two lengths", b"Content-Length: 2\r\nContent-Length: 2\r\n\r\n{}", [], 1, HEADER),
    # no frame
    ("no header", request(1), [], 1, ENDS),
    ("no header, and a line", request(1) + b"\n", [], 1, HEADER),
    ("another header only", b"Content-Type: x\r\n\r\n{}", [], 1, HEADER),
    ("an empty line first", b"\r\n" + ONE, [], 1, HEADER),
    ("a letter less", ONE[1:], [], 1, HEADER),
    ("a blank before the colon", ONE.replace(b":", b" :", 1), [], 1, HEADER),
    ("half a header", ONE[:10], [], 1, ENDS),
    ("a header without its empty line", ONE[:ONE.index(b"\n") + 1], [], 1, ENDS),
    ("garbage", bytes(range(256)) * 4, [], 1, HEADER),
    ("null bytes", b"\0" * 1000 + b"\n", [], 1, HEADER),
    ("a header without end", b"X" * 100000, [], 1, "4096"),
    ("many fields", b"X: y\r\n" * 1000 + ONE, [], 1, "4096"),
    ("a header at its limit", b"X: " + b"y" * (4096 - 5 - ONE.index(b"{")) + b"\r\n" + ONE, [0], 0, CLEAN),
    ("a header over its limit", b"X: " + b"y" * (4097 - 5 - ONE.index(b"{")) + b"\r\n" + ONE, [], 1, "4096"),
    ("what came before garbage is answered", ONE + TWO + b"\0\n" + ONE, [0, 0], 1, HEADER),
]


def start(program, *arguments, **streams):
    pipes = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE, **streams}
    return subprocess.Popen([program, "serve", *arguments], **pipes)


def codes_of(out):
    """The code of each answer; frames and JSON have to be whole."""
    stream, codes = io.BytesIO(out), []
    while (text := read_frame(stream)) is not None:
        answer = json.loads(text)
        codes.append(answer["error"]["code"] if "error" in answer else 0)
    return codes


class Faults(list):
    def expect(self, name, holds, *seen):
        if not holds:
            self.append(f"{name}: {' '.join(map(repr, seen))[:600]}")


def check_row(program, row, faults):
    name, sent, codes, status, said = row
    process = start(program)
    out, err = process.communicate(sent, timeout=PATIENCE)
    found = codes_of(out)
    faults.expect(name, found == codes, "answers", found)
    faults.expect(name, process.returncode == status, "status", process.returncode)
    lines = err.decode().splitlines()
    good = not lines if said == CLEAN else len(lines) == 1 and said in lines[0]
    faults.expect(name, good, "standard error", err)


def check_split(program, faults):
    """Frames byte by byte, with an answer after each."""
    process = start(program)
    for text in (request(1), request(2)):
        for byte in frame(text):
            os.write(process.stdin.fileno(), bytes([byte]))
        faults.expect("byte by byte", b'"result"' in read_frame(process.stdout))
    faults.expect("byte by byte", process.communicate(timeout=PATIENCE) == (b"", b""))


def check_long(program, faults):
    """A text of the greatest length is read, one that is a byte longer is not."""
    for name, size, code in (("64 MiB", LONGEST, 0), ("64 MiB and a byte", LONGEST + 1, -32700)):
        text = request(1)
        text += b" " * (size - len(text))
        process = start(program)
        out, err = process.communicate(frame(text) + TWO, timeout=PATIENCE)
        faults.expect(name, codes_of(out) == [code, 0] and not err and process.returncode == 0, codes_of(out), err)


def check_flood(program, faults):
    """Ten thousand requests before the first answer is read."""
    process = start(program)
    out, err = process.communicate(b"".join(frame(request(i)) for i in range(10000)), timeout=PATIENCE)
    stream = io.BytesIO(out)
    ids = [json.loads(read_frame(stream))["id"] for _ in range(10000)]
    faults.expect("a flood", ids == list(range(10000)) and not err, err)


def check_leaving(program, faults):
    """Nobody reads the answers: a clean end, while input is still open."""
    process = start(program)
    process.stdout.close()
    process.stdin.write(ONE)
    process.stdin.flush()
    faults.expect("nobody reads", process.wait(PATIENCE) == 0 and process.stderr.read() == b"", process.returncode)
    for target, name in (("/dev/full", "standard output"),):
        with open(target, "wb") as full:
            process = start(program, stdout=full)
            _, err = process.communicate(ONE, timeout=PATIENCE)
            faults.expect("a full device", process.returncode == 1 and name.encode() in err, process.returncode, err)
    process = subprocess.run([program, "serve", "--json"], input=ONE, capture_output=True, timeout=PATIENCE)
    faults.expect("with --json", codes_of(process.stdout) == [0] and process.returncode == 0, process)


def check_log(program, faults):
    process = subprocess.run([program, "serve", "--log"], input=ONE + frame(b"{"), capture_output=True,
                             timeout=PATIENCE)
    lines = process.stderr.decode().splitlines()
    faults.expect("--log", len(lines) == 2 and "initialize" in lines[0] and process.returncode == 0 and
                  codes_of(process.stdout) == [0, -32700], lines)


def check_cancelling(program, board, faults):
    """A request that waits behind a long one is cancelled; each has one answer."""
    for _ in range(20):
        process = start(program)
        sent = [request(i, "board/open", design=board) for i in range(1, 30)] + \
            [request("last", "initialize"), notification("$/cancelRequest", id="last"),
             notification("$/cancelRequest", id=29), notification("$/cancelRequest", id=1),
             notification("$/cancelRequest", id="29"), notification("$/cancelRequest", id=77)]
        process.stdin.write(b"".join(map(frame, sent)))
        process.stdin.flush()
        out, err = process.communicate(timeout=PATIENCE)
        stream, answers = io.BytesIO(out), []
        while (text := read_frame(stream)) is not None:
            answers.append(json.loads(text))
        ids = [answer["id"] for answer in answers]
        faults.expect("cancelling", ids == [*range(1, 30), "last"] and not err, ids, err)
        by_id = {answer["id"]: answer.get("error", {}).get("code", 0) for answer in answers}
        faults.expect("cancelling", by_id["last"] == -32800 and by_id[29] == -32800, by_id)
        faults.expect("cancelling", by_id[1] in (0, -32800) and all(by_id[i] == 0 for i in range(2, 29)), by_id)


def check_signals(program, faults):
    """A signal that ends programs ends this one, however it waits."""
    process = start(program)
    process.stdin.write(ONE)
    process.stdin.flush()
    read_frame(process.stdout)
    process.send_signal(signal.SIGTERM)
    faults.expect("SIGTERM", process.wait(PATIENCE) == -signal.SIGTERM, process.returncode)


def check_closed(program, faults):
    """Without standard input there is nothing to wait for."""
    run = subprocess.run([program, "serve"], preexec_fn=lambda: os.close(0), capture_output=True,
                         timeout=PATIENCE, check=False)
    if run.returncode != 1 or b"standard input" not in run.stderr or run.stdout:
        faults.append(f"closed standard input: {run}")


def main(program, board):
    faults = Faults()
    for row in ROWS:
        check_row(program, row, faults)
    for check in (check_split, check_long, check_flood, check_leaving, check_log, check_signals, check_closed):
        check(program, faults)
    check_cancelling(program, board, faults)
    for fault in faults:
        print(fault)
    print(f"{len(ROWS)} rows, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
