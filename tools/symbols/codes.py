# SPDX-License-Identifier: GPL-3.0-or-later
"""Which symbol pictures the station asks for, and what their files are called.

The codes are those of the APRS symbol tables (APRS Protocol Reference 1.0.1, appendix 2). A symbol without a
character lies in table1 ("/") or table2 ("\\"); an overlay carries one of the 36 characters and lies in table2.
"""

import pathlib

ROOT = pathlib.Path(__file__).resolve().parents[2]
SYMBOLS = ROOT / "data" / "symbols"
SOURCE = SYMBOLS / "source"


def _codes(text):
    """"33-35 40" as the list [33, 34, 35, 40]."""
    codes = []
    for piece in text.split():
        first, _, last = piece.partition("-")
        codes.extend(range(int(first), int(last or first) + 1))
    return codes


PLAIN = {
    "table1": _codes("33-123 125"),
    "table2": _codes("33-34 36-37 39-47 49-61 63-64 66-86 88-93 96 98 100-104 106-108 111-114 116 119-123 125"),
}
OVERLAY = _codes("35 38 48 62 65 87 94 95 97 99 105 110 115 117 118 122")
CHARACTERS = _codes("48-57 65-90")


def plain_name(code):
    """The file name, without its ending, of a symbol that carries no character."""
    return f"{code:03d}"


def overlay_name(code, character):
    """The file name, without its ending, of a base shape with a character on it."""
    return f"{code:03d}_{character}"


def sources(table):
    """The codes of a table that have a drawing: its own and, in table2, the overlay shapes."""
    return sorted(set(PLAIN[table]) | (set(OVERLAY) if table == "table2" else set()))


def pictures():
    """Every picture as (table, file name without ending, code, character or None)."""
    for table, codes in PLAIN.items():
        for code in codes:
            yield table, plain_name(code), code, None
    for code in OVERLAY:
        for character in CHARACTERS:
            yield "table2", overlay_name(code, character), code, character
