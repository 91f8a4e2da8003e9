"""The table of speeds as text and as the section of doc/quality.md."""

import curves
from rows import Row, rows

HEADER = ["what", "ours", "floor or peer", "", "ratio", "goal", "met"]


def amount(row: Row, figures: dict) -> str:
    if row.figure == "peak_MB":
        return f"{figures['peak_MB']:.1f} MB"
    seconds = figures["time"]
    for unit, size in (("s", 1), ("ms", 1e-3), ("us", 1e-6)):
        if seconds >= size:
            return f"{seconds / size:.3g} {unit}"
    return f"{seconds * 1e9:.3g} ns"


def figure_of(row: Row, ours: dict, peer: dict) -> float:
    if row.shared_by:
        return (ours["time"] - peer["time"]) / row.shared_by * 1e6
    if not row.peer:
        return ours[row.figure]
    return peer[row.figure] / ours[row.figure] if row.is_least else ours[row.figure] / peer[row.figure]


def goal_of(row: Row) -> str:
    if row.goal is None:
        return ""
    unit = " us" if row.shared_by else " MB" if not row.peer else ""
    return f"{'at least' if row.is_least else 'at most'} {row.goal:g}{unit}"


def is_met(row: Row, figure: float) -> bool:
    return figure >= row.goal if row.is_least else figure <= row.goal


def line_of(row: Row, measured: dict) -> list[str]:
    ours, peer = measured[row.ours], measured.get(row.peer, {})
    figure = figure_of(row, ours, peer)
    met = "" if row.goal is None else "yes" if is_met(row, figure) else "no"
    unit = " us" if row.shared_by else ""
    return [row.what, amount(row, ours), amount(row, peer) if peer else "", row.peer_name,
            f"{figure:.3g}{unit}" if row.peer else "", goal_of(row), met]


def measured_rows(result: dict) -> list[Row]:
    measured = result["benchmarks"]
    return [row for row in rows() if row.ours in measured and (not row.peer or row.peer in measured)]


def lines_of(result: dict) -> list[list[str]]:
    return [line_of(row, result["benchmarks"]) for row in measured_rows(result)]


def reasons_of(result: dict) -> str:
    """One line for each row whose goal is not met."""
    measured = result["benchmarks"]
    missed = [row for row in measured_rows(result) if row.goal is not None
              and not is_met(row, figure_of(row, measured[row.ours], measured.get(row.peer, {})))]
    lines = [f"- {row.what}: {row.reason or 'the reason is not known.'}" for row in missed]
    return "\n".join(["Not met:", "", *lines, "", ""]) if lines else ""


def load_of(result: dict) -> str:
    averages = [load["average"] for load in result["load"]]
    clocks = [load["clock"] for load in result["load"]]
    processors = [load["processor"] for load in result["load"]]
    return (f"Processors: {result['processors']}; load average {min(averages):.1f} to {max(averages):.1f}. A loop of fixed "
            f"work, run before and after each program, took {min(processors) * 1e3:.0f} to {max(processors) * 1e3:.0f} ms of "
            f"processor time and {min(clocks) * 1e3:.0f} to {max(clocks) * 1e3:.0f} ms by the clock.")


def aligned(lines: list[list[str]]) -> str:
    widths = [max(len(line[column]) for line in lines) for column in range(len(lines[0]))]
    return "\n".join("  ".join(cell.ljust(width) for cell, width in zip(line, widths)).rstrip() for line in lines)


def as_text(result: dict) -> str:
    return aligned([HEADER, *lines_of(result)]) + "\n" + load_of(result) + instructions_text(result)


INSTRUCTIONS_HEADER = ["what, in million instructions", "ours", "floor or peer", "", "ratio"]


def instruction_lines(result: dict) -> list[list[str]]:
    """The rows whose instructions are counted: ours, and the peer's unless it only reads, which is the kernel's work."""
    lines = []
    for row in rows():
        ours, peer = (result["benchmarks"].get(name, {}).get("instructions") for name in (row.ours, row.peer))
        if row.figure != "time" or ours is None:
            continue
        if peer is None:
            if not any(line[0] == row.what for line in lines):
                lines.append([row.what, millions(ours), "", "", ""])
            continue
        ratio = peer / ours if row.is_least else ours / peer
        lines.append([row.what, millions(ours), millions(peer), row.peer_name,
                      f"{millions((ours - peer) / row.shared_by)} each" if row.shared_by else f"{ratio:.3g}"])
    return lines


def millions(count: float) -> str:
    return f"{count / 1e6:,.0f}" if count >= 1e9 else f"{count / 1e6:.3g}"


def instructions_text(result: dict) -> str:
    lines = instruction_lines(result)
    return "\n\n" + aligned([INSTRUCTIONS_HEADER, *lines]) if lines else ""


def as_table(lines: list[list[str]]) -> str:
    header, *rest = lines
    return "\n".join("| " + " | ".join(line) + " |" for line in [header, ["-"] * len(header), *rest])


def as_markdown(result: dict) -> str:
    text = f"""## Speed

`bench/run` measures how fast the program and the module tool are, each time against a floor, which does the least that the
work needs, or against another program that does similar work. All figures of a row are of the same run and of the same
text: a generated Bible of 31,102 verses and 60,000 words, or, for the module tool, the King James Version. Every answer is
checked before it is timed. Times are processor times, including the start of programs; the least of seven runs counts.

{as_table([HEADER, *lines_of(result)])}

{reasons_of(result)}{load_of(result)}
"""
    counted = instruction_lines(result)
    if counted:
        text += f"""
`bench/run --instructions` also counts instructions with callgrind, which do not depend on the load of the machine. Those of
the kernel are not counted, and so none of reading alone; nor are those of the launcher `kedrin-module`.

{as_table([INSTRUCTIONS_HEADER, *counted])}
"""
    header = ["cost of, by", *(f"{factor}×" for factor in curves.FACTORS), "order", "should be", "met"]
    return text + f"""
The same with 1 to 20 times the work (verses, words, hits, translations, length of a chapter or of a source), relative to
the first. The order is the exponent from 2 to 20 times: 0 is flat, 1 is linear.

{as_table([header, *curves.table_rows(result["benchmarks"])])}

![Costs of 1 to 20 times the work](curves.svg)
"""
