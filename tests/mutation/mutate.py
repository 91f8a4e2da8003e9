#!/usr/bin/env python3
"""Measures what the tests notice: makes small changes of the sources, one at a time in a copy of the project, and runs the
tests that should notice each.

    tests/mutation/mutate.py [--count N] [--seed N] [FOLDER...]

changes N places in each FOLDER of src (all six without one): as many of each kind of change. The results of a folder are
kept in build/mutation until it is measured again; doc/quality/mutation.md is written from those of all folders. Ctrl-C
ends it without any loss but that of the folder being measured.
"""

import argparse
import json
import pathlib
import random
import signal
import sys
from dataclasses import asdict

import explained
import mutants
import report
import steps
import workspace

PROJECT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = PROJECT / "build" / "mutation"


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=12, help="changes in each folder (default: %(default)s)")
    parser.add_argument("--seed", type=int, default=1, help="another number chooses other places (default: %(default)s)")
    parser.add_argument("--jobs", type=int, default=2, help="compilers at a time (default: %(default)s)")
    parser.add_argument("folders", nargs="*", metavar="FOLDER", help=" ".join(steps.FOLDERS))
    options = parser.parse_args()
    unknown = set(options.folders) - set(steps.FOLDERS)
    if unknown:
        parser.error(f"no folder of src: {' '.join(sorted(unknown))}")
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    FOLDER.mkdir(parents=True, exist_ok=True)
    tree = workspace.Workspace(PROJECT, FOLDER, options.jobs)
    tree.prepare()
    for folder in options.folders or steps.FOLDERS:
        results = measure(tree, folder, options)
        (FOLDER / f"{folder}.json").write_text(json.dumps(results, indent=1, ensure_ascii=False))
        write_report()


def all_mutants(folder):
    sources = sorted(path for path in (PROJECT / "src" / folder).rglob("*") if path.suffix in (".cpp", ".h"))
    return [mutant for source in sources
            for mutant in mutants.mutants_of(str(source.relative_to(PROJECT)), source.read_text())]


def sample(possible, count, choice):
    """As many of each kind, as far as there are so many."""
    kinds = {}
    for mutant in possible:
        kinds.setdefault(mutant.kind, []).append(mutant)
    for of_kind in kinds.values():
        choice.shuffle(of_kind)
    chosen = []
    while len(chosen) < min(count, len(possible)):
        chosen += [kinds[kind].pop() for kind in sorted(kinds) if kinds[kind]]
    return sorted(chosen[:count], key=lambda mutant: (mutant.file, mutant.line, mutant.column))


def measure(tree, folder, options):
    possible = all_mutants(folder)
    chosen = sample(possible, options.count, random.Random(f"{options.seed} {folder}"))
    limits = limits_of_unchanged(tree, chosen)
    codes = {mutant.file: tree.objects_of(mutant.file) for mutant in chosen}
    known = explained.table()
    tried = []
    for number, mutant in enumerate(chosen, 1):
        text = (PROJECT / mutant.file).read_text().split("\n")[mutant.line - 1].strip()
        changed = mutant.applied((PROJECT / mutant.file).read_text()).split("\n")[mutant.line - 1].strip()
        try:
            tree.change(mutant)
            result, by = outcome(tree, mutant, limits, codes[mutant.file])
        finally:
            tree.restore()
        if result == "survived" and (mutant.file, text, changed) in known:
            result, by = "equivalent", "explained"
        print(f"{folder} {number}/{len(chosen)}: {result}: {mutant.file}:{mutant.line}: {text}  ->  {changed}"
              + (f"  ({by})" if by else ""), flush=True)
        tried.append({**asdict(mutant), "text": text, "changed": changed, "result": result, "by": by})
    return {"possible": len(possible), "seed": options.seed, "tried": tried}


def limits_of_unchanged(tree, chosen):
    """@returns for each step that the mutants need, how many seconds it may take: ten times as long as for the unchanged
    sources, and at least a minute
    Ends the program if the unchanged sources are not green."""
    limits = {}
    for step in dict.fromkeys(step for mutant in chosen for step in steps.steps_for(mutant.file)):
        if not tree.make(step.targets):
            sys.exit(f"mutate.py: the unchanged sources cannot be built: {step.targets}")
        reason, seconds = tree.run(step, 3600)
        if reason:
            sys.exit(f"mutate.py: {step.name} is red without any change: {reason}")
        print(f"unchanged: {step.name}: {seconds:.0f} s", flush=True)
        limits[step] = max(60, 10 * seconds)
    return limits


def outcome(tree, mutant, limits, code):
    """@returns the result, and the test that noticed the change"""
    for step in steps.steps_for(mutant.file):
        if not tree.make(step.targets):
            return "not compilable", None
        if code and tree.objects_of(mutant.file) == code:
            return "equivalent", "same code"
        reason, _ = tree.run(step, limits[step])
        if reason:
            return "killed", reason
    return "survived", None


def write_report():
    results = {folder: json.loads((FOLDER / f"{folder}.json").read_text())
               for folder in steps.FOLDERS if (FOLDER / f"{folder}.json").exists()}
    section = report.section(results, explained.table())
    print(section)
    target = PROJECT / "doc" / "quality" / "mutation.md"
    target.parent.mkdir(exist_ok=True)
    target.write_text(section)


if __name__ == "__main__":
    main()
