#!/usr/bin/env python3
"""The section of doc/quality.md on coverage.

    tests/coverage/report.py COUNTED.lcov NOTE [FOLDER...]

prints the lines that no test reached, and writes doc/quality/coverage.md from what llvm-cov counted in the FOLDERs of src.
NOTE says which tests ran. Rows of explained.tsv (a file, a line without its indentation, the reason) stand for one line
each that cannot be reached. They are left out of the comparison with the goals. A row with * instead of a line leaves out the
branches of the file. Ends with 1 if there is no such line that was not reached, or if a goal is missed.
"""

import collections
import pathlib
import sys

PROJECT = pathlib.Path(__file__).resolve().parents[2]
EXPLAINED = pathlib.Path(__file__).with_name("explained.tsv")
# Percent of lines and of branches.
GOALS = {"base": (98, 90), "tolvo": (98, 90), "qt3": (98, 90), "window": (98, 90), "modtool": (95, None), "add": (None, None)}
HEADING = """## Coverage

`scripts/coverage.sh` builds with the counters of clang++, runs the tests, and lets llvm-cov count. Lines and branches are
those of the source: a branch is one way that a condition goes, each part of `&&` and `||` by itself; what the compiler adds
for exceptions and destructors is none. The counters are kept in their file while a process runs, so that what it reached is
counted also if a test ends it by a signal.

{note}

| `src/` | Lines | Goal | Branches | Goal | Lines not reached | of these explained |
|---|---|---|---|---|---|---|
"""


def main(counted, note, folders):
    files = files_of(pathlib.Path(counted).read_text())
    explained = [tuple(row.split("\t")) for row in EXPLAINED.read_text().splitlines() if row and not row.startswith("#")]
    missed = {name: missed_lines(name, file) for name, file in sorted(files.items()) if name.split("/")[1] in folders}
    rows, is_green = [], True
    for folder in folders:
        own = {name: file for name, file in files.items() if name.startswith(f"src/{folder}/")}
        lines = share([count for file in own.values() for count in file.lines.values()])
        branches = share([count for name, file in own.items() for count in file.branches
                          if (name, "*") not in [row[:2] for row in explained]])
        excused = sum(explained_count(explained, name, missed[name]) for name in own)
        goals = GOALS[folder]
        rows.append(f"| `{folder}` | {text_of(lines)} | {goal_text(goals[0])} | {text_of(branches)} | {goal_text(goals[1])} "
                    f"| {lines[1] - lines[0]} | {excused} |\n")
        is_green &= reaches((lines[0] + excused, lines[1]), goals[0]) and reaches(branches, goals[1])
    for name, lines in missed.items():
        for number, text in lines:
            print(f"{name}:{number}: {text}")
    for file, text in unneeded(explained, missed, files, folders):
        print(f"explained.tsv: {file} has no line {text} that was not reached, or fewer than rows")
        is_green = False
    write(HEADING.format(note=note) + "".join(rows) + table(explained))
    return 0 if is_green else 1


class File:
    def __init__(self):
        self.lines = {}  # number: how often it was reached
        self.branches = []  # how often each was taken


def files_of(lcov):
    """@returns the files of src, by their paths in the project"""
    files = collections.defaultdict(File)
    for record in lcov.splitlines():
        kind, _, value = record.partition(":")
        if kind == "SF":
            name = str(pathlib.Path(value).resolve().relative_to(PROJECT))
        elif kind == "DA":
            number, count = value.split(",")[:2]
            files[name].lines[int(number)] = int(count)
        elif kind == "BRDA":
            taken = value.split(",")[3]
            files[name].branches.append(0 if taken == "-" else int(taken))
    return {name: file for name, file in files.items() if name.startswith("src/")}


def missed_lines(name, file):
    """@returns number and text of each line that was not reached"""
    source = (PROJECT / name).read_text().split("\n")
    return [(number, source[number - 1].strip()) for number, count in sorted(file.lines.items()) if count == 0]


def explained_count(explained, name, lines):
    """@returns how many of the lines that were not reached have a row"""
    rows = collections.Counter(text for file, text, _ in explained if file == name)
    return len(lines) - (collections.Counter(text for _, text in lines) - rows).total()


def unneeded(explained, missed, files, folders):
    """@returns file and line of the rows whose line was reached, or whose branches were all taken"""
    rows = collections.Counter((file, text) for file, text, _ in explained if file.split("/")[1] in folders)
    found = collections.Counter((name, text) for name, lines in missed.items() for _, text in lines)
    for file, text in rows:
        if text == "*" and 0 in files[file].branches:
            found[file, text] += 1
    return (rows - found).elements()


def share(counts):
    return sum(count > 0 for count in counts), len(counts)


def reaches(share_reached, goal):
    return goal is None or 100 * share_reached[0] >= goal * share_reached[1]


def text_of(share_reached):
    reached, all_of_them = share_reached
    return f"{reached} of {all_of_them}, {100 * reached / all_of_them:.1f} %" if all_of_them else "none"


def goal_text(goal):
    return "" if goal is None else f"{goal} %"


def table(explained):
    if not explained:
        return ""
    text = "\nNot reached, and why:\n\n| File | Line | Reason |\n|---|---|---|\n"
    return text + "".join(f"| `{file.removeprefix('src/')}` | `{line}` | {why} |\n" for file, line, why in explained)


def write(section):
    target = PROJECT / "doc" / "quality" / "coverage.md"
    target.parent.mkdir(exist_ok=True)
    target.write_text(section)
    print(section)


if __name__ == "__main__":
    sys.exit(main(sys.argv[1], sys.argv[2], sys.argv[3:] or list(GOALS)))
