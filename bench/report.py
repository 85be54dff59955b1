#!/usr/bin/env python3
"""Writes the figures of docs/performance.md and its plot from benchmark results.

  report.py [--some] RESULTS_FOLDER DOCUMENT PLOT

RESULTS_FOLDER holds the JSON output of the benchmark programs. In DOCUMENT each
part between "<!-- figures: NAME -->" and "<!-- end -->" is written anew; PLOT is
an SVG. With --some, a part without results stays, and says that it is older.
"""

import argparse
import collections
import json
import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "tests" / "performance"))
import system_calls  # noqa: E402  (from the folder above)

ENGINE = "engine"
OURS = (ENGINE, "design model")
OLDER = "\nThese are of an earlier run.\n"
PART = re.compile(r"(<!-- figures: ([\w-]+) -->\n).*?(<!-- end -->)", re.DOTALL)

# The groups of benchmarks that a part of the document shows, and what their
# sizes count.
PARTS = {
    "reading": ("read", "devices"),
    "writing": ("write", "devices"),
    "discovery": ("discover", "processors"),
    "look-up": ("look up", "processors"),
    "reading-files": ("read a file", "devices"),
    "writing-files": ("write a file", "devices"),
    "decimals": ("read decimals", "words"),
    "hexadecimals": ("read hexadecimals", "words"),
    "octals": ("read octals", "words"),
}

Result = collections.namedtuple("Result", "nanoseconds bytes peak taken instructions leaves_out")


def load(folder):
    """{group: {who: {size: Result}}}, the least time of all repetitions; the
    machine; and what counted instructions."""
    groups = collections.defaultdict(lambda: collections.defaultdict(dict))
    machine = counter = None
    for file in sorted(folder.glob("*.json")):
        document = json.loads(file.read_text(encoding="utf-8"))
        machine = document.get("context", machine)
        counter = document.get("counter", counter)
        for run in document["benchmarks"]:
            if run["run_type"] != "iteration":
                continue
            group, who, size = run["name"].split("/")[:3]
            found = groups[group][who].get(int(size))
            if found is None or run["cpu_time"] < found.nanoseconds:
                groups[group][who][int(size)] = Result(run["cpu_time"],
                                                       run["bytes"],
                                                       run.get("peak", 0),
                                                       run["real_time"],
                                                       run.get("instructions"),
                                                       run.get("label", ""))
            least = groups[group][who][int(size)]
            groups[group][who][int(size)] = least._replace(
                taken=min(run["real_time"], found.taken if found else run["real_time"]))
    return groups, machine, counter


def duration(nanoseconds):
    rounded = float(f"{nanoseconds:.3g}")
    for unit, scale in (("s", 1e9), ("ms", 1e6), ("µs", 1e3)):
        if rounded >= scale:
            return f"{rounded / scale:.3g} {unit}"
    return f"{rounded:.3g} ns"


def table(header, rows):
    lines = ["| " + " | ".join(header) + " |",
             "|---|" + "---:|" * (len(header) - 1)]
    lines += ["| " + " | ".join(row) + " |" for row in rows]
    return "\n".join(lines) + "\n"


def megabytes(size):
    return f"{size / 1e6:.3g} MB"


def times_as_long(ratio):
    return f" ({ratio:,.0f}×)" if ratio >= 10 else f" ({ratio:.2g}×)"


def compared(group, counted, value, unit, more=()):
    """A row for each way, with what is compared and its ratio to ours; then
    columns of `more`, a heading and the cell of a way's largest size each."""
    ours = next(who for who in group if who in OURS)
    sizes = sorted({size for results in group.values() for size in results})
    fastest_first = sorted(group.items(), key=lambda item: (
        item[0] != ours, value(item[1][min(item[1])])))
    rows = []
    for who, results in fastest_first:
        cells = [who]
        for size in sizes:
            if size not in results:
                cells.append("")
                continue
            cell = unit(value(results[size]))
            if who != ours:
                cell += times_as_long(value(results[size]) / value(group[ours][size]))
            cells.append(cell)
        cells += (cell(results[max(results)]) for _, cell in more)
        rows.append(cells)
    return table(["", *(f"{size:,} {counted}" for size in sizes), *(heading for heading, _ in more)], rows)


