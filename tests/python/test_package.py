"""The Python package as a program uses it. It works in a copy of examples/."""

import contextlib
import copy
import ctypes.util
import doctest
import gc
import importlib
import os
import pathlib
import pickle
import re
import signal
import sys
import threading
import unittest
import unittest.mock

import zeldebugdialog
from zeldebugdialog import Board, Refused

OPTION_FILE = pathlib.Path("etc/kvo_lumacore_0.opt")
POD = "connect lc hdu -cable type quorla_podusb port USB21 frequency 6000000"
NUMBER = " -debugdevice cpunr 1"


class Case(unittest.TestCase):
    def setUp(self):
        OPTION_FILE.parent.mkdir(exist_ok=True)
        for file in OPTION_FILE.parent.iterdir():
            file.unlink()
        self.board = Board("board/board.xml")
        self.one = self.board.configuration("lumacore_0")

    def tearDown(self):
        self.one.close()
        self.board.close()

    def refusal_of(self, call, *arguments, **named):
        with self.assertRaises(Refused) as caught:
            call(*arguments, **named)
        return caught.exception


class ProjectTest(unittest.TestCase):
    """A board of a project, in the working folder."""

    FILE = pathlib.Path("zeldebug.toml")
    LOCAL = pathlib.Path("zeldebug.local.toml")

    def setUp(self):
        OPTION_FILE.parent.mkdir(exist_ok=True)
        for file in [*OPTION_FILE.parent.iterdir(), *self.files()]:
            file.unlink()
        self.FILE.write_text('design = "board/board.xml"\n'
                             '[settings]\n'
                             'cable.cableType = "quorla_podusb"\n'
                             '[processor.lumacore_2]\n'
                             'connection = "sim"\n'
                             '[profile.slow.settings]\n'
                             'cable.frequency = "750 kHz"\n')

    def tearDown(self):
        for file in self.files():
            file.unlink()

    def files(self):
        return [file for file in (self.FILE, self.LOCAL) if file.exists()]

    def test_starts_as_the_files_say(self):
        with Board(project=self.FILE) as board:
            self.assertEqual(board.design, "zeldebug.toml")
            self.assertEqual(board.warnings, ())
            one = board.configuration("lumacore_0")
            self.assertEqual(one.command, POD + NUMBER)
            self.assertEqual(
                one.setting("cable.cableType").said,
                zeldebugdialog.Said("project", "zeldebug.toml", 3, 19, 3))
            self.assertIsNone(one.setting("debugDevice").said)
        with Board(project=self.FILE, profile="slow") as board:
            one = board.configuration("lumacore_0")
            self.assertEqual(one["cable.frequency"], 750000)
            self.assertEqual(one.setting("cable.frequency").said.layer,
                             "profile:slow")

    def test_writes_changes_into_files(self):
        with Board(project=self.FILE) as board:
            one = board.configuration("lumacore_0")
            one.change({"debugDevice": 3}, into="local")
            self.assertEqual(self.LOCAL.read_text(),
                             "[processor.lumacore_0]\ndebugDevice = 3\n")
            self.assertEqual(one.written.file, "zeldebug.local.toml")
            self.assertTrue(one.written.changed)
            self.assertEqual(one["debugDevice"], 3)
            one.change({"cable.esn": "0042"}, into="project")
            self.assertEqual([told.code for told in one.written.remarks],
                             ["desk-setting"])
            one.reset("debugDevice", into="local")
            self.assertEqual(one["debugDevice"], 0)
            one["debugDevice"] = 4
            self.assertIsNone(one.written)

    def test_tells_what_the_files_make_of_a_processor(self):
        with Board(project=self.FILE) as board:
            said = board.configuration("lumacore_0").project
            self.assertEqual((said.command, said.problem, said.line),
                             (POD + NUMBER, None, None))
        self.FILE.write_text('design = "board/board.xml"\n'
                             '[processor.lumacore_2]\n'
                             'connection = "hw"\n')
        with Board(project=self.FILE) as board:
            said = board.configuration("lumacore_2").project
            self.assertIsNone(said.command)
            self.assertIn("does not allow", said.problem)
            self.assertEqual((said.file, said.line, said.column),
                             ("zeldebug.toml", 3, 14))
            self.assertEqual([one.code for one in said.remarks],
                             ["connection-mask"])

    def test_tells_every_fault(self):
        self.LOCAL.write_text("[settings]\na = 1\ncable.esn = 42\n")
        with self.assertRaises(Refused) as caught:
            Board(project=self.FILE)
        self.assertEqual([(one["code"], one["line"])
                          for one in caught.exception.faults],
                         [("unknown-key", 2), ("number-for-text", 3)])

    def test_is_of_a_design_or_of_a_project(self):
        with self.assertRaises(TypeError):
            Board()
        with self.assertRaises(TypeError):
            Board("board/board.xml", project=self.FILE)


