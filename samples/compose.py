#!/usr/bin/env python3
"""Composes pages from sources that people can read.

A page holds its pictures and rich texts in base64. A source in samples/sources/ is the same page, but
- a picture is named:     <attachment-bitmap file="pictures/lake.jpg"/>
- a rich text stands as such:  <attachment-richtextbuffer><richtext>...</richtext></attachment-richtextbuffer>

Usage: samples/compose.py             writes samples/NAME.xml for each samples/sources/NAME.xml
       samples/compose.py --check     says which of them are not what their source gives
       samples/compose.py SOURCE      writes the page of any source to standard output
"""

import base64
import re
import sys
from pathlib import Path

SAMPLES = Path(__file__).resolve().parent

PICTURE = re.compile(r'<attachment-bitmap file="([^"]+)"/>')
RICH_TEXT = re.compile(r"<attachment-richtextbuffer>\s*(<richtext.*?</richtext>)\s*</attachment-richtextbuffer>", re.S)


def encode(data):
    return base64.b64encode(data).decode("ascii").rstrip("=")


def compose(source, folder):
    """The page of a source whose pictures lie in a folder."""

    def picture(match):
        path = folder / match[1]
        return (f'<attachment-bitmap extension="{path.suffix[1:]}">'
                f"<![CDATA[{encode(path.read_bytes())}]]></attachment-bitmap>")

    def rich_text(match):
        text = '<?xml version="1.0" encoding="UTF-8"?>\n' + re.sub(r">\s+<", "><", match[1])
        return f"<attachment-richtextbuffer><![CDATA[{encode(text.encode())}]]></attachment-richtextbuffer>"

    return RICH_TEXT.sub(rich_text, PICTURE.sub(picture, source))


def main(arguments):
    if arguments and arguments[0] != "--check":
        source = Path(arguments[0])
        sys.stdout.write(compose(source.read_text(encoding="utf-8"), source.parent))
        return 0
    stale = 0
    for source in sorted((SAMPLES / "sources").glob("*.xml")):
        page = SAMPLES / source.name
        text = compose(source.read_text(encoding="utf-8"), source.parent)
        if not arguments:
            page.write_text(text, encoding="utf-8")
        elif not page.exists() or page.read_text(encoding="utf-8") != text:
            print(f"{page} is not what {source} gives; run samples/compose.py")
            stale = 1
    return stale


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
