"""The section of doc/quality.md on static analysis."""

HEADING = """## Static analysis

`src/` has {count} sources. What the analysers find is mended, or is in `tests/style/analysis.tsv` with the
reason why it is no defect; the test `style.cppcheck` and the targets turn red for anything else, and for a reason that is no
longer needed. clang-tidy, which has tests of its own (`style.tidy`), is not counted here.

| Analyser | Command | Sources read | Findings | Explained | Open |
|---|---|---|---|---|---|
"""
COMMANDS = {
    "cppcheck": ("cppcheck (warnings, performance, portability, style)", "`ctest --preset dev -R style.cppcheck`"),
    "gcc": ("g++ `-fanalyzer`", "`cmake --build --preset dev --target analysis-gcc`"),
    "clang": ("clang++ `-Wall -Wextra -Wshadow -Wconversion`", "`cmake --build --preset dev --target analysis-clang`"),
}

def section(found, rows, matches, count):
    """@param found  the findings of each tool that was run"""
    text = HEADING.format(count=count)
    for tool, (name, command) in COMMANDS.items():
        if tool not in found:
            text += f"| {name} | {command} | none | | | |\n"
            continue
        result = found[tool]
        part = " of " + ", ".join(f"`{folder}`" for folder in result["folders"]) if result["folders"] else ""
        explained = sum(any(row[0] == tool and matches(row, one) for row in rows) for one in result["found"])
        count = len(result["found"])
        text += f"| {name} | {command} | {result['sources']}{part} | {count} | {explained} | {count - explained} |\n"
    text += "\nExplained:\n\n| Analyser | Check | Where | Findings | Why it is no defect |\n|---|---|---|---|---|\n"
    for row in rows:
        tool, check, file, why = row
        where = "`src/`" if file == "*" else f"`{file}`"
        findings = sum(matches(row, one) for one in found.get(tool, {"found": []})["found"])
        text += f"| {tool} | `{check}` | {where} | {findings if tool in found else 'not read'} | {why} |\n"
    return text
