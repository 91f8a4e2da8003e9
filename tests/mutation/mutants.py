"""Small changes of a C++ source: which there are, each as the replacement of a piece of one line."""

import re
from dataclasses import dataclass

# Binary operators stand between blanks (.clang-format), brackets of templates do not.
SWAPPED_OPERATORS = {
    "<": ("comparison", "<="), "<=": ("comparison", "<"), ">": ("comparison", ">="), ">=": ("comparison", ">"),
    "==": ("comparison", "!="), "!=": ("comparison", "=="),
    "&&": ("and/or", "||"), "||": ("and/or", "&&"),
    "+": ("arithmetic", "-"), "-": ("arithmetic", "+"), "+=": ("arithmetic", "-="), "-=": ("arithmetic", "+="),
}
SWAPPED_WORDS = {"true": "false", "false": "true", "std::min": "std::max", "std::max": "std::min"}

BINARY = re.compile(r"(?<=[\w)\]}\"'] )(<=?|>=?|==|!=|&&|\|\||\+=?|-=?)(?= [\w(\"'!*&~:-])")
STEP = re.compile(r"\+\+|--")
WORD = re.compile(r"(?<![\w:])(?:true|false|std::min|std::max)(?![\w:])")
NUMBER = re.compile(r"(?<![\w.'])(?:0|[1-9][0-9]*)(?=u?(?![\w.']))")
CONDITION = re.compile(r"\b(?:if|while) \(")
CALL = re.compile(r"[\w:.>\[\]()*-]+\(.*\);$")
ASSIGNMENT = re.compile(r"[\w:.>\[\]()*-]+ [-+|&]?= .*;$|(?:\+\+|--)[\w.>-]+;$|[\w.>-]+(?:\+\+|--);$")
JUMP = re.compile(r"(?:break|continue|return);$")

# Blanked, so that nothing is found there. A preprocessor line is blanked with its continuations.
HIDDEN = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])\'(?:\\.|[^\'\\\n])+\''
    r"|^[ \t]*#(?:[^\n]*\\\n)*[^\n]*", re.S | re.M)


@dataclass(frozen=True)
class Mutant:
    file: str  # below the project's folder
    line: int  # from 1
    column: int  # from 0
    length: int
    new: str
    kind: str

    def applied(self, text):
        """The text of the file with this change."""
        lines = text.split("\n")
        old = lines[self.line - 1]
        lines[self.line - 1] = old[: self.column] + self.new + old[self.column + self.length :]
        return "\n".join(lines)


def masked(text):
    """The text without comments, string contents and preprocessor lines: of the same length and lines."""

    def blank(match):
        found = match.group()
        blanks = re.sub(r"[^\n]", " ", found)
        # A literal remains an operand for its neighbours.
        return found[0] + blanks[1:-1] + found[-1] if found[0] in "\"'" else blanks

    return HIDDEN.sub(blank, text)


def mutants_of(file, text):
    """All mutants of a source, in the order of its lines."""
    found = []
    before = ""
    for number, (line, whole) in enumerate(zip(masked(text).split("\n"), text.split("\n")), 1):
        for column, length, new, kind in replacements(line, whole, before):
            found.append(Mutant(file, number, column, length, new, kind))
        before = line if line.strip() else before
    return found


def replacements(line, whole, before):
    """@param whole  the line with its comments and texts
    @param before  the last line before it that is not blank"""
    yield from operators(line)
    yield from constants(line)
    yield from conditions(line, whole)
    yield from dropped(line, before)


def operators(line):
    if re.match(r"\s*(template|requires|using|typename)\b", line):
        return
    for match in BINARY.finditer(line):
        kind, new = SWAPPED_OPERATORS[match.group()]
        if kind == "arithmetic" and '"' in (line[match.start() - 2], line[match.end() + 1]):
            continue  # joins texts
        yield match.start(), len(match.group()), new, kind
    for match in STEP.finditer(line):
        yield match.start(), 2, "--" if match.group() == "++" else "++", "arithmetic"


def constants(line):
    if re.match(r"\s*(template|static_assert|using)\b", line) or re.search(r"\bvirtual\b|\) .*= 0;$", line):
        return
    for match in WORD.finditer(line):
        yield match.start(), len(match.group()), SWAPPED_WORDS[match.group()], "constant"
    for match in NUMBER.finditer(line):
        number = int(match.group())
        yield match.start(), len(match.group()), str(number + 1), "constant"
        if number > 0 and not line[: match.start()].endswith("-"):
            yield match.start(), len(match.group()), str(number - 1), "constant"


def conditions(line, whole):
    """Only those that end on their line and declare nothing."""
    for match in CONDITION.finditer(line):
        end = closing(line, match.end() - 1)
        condition = line[match.end() : end]
        if end > 0 and ";" not in condition and not re.search(r"[\w*&>] \w+ = ", condition):
            yield match.end(), len(condition), f"!({whole[match.end() : end]})", "negated condition"


def closing(line, opening):
    """@returns the place of the bracket that closes this one, or 0 if it is on another line"""
    depth = 0
    for place in range(opening, len(line)):
        depth += (line[place] == "(") - (line[place] == ")")
        if depth == 0:
            return place
    return 0


def dropped(line, before):
    """Calls, assignments and jumps that are a line of their own."""
    statement = line.strip()
    begins = re.search(r"(?:[;{}]|\)|\belse|(?<!:):)$", before.rstrip()) is not None
    is_dropped = JUMP.match(statement) or ASSIGNMENT.match(statement) or (
        CALL.match(statement) and not re.match(r"(?:return|throw|if|while|for|switch|delete)\b|.*\{", statement)
        and statement.count("(") == statement.count(")"))
    if begins and is_dropped:
        yield line.index(statement), len(statement), ";", "dropped statement"
