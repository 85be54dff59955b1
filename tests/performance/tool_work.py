"""What people wait for, as lines of the tool. Each work prepares what it needs in a
folder of its own, and gives the words of the line."""

import pathlib
import shutil
import subprocess

import boards

EXAMPLES = pathlib.Path(__file__).resolve().parents[2] / "examples"
COMMAND = ("connect lc hdu -cable type quorla_podusb port USB21 frequency {frequency} "
           "-configdevice devicenr 1 partname pk9ab100 irlength 6 idcode 0x1234093 -debugdevice cpunr 1\n")


def written(folder, example, text):
    """@return the name of a design with that text, beside the components of an example"""
    shutil.copytree(EXAMPLES / example, folder / example)
    (folder / example / "many.xml").write_text(text, encoding="utf-8")
    return f"{example}/many.xml"


def listing(_tool, folder, processors):
    return ["list", written(folder, "board", boards.flat(processors))]


def listing_hierarchy(_tool, folder, clusters):
    return ["list", written(folder, "catalogue", boards.hierarchical(clusters)), "--view", "rtl"]


def setting_all(_tool, folder, processors):
    (folder / "etc").mkdir()
    return ["set", written(folder, "board", boards.flat(processors)), "--all", "--cable", "quorla_podusb", "--dry-run"]


def setting_all_again(tool, folder, processors):
    """With nothing left to save."""
    *line, _dry_run = setting_all(tool, folder, processors)
    subprocess.run([tool, *line], cwd=folder, check=True, capture_output=True)
    return line


PROJECT = """design = "{design}"
[settings]
cable.cableType = "quorla_podusb"
[type.lumacore]
cable.frequency = "3 MHz"
[processor."lumacore_1*"]
debugDevice = 3
[processor.lumacore_7]
debugDevice = 4
"""


def syncing(_tool, folder, processors):
    design = written(folder, "board", boards.flat(processors))
    (folder / "zeldebug.toml").write_text(PROJECT.format(design=design), encoding="utf-8")
    return ["sync"]


def syncing_again(tool, folder, processors):
    """With nothing left to write."""
    line = syncing(tool, folder, processors)
    subprocess.run([tool, *line], cwd=folder, check=True, capture_output=True)
    return line


def checking(_tool, folder, commands):
    frequencies = (6000000, 3000000)
    text = "".join(COMMAND.format(frequency=frequencies[number % 2]) for number in range(commands))
    (folder / "commands.txt").write_text(text, encoding="utf-8")
    return ["check", "--file", "commands.txt"]


WORKS = {"list": listing, "list-hierarchy": listing_hierarchy, "set-all": setting_all,
         "set-all-again": setting_all_again, "sync": syncing, "sync-again": syncing_again,
         "check": checking}
