"""The section of doc/quality.md."""

HEADING = """## Mutation

`cmake --build --preset dev --target mutation` makes small changes of the sources, one at a time in a copy of the project:
comparisons, `&&` and `||`, `+` and `-`, constants (also by one), negated conditions and statements left out. It builds each
and runs the tests of its folder (for `qt3` also those of `window`) that need no X server, until one fails. The places are
chosen at random, the same ones for the same seed, and as many of each kind.

*Noticed* is the share of the changes that a test could notice. Left out are those that do not compile, and those that
change nothing: the compiler makes the same code of them, or `tests/mutation/explained.tsv` says why no test can tell.

| `src/` | Possible changes | Tried | Not compiled | Change nothing | Survived | Noticed |
|---|---|---|---|---|---|---|
"""


def section(results, reasons):
    text = HEADING
    total = {"possible": 0, "tried": []}
    for folder, result in results.items():
        text += row(f"`{folder}`", result)
        total = {"possible": total["possible"] + result["possible"], "tried": total["tried"] + result["tried"]}
    text += row("together", total)
    text += listed("Survived, that is, no test failed", [one for one in total["tried"] if one["result"] == "survived"],
                   lambda one: "")
    text += listed("Change nothing, by explanation", [one for one in total["tried"] if one["by"] == "explained"],
                   lambda one: reasons.get((one["file"], one["text"], one["changed"]), ""))
    return text


def count(result, kind):
    return sum(one["result"] == kind for one in result["tried"])


def row(name, result):
    killed, survived = count(result, "killed"), count(result, "survived")
    share = f"{killed} of {killed + survived}, {100 * killed / (killed + survived):.0f} %" if killed + survived else "none"
    return (f"| {name} | {result['possible']} | {len(result['tried'])} | {count(result, 'not compilable')} "
            f"| {count(result, 'equivalent')} | {survived} | {share} |\n")


def listed(title, mutants, reason):
    """A list of changed lines, or nothing if there is none."""
    if not mutants:
        return ""
    text = f"\n{title}:\n\n"
    for one in mutants:
        why = reason(one)
        text += f"- `{one['file'].removeprefix('src/')}`: `{one['text']}` → `{one['changed']}`" + (f": {why}" if why else "") + "\n"
    return text
