#!/usr/bin/env python3
"""Writes doc/quality/speed-history.md: what the table of speeds said when it was first kept in git, and what it says now."""

import subprocess
from pathlib import Path

import report

PROJECT = Path(__file__).resolve().parent.parent
SECTION = "doc/quality/speed.md"


def git(*arguments: str) -> str:
    return subprocess.run(["git", "-C", PROJECT, *arguments], capture_output=True, text=True, check=True).stdout


def rows_of(section: str) -> dict:
    """The rows of the first table, by what is compared and with what: the ratio (a figure without one: itself), and the goal."""
    table = section.split("\n\n| ")[1].split("\n\n")[0]
    lines = [[cell.strip() for cell in line.strip().strip("|").split("|")] for line in table.splitlines()[2:]]
    return {(what, peer): (ratio or ours, goal) for what, ours, _, peer, ratio, goal, _ in lines}


def main() -> None:
    commit, date = git("log", "--diff-filter=A", "--format=%h %as", "--", SECTION).split()
    first = rows_of(git("show", f"{commit}:{SECTION}"))
    now = rows_of((PROJECT / SECTION).read_text())
    lines = [["what", "against", "then", "now", "goal"]]
    lines += [[*key, first[key][0], figure, goal] for key, (figure, goal) in now.items() if key in first]
    (PROJECT / SECTION).with_name("speed-history.md").write_text(f"""## Speed, then and now

`bench/history.py` compares the ratios above with those of the first measurement in the history of that page
({date}). The times themselves are not comparable: the machine was faster or slower from day to day.

{report.as_table(lines)}
""")


if __name__ == "__main__":
    main()
