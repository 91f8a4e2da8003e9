"""Which tests notice a change of a folder of src, the likeliest and quickest first."""

import re
from dataclasses import dataclass

FOLDERS = ("base", "tolvo", "qt3", "window", "modtool", "add")


@dataclass(frozen=True)
class Program:
    """A GoogleTest program, run as one process."""

    folder: str  # below tests
    name: str
    without: str = ""  # a filter of GoogleTest

    @property
    def targets(self):
        return [self.name]

    def command(self, build, limit):
        return [f"{build}/tests/{self.folder}/{self.name}", "--gtest_fail_fast", "--gtest_brief=1",
                f"--gtest_filter=-{self.without}"]

    def first_failure(self, output):
        found = re.search(r"^\[  FAILED  \] (\S+)", output, re.M)
        return found.group(1) if found else f"{self.name} (crash)"


@dataclass(frozen=True)
class Folder:
    """The tests of CTest of a folder that need no X server."""

    folder: str  # below tests
    without: str = r"\.x\."
    programs: tuple = ()  # which its tests run

    @property
    def name(self):
        return f"tests of {self.folder}"

    @property
    def targets(self):
        return [f"tests/{self.folder}/all", *self.programs]

    def command(self, build, limit):
        return ["ctest", "--test-dir", f"{build}/tests/{self.folder}", "-j", "2", "--stop-on-failure", "--timeout",
                str(int(limit)), "-E", self.without]

    def first_failure(self, output):
        found = re.search(r"Test +#\d+: (\S+) \.*\** *(?:\*\*\*|Subprocess|Child)", output)
        return found.group(1) if found else self.name


BASE = Program("base", "base_tests")
READERS = Program("tolvo", "tolvo_reader_tests")
ENGINE = Program("tolvo", "tolvo_engine_tests")
QT3 = Folder("qt3")
WINDOW = Folder("window")
NEEDS_ALL_TESTS = "SourcesPage.NamesTestsThatExist"  # lists those of the whole build, and no more is built than is run
MODTOOL = [Program(f"modtool/{name}", f"modtool_{name}_tests", NEEDS_ALL_TESTS)
           for name in ("terminal", "text", "numbering", "source", "files", "check", "install", "build", "sword", "query")]
COMMAND = Folder("modtool/command", r"\.x\.|modtool\.install")  # which installs the whole build

ADD = Folder("add", programs=("kedrin-add", "kedrin-add-sword"))


def steps_for(file):
    """@param file  below the project's folder, for example src/qt3/text.cpp"""
    parts = file.split("/")
    if parts[1] == "modtool":
        own = [step for step in MODTOOL if step.folder == f"modtool/{parts[2]}"]
        return own + [step for step in MODTOOL if step not in own] + [COMMAND]
    return {"base": [BASE, READERS, ENGINE], "tolvo": [READERS, ENGINE, Folder("tolvo")], "qt3": [QT3, WINDOW],
            "window": [WINDOW], "add": [ADD]}[parts[1]]
