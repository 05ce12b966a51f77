#!/usr/bin/env python3
"""Fails when a source file includes something from a storey above its own.

Usage: check_storeys.py [ROOT]
"""

import pathlib
import re
import sys

# From the ground up. A folder that is not named belongs to the nearest named one above it.
STOREYS = [
    "foundation",
    "foundation/wxutil",
    "backend/infilexml",
    "backend/handler",
    "graphics/geometry",
    "graphics/paint",
    "graphics/model",
    "graphics/art",
    "graphics/elements",
    "graphics/skin",
    "graphics/animation",
    "graphics/vantra",
    "authed/data",
    "filter",
    "filter/exports",
]
# What these may include; the command, for one, knows the C header alone.
CLOSED = {
    "host": ["host", "include"],
    "include": ["include"],
    "backend/ffmpeg": ["backend", "foundation"],
}
# What everybody may include.
OPEN = ["include"]
# Storeys that know no toolkit.
WITHOUT_TOOLKIT = ["foundation", "backend/infilexml", "backend/handler", "backend/ffmpeg", "host", "include"]

SUFFIXES = {".h", ".hpp", ".c", ".cpp"}
INCLUDE = re.compile(r'^\s*#\s*include\s*(["<])([^">]+)[">]')
ROOTS = {name.split("/")[0] for name in STOREYS + list(CLOSED)}


def storey_of(path):
    """The storey a path from the root belongs to, None for a path outside of all."""
    folders = pathlib.PurePosixPath(path).parent
    for folder in [folders, *folders.parents]:
        if str(folder) in STOREYS or str(folder) in CLOSED:
            return str(folder)
    return None


def lies_in(path, folders):
    return any(path == folder or path.startswith(folder + "/") for folder in folders)


def fault_of(root, source, quote, included):
    """What is wrong with one include of a source file, None if nothing is."""
    own = storey_of(source)
    if quote == "<":
        if included.startswith("wx/") and own in WITHOUT_TOOLKIT:
            return f"{own}/ knows no toolkit"
        return None
    if (root / "include" / included).is_file():
        included = "include/" + included
    if not (root / included).is_file():
        return "is not written from the root of the repository"
    if own in CLOSED:
        return None if lies_in(included, CLOSED[own]) else f"{own}/ may include {', '.join(CLOSED[own])} only"
    if lies_in(included, OPEN):
        return None
    other = storey_of(included)
    if other not in STOREYS:
        return f"lies in no storey that {own}/ may include"
    if STOREYS.index(other) > STOREYS.index(own):
        return f"{other}/ stands above {own}/"
    return None


def faults(root):
    for folder in sorted(ROOTS):
        for file in sorted((root / folder).rglob("*")):
            if file.suffix not in SUFFIXES or not file.is_file():
                continue
            source = file.relative_to(root).as_posix()
            if storey_of(source) is None:
                yield f"{source}: lies in no storey; name its folder in {pathlib.Path(__file__).name}"
                continue
            lines = file.read_text(encoding="utf-8").splitlines()
            for number, line in enumerate(lines, start=1):
                match = INCLUDE.match(line)
                fault = fault_of(root, source, match[1], match[2]) if match else None
                if fault:
                    yield f"{source}:{number}: {match[2]}: {fault}"


def main():
    root = pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else pathlib.Path(__file__).resolve().parent.parent
    found = list(faults(root))
    for fault in found:
        print(fault)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
