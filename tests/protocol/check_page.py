#!/usr/bin/env python3
"""check_page.py PROGRAM PROJECT [--write]: fails unless docs/protocol.md shows what the server answers.

In a fence of the page a line with "-->" is a request, one with "<--" the answer
to it; "..." in an answer stands for anything. The conversation
goes through the whole page, in an empty folder, with the project file that the page
shows. --write puts the answers in.
"""

import os
import pathlib
import re
import shutil
import sys
import tempfile

from transports import Serve


def holds(answer, parts):
    """Whether the parts of an answer are there, from its beginning to its end."""
    return re.fullmatch(".*".join(map(re.escape, parts)), answer) is not None


def main(program, project, *options):
    page = pathlib.Path(project) / "docs" / "protocol.md"
    lines = page.read_text(encoding="utf-8").split("\n")
    work = tempfile.mkdtemp()
    shutil.copytree(pathlib.Path(project) / "examples" / "board", pathlib.Path(work) / "board")
    os.mkdir(f"{work}/etc")
    begin = lines.index("```toml")
    project_file = "\n".join(lines[begin + 1:lines.index("```", begin)]) + "\n"
    pathlib.Path(work, "zeldebug.toml").write_text(project_file, encoding="utf-8")
    os.chdir(work)
    server, answer, failed, compared = Serve(os.path.abspath(os.path.join(project, program))), None, 0, 0
    for number, line in enumerate(lines):
        if line.startswith("--> "):
            answer = server.answer(line[4:].encode())
        elif line.startswith("<-- "):
            compared += 1
            shown = line[4:]
            found = "(no answer)" if answer is None else answer.decode()
            if not holds(found, shown.split("...")):
                failed += 1
                print(f"docs/protocol.md:{number + 1}: shows\n  {shown}\nand not\n  {found}")
                lines[number] = f"<-- {found}"
    server.close()
    if options == ("--write",):
        page.write_text("\n".join(lines), encoding="utf-8")
    os.chdir("/")
    shutil.rmtree(work)
    print(f"{compared} answers, {failed} that are not shown as they are")
    return 1 if failed or compared == 0 else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
