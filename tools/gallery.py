#!/usr/bin/env python3
"""Draws the examples of docs/gallery.md: each xml block that follows a picture in images/gallery/.

Usage: tools/gallery.py MFILTER FOLDER          draws each into FOLDER; fails if one cannot be drawn
                                               or does not follow docs/page.rng
"""

import re
import subprocess
import sys
from pathlib import Path

sys.dont_write_bytecode = True
ROOT = Path(__file__).resolve().parent.parent
sys.path.insert(0, str(ROOT / "samples"))

from compose import compose

EXAMPLE = re.compile(r"!\[[^\]]*\]\(images/gallery/([a-z-]+)\.png\)\n\n```xml\n(.*?)```", re.S)
PAGE = '<page>\n<content-box x="0" y="0" width="96" height="54"/>\n{}</page>\n'
SIZE, BACKGROUND = "480x270", "#d3dce8"


def pages():
    """Name and page of each example."""
    text = (ROOT / "docs" / "gallery.md").read_text(encoding="utf-8")
    found = EXAMPLE.findall(text)
    pictures = re.findall(r"\(images/gallery/([a-z-]+)\.png\)", text)
    if [name for name, _ in found] != pictures or len(set(pictures)) != len(pictures) or text.count("```xml\n") != len(found):
        sys.exit("docs/gallery.md: each picture needs a name of its own and an xml block after it")
    return [(name, compose(PAGE.format(xml), ROOT / "samples" / "sources")) for name, xml in found]


def main(mfilter, folder):
    folder = Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    failed = 0
    for name, page in pages():
        source = folder / f"{name}.xml"
        source.write_text(page, encoding="utf-8")
        picture = folder / f"{name}.png"
        for command in (["xmllint", "--noout", "--relaxng", ROOT / "docs" / "page.rng", source],
                        [mfilter, "render", source, "--input", BACKGROUND, "--size", SIZE, "-o", picture]):
            result = subprocess.run(command, capture_output=True, text=True)
            if result.returncode != 0:
                print(f"docs/gallery.md: the example '{name}' is wrong:\n{result.stderr}")
                failed = 1
        source.unlink()
    return failed


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
