"""How costs grow with the work: the benchmarks "NAME/FACTOR" as a picture and as a table."""

import math
import subprocess
from pathlib import Path

FACTORS = (1, 2, 5, 10, 20)
FLAT = {"chapter, verses of the module"}  # the others are linear


def curves_of(measured: dict) -> dict[str, list[float]]:
    """The times of each curve in seconds, in the order of FACTORS."""
    names = dict.fromkeys(name.rpartition("/")[0] for name in measured if name.endswith("/20"))
    return {name: [measured[f"{name}/{factor}"]["time"] for factor in FACTORS] for name in names}


def order_of(times: list[float]) -> float:
    """The exponent with which a cost grows from the second factor to the last: 0 is flat, 1 is linear."""
    return math.log(times[-1] / times[1]) / math.log(FACTORS[-1] / FACTORS[1])


def table_rows(measured: dict) -> list[list[str]]:
    rows = []
    for name, times in curves_of(measured).items():
        order, expected = order_of(times), 0 if name in FLAT else 1
        met = "yes" if order <= expected + 0.15 else "no"
        rows.append([name, *(f"{time / times[0]:.2f}" for time in times), f"{order:.2f}",
                     "flat" if name in FLAT else "linear", met])
    return rows


def draw(measured: dict, picture: Path) -> None:
    """Draws each curve as its times relative to the first."""
    plots, data = ["x with lines dashtype 2 linecolor 'gray' title 'linear'"], []
    for name, times in curves_of(measured).items():
        plots.append(f"'-' with linespoints title '{name}'")
        data += [f"{factor} {time / times[0]}" for factor, time in zip(FACTORS, times)] + ["e"]
    script = ["set terminal svg size 800,600 background 'white'", f"set output '{picture}'",
              "set logscale xy", "set xrange [1:20]", "set xtics (1, 2, 5, 10, 20)",
              "set yrange [0.5:40]", "set ytics (1, 2, 5, 10, 20, 40)", "set xlabel 'times the work'",
              "set ylabel 'times the cost'", "set key left top", "plot " + ", ".join(plots), *data]
    subprocess.run(["gnuplot"], input="\n".join(script) + "\n", text=True, check=True)
