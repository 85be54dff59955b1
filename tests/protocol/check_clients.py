#!/usr/bin/env python3
"""Four clients at once on one board: over pipes, where one is killed now and then,
and as threads of one process.

usage: check_clients.py PROGRAM LIBRARY PROJECT [REQUESTS [SEED]]

Each answer is one of JSON-RPC and belongs to its request; a state patched by an
answer is the state that is asked for, but for what it says of the file, which the
others write; and an option file is never anything but a whole command that one of
them was about to save. LIBRARY may be empty: the pipes alone.
"""

import json
import pathlib
import random
import shutil
import sys
import tempfile
import threading

from run_scripts import patched
from transports import Library, Serve

PROCESSORS = ["lumacore_0", "ppc440_0"]
VALUES = {
    "cable.cableType": ["quorla_podusb", "quorla_usb", 3, 5, "nonsense"],
    "cable.frequency": [3000000, "6 MHz", "fast"],
    "cable.port": ["USB21", {"bytes": "Qf9C"}, "a b"],
    "debugDevice": [0, 1, 127, 128],
    "connection": ["hw", "sim", "vp"],
    "romemSize": [0, 65536],
    "chain": [[], [{"devicenr": 1, "partname": "p", "irlength": 6, "idcode": 1}]],
    "nonsense": [1],
}
COMMANDS = ["connect lc hdu", "connect lc sim", "connect ppc hw -debugdevice devicenr 2", "connect x", ""]


class Fault(Exception):
    pass


class Killed(Exception):
    pass


class Client:
    """What one client does with its server. `possible` has all that was about to be saved."""

    def __init__(self, server, work, board, seed, possible):
        self.server, self.random, self.possible = server, random.Random(seed), possible
        self.last = seed * 10000000
        self.board = self.result("board/open", design=board, directory=work)["board"]
        self.known = {}
        for processor in PROCESSORS:
            opened = self.result("configuration/open", board=self.board, processor=processor)
            self.known[opened["configuration"]] = opened["state"]

    def ask(self, method, **params):
        self.last += 1
        text = json.dumps({"jsonrpc": "2.0", "id": self.last, "method": method, "params": params}).encode()
        answer = json.loads(self.server.answer(text))
        if answer["jsonrpc"] != "2.0" or answer["id"] != self.last or ("error" in answer) == ("result" in answer):
            raise Fault(f"{method}: {answer}")
        return answer

    def result(self, method, **params):
        answer = self.ask(method, **params)
        if "result" not in answer:
            raise Fault(f"{method} {params}: {answer}")
        return answer["result"]

    def request(self):
        act = self.random.choice(["change"] * 5 + ["undo", "redo", "revert", "reset", "copy", "edit", "draft", "save"])
        names = self.random.sample(list(VALUES), self.random.randint(1, 2))
        if act == "change":
            return act, {"values": {name: self.random.choice(VALUES[name]) for name in names}}
        if act == "reset":
            return act, {"settings": names}
        if act == "copy":
            return act, {"from": self.random.choice(list(self.known))}
        if act == "edit":
            return act, {"command": self.random.choice(COMMANDS)}
        if act == "draft":
            return act, {"setting": "cable.frequency", "text": self.random.choice(["fast", "3 MHz", None])}
        return act, {"force": self.random.random() < 0.5} if act == "save" else {}

    def step(self):
        number = self.random.choice(list(self.known))
        act, params = self.request()
        if act == "save":
            # What is lost on the way is saved as what is left of it: the command.
            self.possible.add(self.known[number]["command"])
        answer = self.ask(f"configuration/{act}", configuration=number, **params)
        after = self.result("configuration/state", configuration=number)["state"]
        patch = answer["result"]["patch"] if "result" in answer else []
        # What the patch says of the file is from the moment of the call.
        patch = [step for step in patch if step["path"] not in ("/exists", "/changedOnDisk")]
        mine = {**patched(self.known[number], patch), **{name: after[name] for name in ("exists", "changedOnDisk")}}
        if mine != after:
            raise Fault(f"{act} {params}: the state before, patched, is not the state after: {answer}")
        self.known[number] = after


def look_at_files(work, possible):
    """@return how many there were; all have to hold a command that was about to be saved."""
    count = 0
    for processor in PROCESSORS:
        path = pathlib.Path(work) / "etc" / f"kvo_{processor}.opt"
        try:
            text = path.read_bytes().decode("utf-8", "replace")
        except FileNotFoundError:
            continue
        count += 1
        if text.rstrip("\n") not in possible:
            raise Fault(f"{path} holds {text!r}")
    return count


def run(name, make, steps, seed, kills):
    """Four clients, a thread each. @return the faults"""
    faults, possible, looked, killed = [], set(), [0], [0]
    work = tempfile.mkdtemp()
    (pathlib.Path(work) / "etc").mkdir()
    done = threading.Event()

    def live(which):
        numbers = random.Random(seed + which)
        try:
            left = steps
            while left > 0 and not faults:
                client = Client(make(), work, BOARD, seed + which, possible)
                for _ in range(min(left, 200)):
                    client.step()
                    left -= 1
                    if kills and which == 0 and numbers.random() < 0.02:
                        # In the middle of a request that saves.
                        number = numbers.choice(list(client.known))
                        possible.add(client.known[number]["command"])
                        client.server.send(json.dumps({
                            "jsonrpc": "2.0", "id": 0, "method": "configuration/save",
                            "params": {"configuration": number, "force": True}}).encode())
                        client.server.process.kill()
                        client.server.process.communicate()
                        killed[0] += 1
                        break
                else:
                    if kills:
                        client.server.close()
        except Exception as fault:  # whatever it is, it ends the test
            faults.append(f"{name} {which}: {type(fault).__name__} {str(fault)[:2000]}")

    def look():
        while not done.wait(0.01):
            try:
                looked[0] += look_at_files(work, possible)
            except Fault as fault:
                faults.append(f"{name}: {fault}")
                return

    threads = [threading.Thread(target=live, args=(which,)) for which in range(4)]
    watcher = threading.Thread(target=look)
    for thread in [*threads, watcher]:
        thread.start()
    for thread in threads:
        thread.join()
    done.set()
    watcher.join()
    if not faults and looked[0] == 0:
        faults.append(f"{name}: no file was ever seen")
    if not faults and kills and killed[0] == 0:
        faults.append(f"{name}: nobody was killed")
    shutil.rmtree(work)
    print(f"{name}: {4 * steps} requests, {killed[0]} killed, files seen {looked[0]} times, {len(faults)} faults")
    return faults


def main(program, library, project, requests="1000", seed="1"):
    global BOARD
    BOARD = str(pathlib.Path(project) / "examples" / "board" / "board.xml")
    steps = int(requests) // 8
    faults = run("pipes", lambda: Serve(program), steps, int(seed), True)
    if library:
        server = Library(library)
        faults += run("threads", lambda: server, steps, int(seed), False)
        if not faults:
            server.close()
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
