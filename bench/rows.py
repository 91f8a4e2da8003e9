"""The rows of the table of speeds: what is compared with what, and which ratio is the goal."""

from dataclasses import dataclass


@dataclass
class Row:
    what: str
    ours: str  # the name of a benchmark
    peer: str  # of the floor or the other program; "" for a figure that has none
    goal: float | None = None  # None: only shown
    peer_name: str = ""
    figure: str = "time"  # or "peak_MB"
    is_least: bool = False  # the goal is the least ratio of the peer to ours, not the most of ours to the peer's
    shared_by: int = 0  # our time less the peer's is divided by this number, and the result is the figure
    reason: str = ""  # why the goal may not be met; shown when it is not


FORMATS = {
    "osis": "OSIS", "usfm": "USFM", "zefania": "Zefania", "usx": "USX", "usfx": "USFX", "beblia": "Beblia",
    "opensong": "OpenSong", "ces": "CES", "json": "JSON", "yaml": "YAML", "sqlite": "SQLite", "csv": "CSV",
    "references": "lines with references", "headed_lines": "lines under headings", "zip": "lines in a zip archive",
}


def rows() -> list[Row]:
    reading, entry, page = "reading the files", "reading its entry", "the page alone"
    found = [
        Row("start to a painted chapter", "start/window", "start/bare", 1.10, "a bare window with the page",
            reason="The bare window opens no translation, has no lists to fill and no fonts to fit. What it takes differs "
                   "from run to run more than the difference from the goal; the instructions are below."),
        Row("start to a painted chapter, peak memory", "start/window", "start/bare", 1.04,
            "a bare window with the page", figure="peak_MB"),
        Row("start with 1,000 modules, for each", "start/many_modules", "start/one_module", 5, "with one module",
            shared_by=999,
            reason="About 3 us are the kernel's, which opens, describes, reads and closes one file for each, and 2.5 us are the "
                   "toolkit's for an item of the menu. Both could wait until the menu opens, but whoever reads the menu before, "
                   "as a screen reader may, would find it empty."),
        Row("switch of translation, 26 verses", "switch_translation/verses_26", "page_only/verses_26", 1.2, page),
        Row("switch of translation, 176 verses", "switch_translation/verses_176", "page_only/verses_176", 1.2, page),
        Row("search for part of a word, 300 hits", "scan/rare", "read_text_only", 2.5, reading,
            reason="At its limit: two fifths are reading, and every byte is compared 64 at a time."),
        Row("search for part of a word, 20,000 hits", "scan/common", "read_text_only", 6, reading),
        Row("search for what every verse contains", "scan/every_verse", "read_text_only", 8, reading),
        Row("search for a whole word, 300 hits", "word/hits_300", "read_entry_only/hits_300", 8, entry),
        Row("search for a whole word, 20,000 hits", "word/hits_20000", "read_entry_only/hits_20000", 5, entry),
        Row("opening a translation of 60,000 words", "open_module", "read_text_files_only", 15, reading),
        Row("build from verse lines", "build", "word_count", 5, "wc -w"),
        Row("build from verse lines, peak MB", "build", "", 40, figure="peak_MB"),
    ]
    found += [Row(f"build from {name}", f"format/{key}", "format/verse_lines", 2, "from verse lines")
              for key, name in FORMATS.items()]
    return found + [
        Row("check", "check", "build", 0.5, "build"),
        Row("index of the verses alone", "build", "mkfastmod_plain", 8, "mkfastmod", is_least=True),
        Row("show of a verse", "show", "diatheke", 32, "diatheke", is_least=True),
        Row("index of the text with its markup", "build", "mkfastmod_marked_up", peer_name="mkfastmod",
            is_least=True),
        Row("search for part of a word, 300 hits", "scan/rare", "ripgrep/rare", peer_name="ripgrep", is_least=True),
        Row("search for part of a word, 20,000 hits", "scan/common", "ripgrep/common", peer_name="ripgrep",
            is_least=True),
        Row("search for part of a word in a real text", "real_scan", "real_ripgrep", peer_name="ripgrep", is_least=True),
        Row("reading a chapter of 176 verses", "chapter/whole", "read_chapter_only", peer_name="reading its bytes"),
        Row("opening a further translation in the window", "open_translation", "open_only",
            peer_name="loading it, and the page"),
        Row("list of 31,102 hits in the window", "list_hits", "search_only", peer_name="the search"),
    ]
