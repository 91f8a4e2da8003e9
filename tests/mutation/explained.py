"""The changes that no test can notice, with the reason: explained.tsv."""

import pathlib

TABLE = pathlib.Path(__file__).with_name("explained.tsv")


def table():
    """@returns the reason for each file, line without its indentation and the same line after the change"""
    rows = [line.split("\t") for line in TABLE.read_text().splitlines() if line and not line.startswith("#")]
    return {(file, text, changed): why for file, text, changed, why in rows}