def leaving_out(group):
    """The column of what each way leaves out, if any does."""
    if any(result.leaves_out for results in group.values() for result in results.values()):
        yield "Leaves out besides", lambda result: result.leaves_out


def times(group, counted, more=()):
    return compared(group, counted, lambda result: result.nanoseconds, duration, [*more, *leaving_out(group)])


def loads(group, counter):
    """The times of loading designs, with the instructions of the largest."""
    if counter is None:
        return times(group, "instances") + "\nInstructions were not counted: neither perf nor valgrind could.\n"
    (ours,) = (results[max(results)] for who, results in group.items() if who in OURS)
    largest = max(size for results in group.values() for size in results)

    def instructions(result):
        cell = f"{result.instructions / 1e6:,.0f} M"
        return cell if result is ours else cell + times_as_long(result.instructions / ours.instructions)

    return (times(group, "instances", [(f"Instructions, {largest:,} instances", instructions)])
            + f"\nInstructions were counted by {counter}.\n")


def rates(group):
    """A row for each way: the time of a change, and how many that are a second."""
    rows = []
    for who, results in group.items():
        (result,) = results.values()
        rows.append((result.taken, who))
    least = min(rows)[0]
    return table(["", "A change", "Changes a second"],
                 [[who, duration(taken) + ("" if taken == least else times_as_long(taken / least)),
                   f"{1e9 / taken:,.0f}"] for taken, who in sorted(rows)])


def memory(group, counted):
    return compared(group, counted, lambda result: result.peak, megabytes)


def bytes_read(group, counted):
    results = next(iter(group.values()))
    return table(["", *(f"{size:,} {counted}" for size in sorted(results))],
                 [["The file", *(megabytes(results[size].bytes)
                                 for size in sorted(results))]])


def counts():
    figures = json.loads((ROOT / "tests" / "performance" / "instructions.json")
                         .read_text(encoding="utf-8"))
    return table(["Work and size", "Instructions", "Recorded because"],
                 [[work, f"{figure['instructions']:,}", figure["reason"]]
                  for work, figure in figures.items()])


def calls():
    return table(["Option file", "System calls", "Which"],
                 [[name, str(len(made)), " ".join(made)]
                  for name, made in (("written", system_calls.WRITING),
                                     ("read", system_calls.READING))])


def describe(machine):
    return (f"{machine['num_cpus']} processors at {machine['mhz_per_cpu']} MHz, "
            f"load {machine['load_avg'][0]:.1f} when it began, "
            f"{machine['date'][:10]}.\n")


# --- The plot ---------------------------------------------------------------

WIDTH, HEIGHT = 860, 520
LEFT, RIGHT, TOP, BOTTOM = 70, 220, 46, 60
COLOURS = ("#0b6e4f", "#c1121f", "#e07a1f", "#7b2cbf", "#1d6fb8", "#8d6346",
           "#5c677d", "#d6478f", "#2a9d8f", "#a5a500", "#3d405b", "#00a0c6",
           "#7f5539", "#80b918", "#9d4edd", "#000000")


def decades(low, high):
    """Powers of ten that hold everything between them."""
    first = 10.0 ** len(str(int(1 / low))) if low < 1 else 1.0
    bottom = 1 / first if low < 1 else 1.0
    while bottom * 10 <= low:
        bottom *= 10
    top = bottom
    while top < high:
        top *= 10
    values = []
    while bottom <= top * 1.001:
        values.append(bottom)
        bottom *= 10
    return values


