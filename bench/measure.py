#!/usr/bin/env python3
"""Runs the benchmarks in a build folder, writes what they measured to speed.json there, and prints the table.

Usage: measure.py BUILD-FOLDER [--instructions] [option of the benchmarks...]
A complete run also writes doc/quality/speed.md and curves.svg there.
"""

import hashlib
import json
import os
import subprocess
import sys
import time
from pathlib import Path

import curves
import report

PROGRAMS = ["kedrin_bench", "kedrin_window_bench", "kedrin_start_bench", "kedrin_tool_bench", "kedrin_format_bench",
            "kedrin_curves_bench"]
COUNTED_IN_PROCESS = {
    "kedrin_bench": ["scan/rare", "scan/common", "scan/every_verse", "word/hits_300", "word/hits_20000", "open_module",
                     "chapter/whole"],
    "kedrin_window_bench": ["switch_translation/verses_26", "switch_translation/verses_176", "page_only/verses_26",
                            "page_only/verses_176"],
}
# filters of the benchmarks that run programs; the slowest would take callgrind minutes
COUNTED_PROGRAMS = {"kedrin_bench": "^ripgrep", "kedrin_start_bench": ".", "kedrin_tool_bench": "-mkfastmod_marked_up",
                    "kedrin_format_bench": "."}


def load_of_machine() -> dict:
    """How long a loop of fixed work takes, and how many programs want a processor."""
    clock, processor = time.perf_counter(), time.process_time()
    digest, block = hashlib.sha256(), bytes(1 << 20)
    for _ in range(64):
        digest.update(block)
    return {"average": os.getloadavg()[0], "clock": time.perf_counter() - clock,
            "processor": time.process_time() - processor}


def run(folder: Path, program: str, options: list[str], environment: dict | None = None) -> list[dict]:
    """What the benchmarks of a program measured."""
    out = folder / f"{program}.json"
    subprocess.run([folder / "bench" / program, f"--benchmark_out={out}", "--benchmark_out_format=json", *options],
                   env={**os.environ, **(environment or {})}, stdout=sys.stderr, check=True)
    text = out.read_text() if out.exists() else ""
    return json.loads(text)["benchmarks"] if text.strip() else []


def name_of(program: str, benchmark: dict) -> str:
    name = benchmark["run_name"].removesuffix("/manual_time")
    return f"format/{name}" if program == "kedrin_format_bench" else name


def keep_least(measured: dict, program: str, benchmarks: list[dict]) -> None:
    """Keeps the least of each figure, since disturbances only make it larger."""
    for benchmark in benchmarks:
        if benchmark["run_type"] != "iteration" or benchmark.get("error_occurred"):
            continue
        is_manual = benchmark["run_name"].endswith("/manual_time")
        unit = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1}[benchmark["time_unit"]]
        figures = {"time": benchmark["real_time" if is_manual else "cpu_time"] * unit}
        figures |= {key: benchmark[key] for key in ("peak_MB", "instructions") if key in benchmark}
        known = measured.setdefault(name_of(program, benchmark), {})
        for key, figure in figures.items():
            known[key] = min(figure, known.get(key, figure))


def count_instructions(folder: Path, measured: dict) -> None:
    """Adds what callgrind counts, which does not depend on the load of the machine."""
    once = ["--benchmark_min_time=0.001"]
    for program, names in COUNTED_IN_PROCESS.items():
        for name in names:
            done = subprocess.run(["valgrind", "--tool=callgrind", "--instr-atstart=no", "--callgrind-out-file=/dev/null",
                                   folder / "bench" / program, f"--benchmark_filter=^{name}$", *once],
                                  capture_output=True, text=True, check=True)
            count = done.stderr.split("Collected : ")[1].split()[0]
            measured.setdefault(name, {})["instructions"] = int(count)
    for program, chosen in COUNTED_PROGRAMS.items():
        counted: dict = {}
        keep_least(counted, program, run(folder, program, [f"--benchmark_filter={chosen}", *once],
                                         {"KEDRIN_BENCH_INSTRUCTIONS": "1"}))
        for name, figures in counted.items():
            measured.setdefault(name, {})["instructions"] = figures["instructions"]


def main() -> None:
    folder, options = Path(sys.argv[1]), sys.argv[2:]
    with_instructions = "--instructions" in options
    options = [option for option in options if option != "--instructions"]
    is_complete = not any("benchmark_filter" in option for option in options)
    options = ["--benchmark_repetitions=7", "--benchmark_min_time=0.1", "--benchmark_enable_random_interleaving=true",
               *options]
    measured: dict = {}
    loads = [load_of_machine()]
    for program in PROGRAMS:
        keep_least(measured, program, run(folder, program, options))
        loads.append(load_of_machine())
    if with_instructions:
        count_instructions(folder, measured)
    result = {"processors": os.cpu_count(), "load": loads, "benchmarks": measured}
    (folder / "speed.json").write_text(json.dumps(result, indent=1, sort_keys=True) + "\n")
    print(report.as_text(result))
    if is_complete:
        section = Path(__file__).parent.parent / "doc" / "quality" / "speed.md"
        section.parent.mkdir(exist_ok=True)
        section.write_text(report.as_markdown(result))
        curves.draw(measured, section.with_name("curves.svg"))


if __name__ == "__main__":
    main()
