"""Tests of docs/page.rng and of the examples in docs/page-format.md."""

import argparse
import pathlib
import re
import struct
import subprocess
import tempfile
import unittest
import zlib

ROOT = pathlib.Path(__file__).resolve().parents[2]
SCHEMA = ROOT / "docs" / "page.rng"
DOCUMENT = ROOT / "docs" / "page-format.md"
# Read, but not as pages are written: names in other cases, a decimal comma, numbers that are none.
UNUSUAL = {ROOT / "tests" / "golden" / "pages" / name for name in ("spelling.xml", "shape-edges.xml")}

BOX = '<content-box x="0" y="0" width="160" height="90"/>'
FRAME = '<center x="80" y="45"/><size width="100" height="50"/>'

TOOLS = argparse.Namespace(xmllint="xmllint", mfilter="mfilter")


def page(content):
    """A page with this content."""
    return f'<graphic-document version="1">{BOX}{content}</graphic-document>\n'


def validate(*paths):
    """What xmllint says of these pages; empty if all of them are as the schema wants them."""
    run = subprocess.run([TOOLS.xmllint, "--noout", "--huge", "--relaxng", SCHEMA, *paths],
                         capture_output=True, text=True, check=False)
    return "" if run.returncode == 0 else run.stderr


def png(width, height):
    """A small picture."""
    def chunk(kind, content):
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

    rows = b"".join(b"\0" + bytes((x * 255 // width, y * 255 // height, 128)[c] for x in range(width) for c in range(3))
                    for y in range(height))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


class Schema(unittest.TestCase):
    """What validates, and what does not."""

    def test_every_sample_and_golden_page_validates(self):
        pages = [path for folder in ("samples", "tests/golden/pages", "tests/golden/views")
                 for path in sorted((ROOT / folder).glob("*.xml")) if path not in UNUSUAL]
        self.assertGreater(len(pages), 15)
        self.assertEqual(re.findall(".* fails to validate|.* error : .*", validate(*pages)), [])

    def test_unusual_pages_do_not_validate(self):
        for path in UNUSUAL:
            self.assertNotEqual(validate(path), "", path)

    def wrong(self, content, whole=False):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "page.xml"
            path.write_text(content if whole else page(content), encoding="utf-8")
            self.assertIn("fails to validate", validate(path), content)

    def test_what_is_wrong_here_is_right_otherwise(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "page.xml"
            path.write_text(page(f'<rectangle rotation="-.5e1" type="rectangle">{FRAME}<tags><any/></tags>'
                                 '<brush style="100"><color red="255" green="0" blue="0" alpha="9"/></brush></rectangle>'
                                 f'<image><size width="9." height="9"/><attachment-bitmap extension="png">\n<![CDATA[AAAA]]>'
                                 '\n</attachment-bitmap></image>'
                                 '<xdata><a type="int" value="7"/><b type="rect"><value x="1"/></b></xdata>'),
                            encoding="utf-8")
            self.assertEqual(validate(path), "")

    def test_names_that_are_not_known(self):
        self.wrong("<star/>")
        self.wrong("<custom/>")
        self.wrong('<rectangle colour="red"/>')
        self.wrong("<rectangle><centre x='1' y='2'/></rectangle>")
        self.wrong("<rectangle><size widht='1'/></rectangle>")
        self.wrong("<RECTANGLE/>")
        self.wrong(f"<menu>{BOX}</menu>", whole=True)

    def test_what_belongs_to_another_kind(self):
        self.wrong('<rectangle text="a"/>')
        self.wrong("<line><brush/></line>")
        self.wrong("<circle><start x='1' y='1'/></circle>")
        self.wrong('<label label="a"/>')
        self.wrong('<rectangle type="circle"/>')
        self.wrong("<text><attachment-bitmap extension='png'>AAAA</attachment-bitmap></text>")

    def test_values_that_are_none(self):
        for number in ("wide", "", "1,5", "12px", "nan", "INF", "0x10"):
            self.wrong(f'<rectangle><size width="{number}"/></rectangle>')
        for channel in ("256", "-1", "red", "1.5"):
            self.wrong(f'<label><color red="{channel}"/></label>')
        self.wrong('<rectangle visible="yes"/>')
        self.wrong('<rectangle><pen width="1.5"/></rectangle>')
        self.wrong('<rectangle><pen style="7"/></rectangle>')
        self.wrong('<rectangle><groups><group nr="0"/></groups></rectangle>')
        self.wrong('<rectangle unique="one"/>')
        self.wrong('<shape shape="star"/>')
        self.wrong('<table><cells><cell vertical-align="middle"/></cells></table>')
        self.wrong('<xdata><a type="String" value=""/></xdata>')
        self.wrong('<xdata><a type="int" value="seven"/></xdata>')

    def test_attachments_that_are_none(self):
        self.wrong("<image><attachment-bitmap>AAAA</attachment-bitmap></image>")
        self.wrong("<image><attachment-bitmap extension='tiff'>AAAA</attachment-bitmap></image>")
        self.wrong("<image><attachment-bitmap extension='png'/></image>")
        self.wrong("<image><attachment-bitmap extension='png'>AAAA\nAAAA</attachment-bitmap></image>")
        self.wrong("<image><attachment-bitmap extension='png'>AAA=</attachment-bitmap></image>")

    def animation(self, content, type_name=' type-name="animation-image"'):
        return f"<animation{type_name}>{FRAME}{content}</animation>"

    def test_animations_that_are_none(self):
        picture = 'extension="png">AAAA</frame'
        listed = f'<animation type="animation" count="1" delay="40"><frame0 {picture}0></animation>'
        gif = ('<animation type="gif" count="1"><size x="2" y="2"/>'
               f'<frame0 delay="70"><frame {picture}></frame0></animation>')
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "page.xml"
            for content in (listed, gif):
                path.write_text(page(self.animation(content) + self.animation("", ' type="animation-image" unique="3"')))
                self.assertEqual(validate(path), "")
        self.wrong(self.animation(listed, ""))
        self.wrong(self.animation(listed, ' type-name="movie"'))
        self.wrong(self.animation(listed + gif))
        for right, broken in ((' count="1"', ""), (' count="1"', ' count="one"'), ('"animation"', '"GIF"'),
                              ('"animation"', '"gif"'), ('extension="png"', ""), ("<frame0", '<frame0 delay="1"')):
            self.wrong(self.animation(listed.replace(right, broken)))
        for right, broken in ((' delay="70"', ""), ('"gif"', '"animation"'), ('y="2"', 'y="2.5"'),
                              (f"<frame {picture}>", "")):
            self.wrong(self.animation(gif.replace(right, broken)))

    def test_skins_that_are_none(self):
        def button(skin):
            return f'<state-button type-name="skin-button">{FRAME}{skin}</state-button>'

        def layers(content, state="normal"):
            return button(f'<skin type="buttonskin"><states><{state}><layers>{content}</layers></{state}></states></skin>')

        self.wrong(button("<skin/>"))
        self.wrong(button('<skin type="ButtonSkin"/>'))
        self.wrong(layers("<text/>", "pressed"))
        self.wrong(layers("<image/>"))
        self.wrong(layers("<Text/>"))
        self.wrong(layers('<text scaling-enabled="true"/>'))
        self.wrong(layers('<animation halo-enabled="true"/>'))
        self.wrong(layers("<custom><skin/></custom>"))

    def test_nodes_given_twice(self):
        self.wrong("<rectangle><size width='1' height='1'/><size width='1' height='1'/></rectangle>")
        self.wrong(BOX)

    def test_text_where_none_belongs(self):
        self.wrong("<label>text</label>")


def examples():
    """The XML examples of the documentation, as whole pages: line and content.

    "```xml" stands before a whole page; "```xml page" before what stands in a page, and "```xml KIND" before what
    stands in an element of that kind.
    """
    text = DOCUMENT.read_text(encoding="utf-8")
    for match in re.finditer(r"^```xml *(.*)\n((?:.*\n)*?)^```$", text, re.MULTILINE):
        place, content = match.group(1), match.group(2)
        line = text.count("\n", 0, match.start()) + 1
        if place == "page":
            content = page(content)
        elif place:
            frame = re.sub(r"<size .*?/>|<center .*?/>", lambda part: "" if part.group()[:5] in content else part.group(),
                           FRAME)
            content = page(f"<{place}>{frame}{content}</{place}>")
        yield line, content


class Examples(unittest.TestCase):
    """Every example is shown, and nothing is wrong with it."""

    def test_nothing_is_wrong_with_the_samples(self):
        for path in sorted((ROOT / "samples").glob("*.xml")):
            check = subprocess.run([TOOLS.mfilter, "check", path], cwd=path.parent, capture_output=True, text=True,
                                   check=False)
            self.assertIn(": no errors, no warnings\n", check.stdout)
            self.assertEqual((check.returncode, check.stderr), (0, ""))

    def test_there_are_examples_of_every_kind(self):
        pages = [content for _, content in examples()]
        self.assertGreater(len(pages), 15)
        schema = SCHEMA.read_text(encoding="utf-8")
        kinds = re.findall(r'<attribute name="type"><value>(.*?)</value>', schema)
        self.assertIn("gif", kinds)
        for kind in kinds:
            if kind not in ("string", "int", "rect"):
                self.assertTrue(any(f"<{kind}" in content or f'type="{kind}"' in content or
                                    f'type-name="{kind}"' in content for content in pages), kind)

    def test_every_example_is_shown_and_nothing_is_wrong_with_it(self):
        with tempfile.TemporaryDirectory() as folder:
            # The files that examples name.
            (pathlib.Path(folder) / "photo.png").write_bytes(png(64, 36))
            (pathlib.Path(folder) / "wall.xml").write_text('<theme width="160" height="90"><place number="1" width="80"/>'
                                                           '<place movie="movie2" x="80" width="80"/></theme>')
            subprocess.run(["ffmpeg", "-v", "error", "-f", "lavfi", "-i", "testsrc=s=64x36:d=2", "sea.mp4"], cwd=folder,
                           check=True)
            for line, content in examples():
                with self.subTest(line=line):
                    path = pathlib.Path(folder) / "page.xml"
                    path.write_text(content, encoding="utf-8")
                    self.assertEqual(validate(path), "")
                    check = subprocess.run([TOOLS.mfilter, "check", "page.xml"], cwd=folder, capture_output=True,
                                           text=True, check=False)
                    self.assertIn("page.xml: no errors, no warnings\n", check.stdout)
                    self.assertEqual((check.returncode, check.stderr), (0, ""))
                    render = subprocess.run([TOOLS.mfilter, "render", "page.xml", "--size", "320x180", "-o", "page.png"], cwd=folder,
                                            capture_output=True, text=True, check=False)
                    self.assertEqual((render.returncode, render.stderr), (0, ""))


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--xmllint")
    parser.add_argument("--mfilter")
    TOOLS, rest = parser.parse_known_args()
    unittest.main(argv=[__file__, *rest])
