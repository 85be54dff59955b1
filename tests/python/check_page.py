"""check_page.py PAGE EXAMPLE: fails unless the page shows what really happens.

It works in a copy of examples/ with an empty folder etc/.
"""

import doctest
import pathlib
import subprocess
import sys


def main(page, example):
    for file in (*pathlib.Path("etc").iterdir(),
                 *pathlib.Path(".").glob("zeldebug*.toml")):
        file.unlink()
    outcome = doctest.testfile(page, module_relative=False)
    if outcome.attempted == 0 or outcome.failed:
        return 1
    # Option files lie beside the boards of a folder.
    (pathlib.Path("board") / "etc").mkdir(exist_ok=True)
    for file in pathlib.Path("etc").iterdir():
        (pathlib.Path("board/etc") / file.name).write_bytes(file.read_bytes())
    run = subprocess.run([sys.executable, example, "."], check=True,
                         capture_output=True, text=True)
    if run.stdout and run.stdout in pathlib.Path(page).read_text():
        return 0
    print(f"{page} does not show what {example} prints:\n{run.stdout}")
    return 1


sys.exit(main(*sys.argv[1:]))