class BoardTest(Case):
    def test_lists_processors(self):
        first = self.board.processors[0]
        self.assertEqual((first.name, first.type, first.number),
                         ("lumacore_0", "lumacore", 1))
        self.assertEqual(first.connections,
                         ("sim", "hw", "stub-serial", "stub-jtag"))
        self.assertEqual([one.name for one in self.board.undebuggable],
                         ["r5_0"])
        self.assertEqual(repr(self.board),
                         "<Board 'board/board.xml': 7 processors>")

    def test_takes_paths(self):
        here = pathlib.Path().resolve()
        with Board(here / "board" / "board.xml", directory=here,
                   library=here / "board") as board:
            self.assertEqual(board.configuration("lumacore_0").file,
                             str(here / OPTION_FILE))

    def test_refuses_what_is_no_design(self):
        self.assertIn("none.xml", str(self.refusal_of(Board, "none.xml")))

    def test_refuses_unknown_processors(self):
        refusal = self.refusal_of(self.board.configuration, "lumacore_O")
        self.assertEqual(refusal.kind, "unknown-processor")
        self.assertEqual(refusal.suggestion, "lumacore_0")
        self.assertEqual(
            self.refusal_of(self.board.configuration, "r5_0").kind,
            "not-debuggable")

    def test_is_closed_once_and_for_all(self):
        self.board.close()
        self.board.close()
        with self.assertRaises(zeldebugdialog.ProtocolError) as caught:
            self.one["debugDevice"] = 1
        self.assertEqual(caught.exception.code, -32602)

    def test_saves_several(self):
        two = self.board.configuration("lumacore_1")
        self.one["debugDevice"] = 2
        two.change({"cable.cableType": "quorla_podusb",
                    "cable.port": "USB22", "cable.esn": "1"})
        refusal = self.refusal_of(self.board.save)
        self.assertEqual((refusal.kind, refusal.setting),
                         ("would-be-lost", "cable.port"))
        self.assertFalse(self.one.dirty)
        self.assertTrue(two.dirty)
        two["cable.esn"] = ""
        saved = self.board.save(self.one, two)
        self.assertEqual(saved[1].command, "connect lc hdu -cable type "
                         "quorla_podusb port USB22 frequency 6000000 "
                         "-debugdevice cpunr 2")
        self.assertFalse(two.dirty)
        # What only the simulator can run has to be told so.
        self.assertEqual(list(self.board.losses()), ["lumacore_2"])

    def test_saves_what_is_open(self):
        with self.board.configuration("lumacore_1") as closed:
            closed["debugDevice"] = 2
        self.one["debugDevice"] = 3
        self.assertEqual([one.file for one in self.board.save()],
                         [str(OPTION_FILE)])
        with self.assertRaises(zeldebugdialog.ProtocolError):
            self.board.save(closed)

    def test_tells_of_every_refusal(self):
        displaced = {"cable.cableType": "quorla_podusb",
                     "cable.port": "USB22", "cable.esn": "1"}
        self.one.change(displaced)
        two = self.board.configuration("lumacore_1")
        two.change(displaced)
        three = self.board.configuration("ppc405_0")
        three["debugDevice"] = 2
        with self.assertRaises(Refused) as caught:
            self.board.save(self.one, two, three)
        self.assertIn("kvo_lumacore_0.opt", str(caught.exception))
        self.assertEqual(len(caught.exception.__notes__), 1)
        self.assertRegex(caught.exception.__notes__[0],
                         "^refused as well: .*kvo_lumacore_1.opt: .*cable.port")
        self.assertFalse(three.dirty)


