"""All boards of a folder: which probe each processor is debugged with, and what
would not survive saving.

    boards.py FOLDER
"""

import pathlib
import sys

from zeldebugdialog import Board, Refused


def rows_of(design: pathlib.Path) -> list[list[str]]:
    with Board(design, directory=design.parent) as board:
        rows = []
        for processor in board.processors:
            one = board.configuration(processor.name)
            saved = one.setting("cable.cableType").text if one.exists else "-"
            lost = ", ".join(sorted({loss.setting for loss in one.losses}))
            rows.append([design.name, processor.name, saved, lost or "-"])
        return rows


def main(folder: str) -> int:
    rows = [["BOARD", "PROCESSOR", "PROBE", "NOT SAVED"]]
    for design in sorted(pathlib.Path(folder).glob("*/*.xml")):
        try:
            rows += rows_of(design)
        except Refused as refusal:
            print(f"{design}: {refusal.problem}", file=sys.stderr)
    widths = [max(len(row[column]) for row in rows) for column in range(4)]
    for row in rows:
        print("  ".join(text.ljust(width)
                        for text, width in zip(row, widths)).rstrip())
    return 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:2] or ["."]))
