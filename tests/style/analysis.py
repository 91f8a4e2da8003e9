#!/usr/bin/env python3
"""What analysers find in src that is not explained in analysis.tsv.

    tests/style/analysis.py BUILD cppcheck
    tests/style/analysis.py BUILD gcc|clang [FOLDER...]
    tests/style/analysis.py BUILD --report

BUILD is a configured build folder. cppcheck takes seconds; gcc (g++ -fanalyzer) and clang (clang++ with -Wall -Wextra
-Wshadow -Wconversion) compile every source of src, or of some folders of it, again, which takes long. The findings are
kept in BUILD/analysis for --report, which writes doc/quality/static.md. Ends with 1 for a finding without explanation, and
for an explanation without finding if all sources were read.
"""

import concurrent.futures
import json
import pathlib
import re
import shlex
import subprocess
import sys

import analysis_report

PROJECT = pathlib.Path(__file__).resolve().parents[2]
EXPLAINED = pathlib.Path(__file__).with_name("analysis.tsv")
CPPCHECK = ["cppcheck", "-q", "-j2", "--enable=warning,performance,portability,style", "--std=c++20", "--library=qt",
            "--template={file}:{line}: {message} [{id}]", "--suppress=*:*/build/*"]
COMPILERS = {"gcc": ("g++", ["-fanalyzer", "-S", "-o", "/dev/null"]),
             "clang": ("clang++-14", ["-fsyntax-only", "-Wno-unknown-warning-option"])}
FINDING = re.compile(r"^(\S+?):(?:\d+:)*\s*(?:(?:fatal )?error: |warning: )?(.*) \[(?:-W)?(?:error=)?([\w+-]+)(?:=\d)?\]$", re.M)


def main(build, tool, folders):
    if tool == "--report":
        return write_report(build)
    read = sources(build, folders)
    found = cppcheck() if tool == "cppcheck" else compiled(read, *COMPILERS[tool])
    kept = build / "analysis" / f"{tool}.json"
    kept.parent.mkdir(exist_ok=True)
    kept.write_text(json.dumps({"sources": len(read), "folders": folders, "found": found}))
    return judge(tool, found, bool(folders))


def judge(tool, found, is_part):
    """@returns the exit code"""
    rows = [row for row in explained() if row[0] == tool]
    open_findings = [one for one in found if not any(matches(row, one) for row in rows)]
    stale = [row for row in rows if not is_part and not any(matches(row, one) for one in found)]
    for file, check, message in open_findings:
        print(f"{file}: {message} [{check}]")
    for _, check, file, _ in stale:
        print(f"analysis.tsv: {tool} finds no {check} in {file} any more")
    return 1 if open_findings or stale else 0


def explained():
    """@returns tool, check, file (or * for every one) and reason, for each row"""
    lines = EXPLAINED.read_text().splitlines()
    return [tuple(line.split("\t")) for line in lines if line and not line.startswith("#")]


def matches(row, finding):
    return row[1] == finding[1] and row[2] in ("*", finding[0])


def findings(output):
    """@returns file below the project, check and message; each once, though every source that includes a header has it"""
    every = {(re.sub(rf"^.*?(?={PROJECT}|src/)(?:{PROJECT}/)?", "", file), check, message)
             for file, message, check in FINDING.findall(output)}
    return sorted(every)


def cppcheck():
    folders = [f"-I{path}" for path in sorted((PROJECT / "src").rglob("*")) if path.is_dir()]
    return findings(output_of([*CPPCHECK, *folders, "src"], PROJECT))


def compiled(read, compiler, options):
    """What the compiler warns of in any of these sources."""
    commands = [(compiler_command(entry, compiler, options), entry["directory"]) for entry in read]
    with concurrent.futures.ThreadPoolExecutor(2) as pool:
        return findings("\n".join(pool.map(lambda command: output_of(*command), commands)))


def sources(build, folders):
    """@param folders  of src; all if there is none"""
    entries = json.loads((build / "compile_commands.json").read_text())
    wanted = tuple(f"{PROJECT}/src/{folder}/" for folder in folders) or (f"{PROJECT}/src/",)
    by_file = {entry["file"]: entry for entry in entries if entry["file"].startswith(wanted)}
    return [by_file[file] for file in sorted(by_file)]


def compiler_command(entry, compiler, options):
    words = shlex.split(entry["command"])
    words = words[next(i for i, word in enumerate(words) if word.endswith("++")) + 1 :]
    output = words.index("-o")
    del words[output : output + 2]
    return [compiler, *(word for word in words if word not in ("-c", "-Werror")), *options]


def output_of(command, folder):
    done = subprocess.run(command, cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace")
    if done.returncode:
        sys.exit(f"{done.stdout}\nanalysis.py: this failed: {shlex.join(command)}")
    return done.stdout


def write_report(build):
    found = {tool: json.loads((build / "analysis" / f"{tool}.json").read_text())
             for tool in ("cppcheck", "gcc", "clang") if (build / "analysis" / f"{tool}.json").exists()}
    section = analysis_report.section(found, explained(), matches, len(sources(build, [])))
    print(section)
    target = PROJECT / "doc" / "quality" / "static.md"
    target.parent.mkdir(exist_ok=True)
    target.write_text(section)
    return 0


if __name__ == "__main__":
    if len(sys.argv) < 3 or sys.argv[2] not in ("cppcheck", "--report", *COMPILERS):
        sys.exit(__doc__)
    sys.exit(main(pathlib.Path(sys.argv[1]).resolve(), sys.argv[2], sys.argv[3:]))
