#!/usr/bin/env python3
"""Composes pages from sources that people can read.

A page holds its pictures and rich texts in base64. A source in samples/sources/ is the same page, but
- a picture is named:     <attachment-bitmap file="pictures/lake.jpg"/>
- and so is an animation: <animation type="gif" loop="true" file="pictures/reel.gif"/>, or, where the pictures lie in a
  folder as 0.png, 1.png ..., <animation type="animation" delay="30" loop="true" file="pictures/lanterns"/>
- a rich text stands as such:  <attachment-richtextbuffer><richtext>...</richtext></attachment-richtextbuffer>

The page of zip-menu/ has them in an archive beside it instead, under names.

Usage: samples/compose.py             writes samples/NAME.xml for each samples/sources/NAME.xml, and samples/zip-menu/
                                      and samples/disc/menu.xml for disc.xml
       samples/compose.py --check     says which of them are not what their source gives
       samples/compose.py SOURCE      writes the page of any source to standard output
"""

import base64
import io
import re
import sys
import zipfile
import zlib
from pathlib import Path

import gif

SAMPLES = Path(__file__).resolve().parent
ARCHIVED = "chapter-menu.xml"
TARGETS = {"disc.xml": "disc/menu.xml"}  # of the others, the name of the source

ANIMATION = re.compile(r'<animation ([^>]*?) ?file="([^"]+)"/>')
PICTURE = re.compile(r'<([\w-]+) file="([^"]+)"/>')
RICH_TEXT = re.compile(r"<attachment-richtextbuffer>\s*(<richtext.*?</richtext>)\s*</attachment-richtextbuffer>", re.S)


def encode(data):
    return base64.b64encode(data).decode("ascii").rstrip("=")


def attachment(node, extension, data):
    return f'<{node} extension="{extension}"><![CDATA[{encode(data)}]]></{node}>'


def gif_nodes(path):
    """How many frames there are, and what stands in the node of the animation."""
    width, height, frames = gif.frames(path.read_bytes())
    nodes = [f'<frame{i} delay="{delay}">{attachment("frame", "png", gif.png(rows))}</frame{i}>'
             for i, (rows, delay) in enumerate(frames)]
    return len(frames), [f'<size x="{width}" y="{height}"/>', *nodes]


def folder_nodes(folder):
    pictures = sorted(folder.glob("*.png"), key=lambda path: int(path.stem))
    return len(pictures), [attachment(f"frame{i}", "png", path.read_bytes()) for i, path in enumerate(pictures)]


def rich_text_file(richtext):
    return ('<?xml version="1.0" encoding="UTF-8"?>\n' + re.sub(r">\s+<", "><", richtext)).encode()


def compose(source, folder):
    """The page of a source whose pictures lie in a folder."""

    def animation(match):
        path = folder / match[2]
        count, nodes = folder_nodes(path) if path.is_dir() else gif_nodes(path)
        return f'<animation {match[1]} count="{count}">\n' + "".join(f"{node}\n" for node in nodes) + "</animation>"

    def picture(match):
        path = folder / match[2]
        return attachment(match[1], path.suffix[1:], path.read_bytes())

    def rich_text(match):
        return f"<attachment-richtextbuffer><![CDATA[{encode(rich_text_file(match[1]))}]]></attachment-richtextbuffer>"

    return RICH_TEXT.sub(rich_text, PICTURE.sub(picture, ANIMATION.sub(animation, source)))


def plain(page):
    """The page with its PNG pictures unpacked: two libraries may pack the same pixels in different ways."""

    def unpacked(match):
        data = base64.b64decode(match[1] + "=" * (-len(match[1]) % 4))
        at, pixels, others = 8, b"", b""
        while at < len(data):
            end = at + 12 + int.from_bytes(data[at:at + 4], "big")
            if data[at + 4:at + 8] == b"IDAT":
                pixels += data[at + 8:end - 4]
            else:
                others += data[at:end]
            at = end
        return f"{others} {zlib.decompress(pixels)}"

    return re.sub(r"(?<=CDATA\[)(iVBORw0KGgo[A-Za-z0-9+/]+)", unpacked, page)


def is_same(page, other):
    return page == other or plain(page) == plain(other)


def compose_with_archive(source, folder):
    """The page of a source, and the archive that its pictures and rich texts lie in."""
    files = {}

    def picture(match):
        files[match[2]] = (folder / match[2]).read_bytes()
        return f'<{match[1]} name="{match[2]}"/>'

    def rich_text(match):
        text = rich_text_file(match[1])
        name = next((known for known, content in files.items() if content == text), f"texts/{len(files):02}.xml")
        files[name] = text
        return f'<attachment-richtextbuffer name="{name}"/>'

    page = RICH_TEXT.sub(rich_text, PICTURE.sub(picture, source))
    archive = io.BytesIO()
    # Stored and of a fixed time, so that the bytes are the same wherever it is made.
    with zipfile.ZipFile(archive, "w", zipfile.ZIP_STORED) as target:
        for name, content in files.items():
            info = zipfile.ZipInfo(name)
            info.create_system = 3
            target.writestr(info, content)
    return page, archive.getvalue()


def outputs():
    """What is written, and the source that it is made of."""
    for source in sorted((SAMPLES / "sources").glob("*.xml")):
        text = source.read_text(encoding="utf-8")
        yield SAMPLES / TARGETS.get(source.name, source.name), compose(text, source.parent).encode(), source
        if source.name == ARCHIVED:
            page, archive = compose_with_archive(text, source.parent)
            yield SAMPLES / "zip-menu" / "menu.xml", page.encode(), source
            yield SAMPLES / "zip-menu" / "menu.zip", archive, source


def main(arguments):
    if arguments and arguments[0] != "--check":
        source = Path(arguments[0])
        sys.stdout.write(compose(source.read_text(encoding="utf-8"), source.parent))
        return 0
    stale = 0
    for target, content, source in outputs():
        if not arguments:
            target.parent.mkdir(exist_ok=True)
            target.write_bytes(content)
        elif not target.exists() or not is_same(target.read_bytes().decode("latin-1"), content.decode("latin-1")):
            print(f"{target} is not what {source} gives; run samples/compose.py")
            stale = 1
    return stale


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