def plot(group):
    from math import log10

    points = {who: sorted((size, result.nanoseconds / result.bytes)
                          for size, result in results.items())
              for who, results in group.items()}
    sizes = sorted({size for line in points.values() for size, _ in line})
    values = [value for line in points.values() for _, value in line]
    steps = decades(min(values), max(values))

    def x(size):
        share = log10(size / sizes[0]) / log10(sizes[-1] / sizes[0])
        return LEFT + share * (WIDTH - LEFT - RIGHT)

    def y(value):
        share = log10(value / steps[0]) / log10(steps[-1] / steps[0])
        return HEIGHT - BOTTOM - share * (HEIGHT - TOP - BOTTOM)

    svg = [f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" '
           f'height="{HEIGHT}" viewBox="0 0 {WIDTH} {HEIGHT}" '
           'font-family="sans-serif" font-size="12">',
           f'<rect width="{WIDTH}" height="{HEIGHT}" fill="#ffffff"/>',
           f'<text x="{LEFT}" y="24" font-size="15">Reading a connect command: '
           'time a byte over the length of the chain</text>']
    for value in steps:
        svg.append(f'<line x1="{LEFT}" x2="{WIDTH - RIGHT}" y1="{y(value):.1f}" '
                   f'y2="{y(value):.1f}" stroke="#dddddd"/>')
        svg.append(f'<text x="{LEFT - 8}" y="{y(value) + 4:.1f}" '
                   f'text-anchor="end">{value:g}</text>')
    for size in sizes:
        svg.append(f'<line x1="{x(size):.1f}" x2="{x(size):.1f}" y1="{TOP}" '
                   f'y2="{HEIGHT - BOTTOM}" stroke="#eeeeee"/>')
        svg.append(f'<text x="{x(size):.1f}" y="{HEIGHT - BOTTOM + 18}" '
                   f'text-anchor="middle">{size:,}</text>')
    svg.append(f'<text x="{(LEFT + WIDTH - RIGHT) / 2}" y="{HEIGHT - 16}" '
               'text-anchor="middle">devices in the chain</text>')
    svg.append(f'<text x="18" y="{(TOP + HEIGHT - BOTTOM) / 2}" '
               'text-anchor="middle" transform="rotate(-90 18 '
               f'{(TOP + HEIGHT - BOTTOM) / 2})">nanoseconds a byte</text>')
    assert len(points) <= len(COLOURS), "a way without a colour"
    for (who, line), colour in zip(sorted(points.items()), COLOURS):
        width = 3.5 if who == ENGINE else 1.5
        places = " ".join(f"{x(size):.1f},{y(value):.1f}" for size, value in line)
        svg.append(f'<polyline points="{places}" fill="none" stroke="{colour}" '
                   f'stroke-width="{width}"/>')
    legend = sorted(zip(sorted(points), COLOURS), key=lambda entry: -points[entry[0]][0][1])
    for row, (who, colour) in enumerate(legend):
        top = TOP + 14 + row * 20
        svg.append(f'<line x1="{WIDTH - RIGHT + 16}" x2="{WIDTH - RIGHT + 40}" '
                   f'y1="{top - 4}" y2="{top - 4}" stroke="{colour}" '
                   f'stroke-width="{3.5 if who == ENGINE else 1.5}"/>')
        weight = ' font-weight="bold"' if who == ENGINE else ""
        svg.append(f'<text x="{WIDTH - RIGHT + 48}" y="{top}"{weight}>{who}</text>')
    svg.append("</svg>")
    return "\n".join(svg) + "\n"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--some", action="store_true")
    for name in ("folder", "document", "picture"):
        parser.add_argument(name, type=pathlib.Path)
    given = parser.parse_args()
    document = given.document
    groups, machine, counter = load(given.folder)
    parts = {"machine": describe(machine), "counts": counts(), "calls": calls()}
    for name, (group, counted) in PARTS.items():
        if group in groups:
            parts[name] = times(groups[group], counted)
            print(f"\n{group}\n{parts[name]}")

    if "change" in groups:
        parts["protocol"] = rates(groups["change"])
    if "load" in groups:
        parts["designs"] = loads(groups["load"], counter)
        print(f"\nload\n{parts['designs']}")
        parts["design-sizes"] = bytes_read(groups["load"], "instances")
        parts["design-memory"] = memory(groups["load"], "instances")

    def write_anew(part):
        if part.group(2) not in parts and given.some:
            return part.group().replace(OLDER, "").replace(part.group(3), OLDER + part.group(3))
        if part.group(2) not in parts:
            sys.exit(f"{document}: no results for the part {part.group(2)!r}")
        return part.group(1) + parts[part.group(2)] + part.group(3)

    text = document.read_text(encoding="utf-8")
    document.write_text(PART.sub(write_anew, text), encoding="utf-8")
    given.picture.write_text(plot(groups["read"]), encoding="utf-8")


if __name__ == "__main__":
    main()