class ConfigurationTest(Case):
    def test_is_a_mapping(self):
        self.assertIn("cable.frequency", self.one)
        self.assertNotIn("cable.speed", self.one)
        self.assertEqual(len(self.one), len(list(self.one)))
        self.assertEqual(self.one["romemStartAdr"], 0xFFFFFFFF)
        self.assertEqual(self.one.setting("romemStartAdr").text, "not set")
        self.one.update({"debugDevice": 3}, romemSize=16)
        self.assertEqual((self.one["debugDevice"], self.one["romemSize"]),
                         (3, 16))
        del self.one["debugDevice"]
        self.assertEqual(self.one["debugDevice"], 0)
        self.assertEqual(self.one.reset([]), [])
        self.assertEqual(self.one["romemSize"], 16)
        self.one.reset(["romemSize"], "debugDevice")
        self.assertEqual(self.one["romemSize"], 0)
        self.one["debugDevice"] = 3
        self.one.clear()
        self.assertFalse(self.one.dirty)
        with self.assertRaises(KeyError):
            self.one["debugDevise"]

    def test_has_settings_as_attributes(self):
        self.one.debugDevice = 4
        self.assertEqual(self.one["debugDevice"], 4)
        self.one.cable.cableType = "quorla_podusb"
        self.assertEqual((self.one.cable.cableType, self.one.cable.port),
                         (3, "USB21"))
        self.one.cable.port = "USB22"
        del self.one.debugDevice, self.one.cable.port
        self.assertEqual((self.one.debugDevice, self.one.cable.port),
                         (0, "USB21"))
        for wrong in (self.one, "processor"), (self.one.cable, "speed"):
            with self.assertRaises(AttributeError):
                delattr(*wrong)
        self.assertIn("cable", dir(self.one))
        self.assertIn("frequency", dir(self.one.cable))
        self.assertTrue(repr(self.one.cable).startswith(
            "<cable: cableType=3, esn='', frequency=6000000, "))
        for wrong in ("debugDevise", "cables"):
            with self.assertRaises(AttributeError):
                getattr(self.one, wrong)
            with self.assertRaises(AttributeError):
                setattr(self.one, wrong, 1)
        with self.assertRaises(AttributeError):
            self.one.cable.speed
        with self.assertRaises(AttributeError):
            self.one.cable.speed = 1

    def test_changes_all_or_nothing(self):
        effects = self.one.change({"cable.frequency": "3 MHz",
                                   "cable.cableType": "quorla_podusb"})
        self.assertEqual([(one.setting, one.before, one.after)
                          for one in effects], [("cable.port", "", "USB21")])
        self.assertEqual(self.one["cable.frequency"], 3_000_000)
        before = dict(self.one)
        refusal = self.refusal_of(self.one.change, {"debugDevice": 1,
                                                    "cable.port": 5,
                                                    "cable.frequency": "x"})
        self.assertEqual(refusal.kind, "bad-value")
        self.assertEqual(dict(self.one), before)
        refusal = self.refusal_of(self.one.change, {"connection": "vp"})
        self.assertEqual((refusal.kind, refusal.setting, refusal.value),
                         ("not-allowed", "connection", "vp"))
        self.assertEqual(refusal.accepted,
                         ["sim", "hw", "stub-serial", "stub-jtag"])

    def test_tells_what_no_setting_is(self):
        with self.assertRaises(zeldebugdialog.ProtocolError) as caught:
            self.one["debugDevice"] = 1.5
        fault = caught.exception
        self.assertEqual((fault.kind, fault.parameter, fault.setting),
                         ("bad-parameters", "values", "debugDevice"))

    def test_what_is_raised_goes_to_other_processes(self):
        refusal = self.refusal_of(self.one.change, {"connection": "vp"})
        refusal.add_note("noted")
        fault = zeldebugdialog.ProtocolError("none", -32601,
                                             {"parameter": "a"})
        for one in (refusal, fault):
            for same in (pickle.loads(pickle.dumps(one)), copy.copy(one),
                         copy.deepcopy(one)):
                self.assertIs(type(same), type(one))
                self.assertEqual(str(same), str(one))
                self.assertEqual(vars(same), vars(one))

    def test_is_neither_copied_nor_pickled(self):
        for one in (self.board, self.one):
            for copied in (pickle.dumps, copy.copy, copy.deepcopy):
                with self.assertRaisesRegex(
                        TypeError, "^a (Board|Configuration) is open in"):
                    copied(one)

    def test_goes_back_and_forth(self):
        self.assertEqual(self.refusal_of(self.one.undo).kind,
                         "nothing-to-undo")
        self.one["debugDevice"] = 3
        self.assertEqual(self.one.undo()[0].after, 0)
        self.assertEqual(self.one["debugDevice"], 0)
        self.one.redo()
        self.assertEqual(self.one["debugDevice"], 3)
        self.one.revert()
        self.assertEqual(self.one["debugDevice"], 0)

    def test_keeps_drafts(self):
        self.one.draft("debugDevice", "two")
        setting = self.one.setting("debugDevice")
        self.assertEqual((setting.draft, setting.value), ("two", 0))
        self.assertIn("'two' is no number", setting.error)
        self.assertEqual(self.refusal_of(self.one.save).kind, "draft")
        self.one.draft("debugDevice", None)
        self.assertIsNone(self.one.setting("debugDevice").draft)
        self.one.draft("debugDevice", "2")
        self.assertEqual(self.one["debugDevice"], 2)

    def test_takes_commands(self):
        self.one.edit(POD)
        self.assertEqual(self.one["cable.cableType"], 3)
        self.one.edit("connect lc hdu -cabel")
        self.assertEqual(self.one.draft_command, "connect lc hdu -cabel")
        self.assertEqual(self.one.diagnostics[0].suggestion, "-cable")
        self.assertEqual(self.one.command, POD + NUMBER)

    def test_knows_choices_and_reasons(self):
        choices = {choice.value: choice.reason
                   for choice in self.one.setting("connection").choices}
        self.assertIsNone(choices["hw"])
        self.assertIn("does not allow it", choices["vp"])
        port = self.one.setting("cable.port")
        self.assertFalse(port.applicable)
        self.assertEqual(port.reason,
                         "a command does not carry it for this cable")

    def test_saves_what_a_dialog_reads(self):
        self.one["cable.cableType"] = "quorla_podusb"
        self.assertEqual(self.one.differences[0].setting, "cable.cableType")
        saved = self.one.save()
        self.assertEqual(saved.command, POD + NUMBER)
        self.assertEqual(OPTION_FILE.read_text(), POD + NUMBER)
        self.assertFalse(self.one.dirty)
        self.assertEqual(self.board.configuration("lumacore_0").cable.port,
                         "USB21")
        OPTION_FILE.write_text("connect lc sim")
        self.assertTrue(self.one.changed_on_disk)
        self.one["debugDevice"] = 1
        self.assertEqual(self.refusal_of(self.one.save).kind,
                         "changed-on-disk")
        self.one.save(force=True)

    def test_tells_what_could_not_be_read(self):
        self.assertIsNone(self.one.problem)
        self.assertIsNone(self.one.project)
        OPTION_FILE.write_text("connect nonsense")
        one = self.board.configuration("lumacore_0")
        self.assertIn("nonsense", one.problem)
        refusal = self.refusal_of(one.save)
        self.assertEqual(refusal.kind, "unreadable")
        one.save(force=True)
        self.assertIsNone(one.problem)

    def test_names_what_would_be_lost(self):
        self.one.change({"cable.cableType": "quorla_podusb",
                         "cable.port": "USB22", "cable.esn": "1"})
        lost = [loss for loss in self.one.losses if loss.blocking]
        self.assertEqual([(loss.setting, loss.value, loss.read_back, loss.code,
                           loss.displaced_by) for loss in lost],
                         [("cable.port", "USB22", "USB21", "serial-number",
                           "cable.esn")])
        self.assertEqual(lost[0].reason, "the serial number takes its place")
        self.assertEqual(self.refusal_of(self.one.save).kind, "would-be-lost")

    def test_holds_bytes_that_are_no_text(self):
        self.one["cable.port"] = b"\xff\x01"
        self.assertEqual(self.one["cable.port"], b"\xff\x01")
        self.assertEqual(self.one.setting("cable.port").value, b"\xff\x01")
        # Wherever else the value is told, it is the same.
        self.assertEqual(self.one.differences[0].now, b"\xff\x01")
        self.assertEqual(self.one.undo()[0].before, b"\xff\x01")
        self.assertEqual(self.one.redo()[0].after, b"\xff\x01")
        # Those of a device stay what they are when another one joins it.
        self.one.chain.append({"partname": b"\xff", "devicenr": 1})
        self.one.chain.append({"partname": "a", "devicenr": 2})
        self.assertEqual([one["partname"] for one in self.one.chain],
                         [b"\xff", "a"])
        self.assertEqual(self.one.setting("chain").value[0]["partname"],
                         b"\xff")
        told = {one.setting: one.now for one in self.one.differences}
        self.assertEqual([one["partname"] for one in told["chain"]],
                         [b"\xff", "a"])
        effect = self.one.undo()[0]
        self.assertEqual(len(effect.before), 2)
        # Records can be in a set, with a list in them as well.
        told = {effect, self.one.setting("chain"), *self.one.differences}
        self.assertIn(effect, told)

    def test_takes_paths(self):
        self.one["cable.svfFile"] = pathlib.Path("a/b")
        self.assertEqual(self.one["cable.svfFile"], "a/b")

    def test_copies_to_another(self):
        self.one["cable.cableType"] = "quorla_podusb"
        two = self.board.configuration("lumacore_1")
        two.copy_from(self.one)
        self.assertEqual((two.cable.cableType, two.cpuNr), (3, 2))

    def test_shows_itself(self):
        self.one["debugDevice"] = 2
        self.assertEqual(repr(self.one),
                         "<Configuration of 'lumacore_0', not saved: connect "
                         "lc hdu -debugdevice deviceNr 2 cpunr 1>")

    def test_has_no_command_without_a_way_to_write_one(self):
        self.one["cable.cableType"] = 7
        self.assertIsNone(self.one.command)
        self.assertTrue(self.one.command_error)
        self.assertIn("no command: ", repr(self.one))
        self.assertEqual(self.refusal_of(self.one.save).kind, "no-command")


