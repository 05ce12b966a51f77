#!/usr/bin/env python3
"""Writes foundation/UnicodeTable.cpp from the Unicode Character Database.

Usage: tools/generate-unicode-table.py > foundation/UnicodeTable.cpp

Reads /usr/share/unicode of Debian's package unicode-data; its ReadMe.txt tells the version.
"""

import pathlib
import re
import sys

UCD = pathlib.Path("/usr/share/unicode")
LAST = 0x2FA1D
PAGE = 128
CATEGORIES = ("Lu Ll Lt Lm Lo Mn Mc Me Nd Nl No Pc Pd Ps Pe Pi Pf Po Sm Sc Sk So Zs Zl Zp Cc Cf Cs Co Cn").split()
CODE, NAME, CATEGORY, UPPER, LOWER, TITLE = 0, 1, 2, 12, 13, 14


def version():
    text = (UCD / "ReadMe.txt").read_text(encoding="utf-8")
    return re.search(r"Version (\d+\.\d+\.\d+)", text).group(1)


def read_characters():
    characters = {}
    first = None
    for line in (UCD / "UnicodeData.txt").read_text(encoding="utf-8").splitlines():
        fields = line.split(";")
        code = int(fields[CODE], 16)
        if fields[NAME].endswith(", First>"):
            first = code
            continue
        if fields[NAME].endswith(", Last>"):
            characters.update((c, fields) for c in range(first, code + 1))
        else:
            characters[code] = fields
    return characters


def delta(code, target):
    if not target:
        return 0
    other = int(target, 16)
    if code > LAST or other >> 16 != code >> 16:
        sys.exit(f"U+{code:04X} maps to U+{other:04X}: the table cannot hold that")
    # Modulo 2^16, since no mapping leaves its plane.
    return (other - code + 0x8000) % 0x10000 - 0x8000


def paged(values, pages):
    """The page numbers of a table whose pages are added to the shared ones."""
    index = []
    for start in range(0, len(values), PAGE):
        page = tuple(values[start : start + PAGE])
        index.append(pages.setdefault(page, len(pages)))
    if len(pages) > 256:
        sys.exit("more pages than a byte can number")
    return index


def numbers(name, element, values):
    print(f"const {element} {name}[] = {{")
    line = " "
    for value in values:
        text = f" {value},"
        if len(line) + len(text) > 120:
            print(line)
            line = " "
        line += text
    print(f"{line}\n}};\n")


def main():
    characters = read_characters()
    size = (LAST // PAGE + 1) * PAGE
    rows = [characters.get(code, ["", "", "Cn"] + [""] * 12) for code in range(size)]
    for code, fields in characters.items():
        for column in (LOWER, UPPER, TITLE):
            delta(code, fields[column])

    print(f"// Written by tools/generate-unicode-table.py from the Unicode Character Database {version()}.")
    print("// clang-format off\n")
    print('#include "foundation/UnicodeTable.h"\n')
    print("namespace orlo::unicode {\n")

    delta_pages = {}
    for name, column in (("kLowerPages", LOWER), ("kUpperPages", UPPER), ("kTitlePages", TITLE)):
        deltas = [delta(code, fields[column]) for code, fields in enumerate(rows)]
        numbers(name, "std::uint8_t", paged(deltas, delta_pages))
    numbers("kDeltas", "std::int16_t", (d for page in delta_pages for d in page))

    category_pages = {}
    categories = [CATEGORIES.index(fields[CATEGORY]) for fields in rows]
    numbers("kCategoryPages", "std::uint8_t", paged(categories, category_pages))
    numbers("kCategories", "std::uint8_t", (c for page in category_pages for c in page))

    print("}  // namespace orlo::unicode")


main()
