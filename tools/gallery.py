#!/usr/bin/env python3
"""Draws the examples of docs/gallery.md: each xml block that follows a picture in images/gallery/. A line such as
"<!-- frames 0 12 24 36 -->" between them makes a strip of these frames.

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

EXAMPLE = re.compile(r"!\[[^\]]*\]\(images/gallery/([a-z-]+)\.png\)\n\n(?:<!-- frames ([0-9 ]+) -->\n\n)?```xml\n(.*?)```", re.S)
PAGE = '<page>\n<content-box x="0" y="0" width="96" height="54"/>\n{}</page>\n'
SIZE, FRAME_SIZE, BACKGROUND = "480x270", "240x135", "#d3dce8"


def pages():
    """Name, frames of the strip if it is one, and page of each example."""
    text = (ROOT / "docs" / "gallery.md").read_text(encoding="utf-8")
    found = EXAMPLE.findall(text)
    pictures = re.findall(r"\(images/gallery/([a-z-]+)\.png\)", text)
    if [name for name, _, _ in found] != pictures or len(set(pictures)) != len(pictures) or text.count("```xml\n") != len(found):
        sys.exit("docs/gallery.md: each picture needs a name of its own and an xml block after it")
    return [(name, frames.split(), compose(PAGE.format(xml), ROOT / "samples" / "sources")) for name, frames, xml in found]


def run(*command, **options):
    """Runs a command and gives what it writes."""
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=True, **options).stdout


def draw(mfilter, source, frames, picture):
    run("xmllint", "--noout", "--huge", "--relaxng", ROOT / "docs" / "page.rng", source)
    # The files of movies need not be there: their still pictures do.
    render = [mfilter, "render", source, "--input", BACKGROUND, "--no-movies"]
    if not frames:
        run(*render, "--size", SIZE, "-o", picture)
        return
    video = run(*render, "--size", FRAME_SIZE, "--frames", f"0-{frames[-1]}", "-o", "-")
    wanted = "+".join(f"eq(n,{frame})" for frame in frames)
    run("ffmpeg", "-v", "error", "-y", "-f", "rawvideo", "-pixel_format", "bgra", "-video_size", FRAME_SIZE, "-i", "-",
        "-vf", f"select='{wanted}',tile={len(frames)}x1:padding=4:color=white,format=rgb24", "-frames:v", "1", picture,
        input=video)


def main(mfilter, folder):
    folder = Path(folder)
    folder.mkdir(parents=True, exist_ok=True)
    failed = 0
    for name, frames, page in pages():
        source = folder / f"{name}.xml"
        source.write_text(page, encoding="utf-8")
        picture = folder / f"{name}.png"
        try:
            draw(mfilter, source, frames, picture)
        except subprocess.CalledProcessError as error:
            print(f"docs/gallery.md: the example '{name}' is wrong:\n{error.stderr.decode()}")
            failed = 1
        source.unlink()
    return failed


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    sys.exit(main(*sys.argv[1:]))