class ChainTest(Case):
    def test_is_a_list(self):
        chain = self.one.chain
        chain.append({"partname": "pk9ab100", "devicenr": 1, "irlength": 6})
        chain.insert(0, {"partname": "first", "devicenr": 2})
        self.assertEqual([one["partname"] for one in chain],
                         ["first", "pk9ab100"])
        self.assertEqual(chain[1]["irlength"], 6)
        self.assertEqual(len(self.one["chain"]), 2)
        chain[0] = {**chain[0], "devicenr": 3}
        self.assertEqual(chain[0]["devicenr"], 3)
        chain.reverse()
        self.assertEqual(chain[0]["partname"], "pk9ab100")
        del chain[0]
        self.assertEqual(len(chain), 1)
        self.assertEqual(len(chain + [{"devicenr": 4}]), 2)
        self.one.chain += [{"devicenr": 5}]
        self.assertEqual([one["devicenr"] for one in chain], [3, 5])
        self.one.chain = ()
        self.assertEqual(self.one.chain, [])
        refusal = self.refusal_of(chain.append, {"irlenght": 6})
        self.assertEqual(refusal.suggestion or "irlength", "irlength")
        with self.assertRaises(IndexError):
            chain[0]


class ProcessTest(Case):
    def test_threads_take_turns(self):
        def count():
            for _ in range(50):
                self.one.change({"debugDevice": 1})
                self.one.change({"debugDevice": 2})
        threads = [threading.Thread(target=count) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        kept = self.one.setting("debugDevice")
        self.one.refresh()
        self.assertEqual(self.one.setting("debugDevice"), kept)

    def test_threads_see_whole_states(self):
        devices = [{"devicenr": 1}, {"devicenr": 2}]
        torn = []

        def look():
            while changing.is_alive():
                for chain in self.one["chain"], list(self.one.chain):
                    if len(chain) not in (0, 2):
                        torn.append(chain)
                torn.extend(one for one in self.one.differences
                            if one.saved == one.now)

        def change():
            for _ in range(100):
                self.one.change({"chain": devices, "debugDevice": 2})
                self.one.reset()
        changing = threading.Thread(target=change)
        changing.start()
        interval = sys.getswitchinterval()
        sys.setswitchinterval(1e-5)
        look()
        sys.setswitchinterval(interval)
        self.assertEqual(torn, [])

    def test_threads_open_and_close_while_all_are_saved(self):
        def come_and_go():
            while not done.is_set():
                self.board.configuration("lumacore_1")
                self.board.configuration("lumacore_1").close()
        done = threading.Event()
        threads = [threading.Thread(target=come_and_go) for _ in range(2)]
        interval = sys.getswitchinterval()
        sys.setswitchinterval(1e-5)
        for thread in threads:
            thread.start()
        try:
            for _ in range(100):
                # Two of one processor are refused.
                with contextlib.suppress(Refused):
                    self.board.save()
        finally:
            done.set()
            sys.setswitchinterval(interval)
            for thread in threads:
                thread.join()

    def test_threads_append_in_turns(self):
        def append():
            for _ in range(10):
                self.one.chain.append({"devicenr": 1})
        threads = [threading.Thread(target=append) for _ in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(len(self.one.chain), 40)

    def test_patched_states_are_those_asked_for(self):
        changes = [{"cable.cableType": "quorla_podusb"}, {"cable.esn": "x"},
                   {"connection": "sim"}, {"chain": [{"devicenr": 1}]},
                   {"chain": [{"devicenr": 2}, {}]}, {"chain": []},
                   {"connection": "stub-serial"}]
        for values in changes:
            self.one.change(values)
            patched = self.one._told
            self.one.refresh()
            self.assertEqual(self.one._told, patched)

    def test_an_answer_that_is_lost_is_asked_for(self):
        def interrupted(act):
            answer = self.one._server._answer

            def lost(request):
                answer(request)
                raise KeyboardInterrupt
            with unittest.mock.patch.object(self.one._server, "_answer", lost):
                with self.assertRaises(KeyboardInterrupt):
                    act()
        interrupted(lambda: self.one.change({"debugDevice": 2}))
        self.assertEqual(self.one["debugDevice"], 2)
        interrupted(lambda: self.one.change({"chain": [{}, {}]}))
        self.one["debugDevice"] = 3
        self.assertEqual(len(self.one.chain), 2)
        self.one.chain = []
        interrupted(self.one.save)
        self.assertFalse(self.one.dirty)
        self.one["debugDevice"] = 4
        interrupted(self.board.save)
        self.assertEqual((self.one["debugDevice"], self.one.dirty),
                         (4, False))

    def test_closes_what_nobody_has(self):
        handles = set()
        for _ in range(50):
            one = self.board.configuration("lumacore_0")
            handles.add(one._handle)
            del one
        gc.collect()
        self.assertEqual(len(handles), 50)
        with self.assertRaises(zeldebugdialog.ProtocolError):
            zeldebugdialog.board.server().call("configuration/state",
                                               configuration=max(handles))

    def test_a_forked_process_starts_anew(self):
        def is_fine():
            for use in (self.one.undo, self.one.save, self.board.save,
                        lambda: self.one.chain.append({}), self.one.refresh):
                try:
                    use()
                    return False
                except zeldebugdialog.ProtocolError as fault:
                    if fault.code != -32602:
                        return False
            self.one.close()
            self.board.close()
            board = Board("board/board.xml")
            return board.configuration("lumacore_0").command is not None

        def work():
            self.one.change({"chain": [{"devicenr": 1}] * 100})
            self.one.reset()

        def work_on():
            while not done.is_set():
                work()
        work()  # what is made on first use is there
        done = threading.Event()
        working = threading.Thread(target=work_on)
        working.start()
        ended = []
        for _ in range(5):
            child = os.fork()
            if child == 0:
                signal.alarm(20)  # where it would wait for ever
                os._exit(0 if is_fine() else 1)
            ended.append(os.waitpid(child, 0)[1])
        done.set()
        working.join()
        self.assertEqual(ended, [0] * 5)


class CommandsTest(unittest.TestCase):
    def test_lists_settings_with_their_choices(self):
        rows = {row.id: row for row in zeldebugdialog.settings()}
        self.assertEqual([one.value for one in rows["connection"].choices],
                         ["sim", "hw", "stub-serial", "stub-jtag", "vp"])
        self.assertIsNone(rows["connection"].choices[0].reason)
        self.assertEqual(rows["debugDevice"].choices, ())

    def test_tells_differences_of_devices(self):
        plain = "connect lc hdu"
        first = plain + " -configdevice devicenr 1 partname p irlength 6"
        found = zeldebugdialog.diff(plain, first)
        self.assertEqual(list(found), ["chain[0]"])
        self.assertIsNone(found["chain[0]"][0])
        self.assertEqual(found["chain[0]"][1]["partname"], "p")
        self.assertEqual(
            zeldebugdialog.diff(first, first.replace("6", "7")),
            {"chain[0].irlength": (6, 7)})


class LibraryTest(unittest.TestCase):
    def test_is_told_where_there_is_none(self):
        for place, what in (("nowhere.so", "can't be loaded"),
                            (ctypes.util.find_library("c"),
                             "is another library")):
            with unittest.mock.patch.dict(
                    os.environ, ZELDEBUGDIALOG_LIBRARY=place):
                with self.assertRaisesRegex(zeldebugdialog.LibraryNotFound,
                                            f"{re.escape(place)} {what}"):
                    zeldebugdialog._library.Server()


def load_tests(_, tests, __):
    for module in ("", ".board", ".commands", ".configuration", "._patch",
                   ".values"):
        tests.addTests(doctest.DocTestSuite(
            importlib.import_module("zeldebugdialog" + module)))
    return tests


if __name__ == "__main__":
    unittest.main()
