#!/usr/bin/env python3
"""What samples/compose.py makes of a source, and that its check sees a page that is not what its source gives."""

import base64
import io
import struct
import sys
import tempfile
import unittest
import zipfile
import zlib
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "samples"))

import compose
import gif

RED, GREEN, BLUE, WHITE = (255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 255)


def blocks(codes, width):
    """Codes of one width, packed into a block."""
    bits = sum(code << (width * place) for place, code in enumerate(codes))
    data = bits.to_bytes((width * len(codes) + 7) // 8, "little")
    return bytes([2, len(data)]) + data + b"\0"


def frame(left, top, width, height, indices, delay, disposal, transparent=None, interlaced=False):
    """A frame in a palette of four colours; a clear code before each pixel keeps all codes three bits wide."""
    flags = disposal << 2 | (transparent is not None)
    control = b"\x21\xF9\x04" + struct.pack("<BHBB", flags, delay, transparent or 0, 0)
    place = b"\x2C" + struct.pack("<HHHHB", left, top, width, height, 0x40 if interlaced else 0)
    return control + place + blocks([code for index in indices for code in (4, index)] + [5], 3)


def gif_file(width, height, *frames):
    palette = b"".join(bytes(colour) for colour in (RED, GREEN, BLUE, WHITE))
    return b"GIF89a" + struct.pack("<HHBBB", width, height, 0x81, 0, 0) + palette + b"".join(frames) + b";"


BLINK = gif_file(2, 2, frame(0, 0, 2, 2, (0, 1, 2, 3), 5, 1), frame(0, 0, 1, 1, (3,), 7, 1))


class Gif(unittest.TestCase):
    def pictures(self, *frames, size=(2, 1)):
        width, height, result = gif.frames(gif_file(*size, *frames))
        self.assertEqual((width, height), size)
        return [rows for rows, _ in result]

    def test_a_frame_lies_over_those_before_it(self):
        _, _, frames = gif.frames(BLINK)
        self.assertEqual(frames, [([[RED, GREEN], [BLUE, WHITE]], 50), ([[WHITE, GREEN], [BLUE, WHITE]], 70)])

    def test_what_is_transparent_lets_the_frame_before_it_through(self):
        pictures = self.pictures(frame(0, 0, 2, 1, (0, 1), 0, 1), frame(0, 0, 2, 1, (2, 3), 0, 1, transparent=3))
        self.assertEqual(pictures[1], [[BLUE, GREEN]])

    def test_disposal_clears_or_brings_back_what_was_there(self):
        cleared = self.pictures(frame(0, 0, 2, 1, (0, 1), 0, 2), frame(0, 0, 1, 1, (2,), 0, 1))
        self.assertEqual(cleared[1], [[BLUE, gif.CLEAR]])
        brought_back = self.pictures(frame(0, 0, 2, 1, (0, 1), 0, 1), frame(0, 0, 2, 1, (2, 2), 0, 3),
                                     frame(0, 0, 1, 1, (3,), 0, 1))
        self.assertEqual(brought_back[2], [[WHITE, GREEN]])

    def test_interlaced_rows_find_their_places(self):
        picture = self.pictures(frame(0, 0, 1, 5, (0, 1, 2, 3, 0), 0, 1, interlaced=True), size=(1, 5))[0]
        self.assertEqual(picture, [[RED], [WHITE], [BLUE], [RED], [GREEN]])

    def test_codes_stand_for_strings_of_pixels(self):
        # Clear, 1, then the string that is being learnt twice: 1, 11, 111.
        data = blocks([4, 1, 6, 7, 5], 3)
        picture = gif.frames(gif_file(6, 1, b"\x2C" + struct.pack("<HHHHB", 0, 0, 6, 1, 0) + data))[2][0][0]
        self.assertEqual(picture, [[GREEN] * 6])

    def test_a_png_has_the_pixels_and_what_is_clear(self):
        data = gif.png([[RED, gif.CLEAR], [BLUE, RED]])
        self.assertEqual(struct.unpack_from(">IIBB", data, 16), (2, 2, 8, 3))
        palette = data[data.index(b"PLTE") + 4:][:9]
        self.assertEqual(palette, bytes((0, 0, 0)) + bytes(BLUE) + bytes(RED))
        self.assertIn(b"tRNS\0", data)
        at = data.index(b"IDAT")
        pixels = zlib.decompress(data[at + 4:at + 4 + int.from_bytes(data[at - 4:at], "big")])
        self.assertEqual(pixels, b"\0\2\0" + b"\0\1\2")


class Compose(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = Path(self.folder.name)
        (self.root / "sources").mkdir()
        (self.root / "sources" / "dot.png").write_bytes(b"\x89PNG")
        self.addCleanup(setattr, compose, "SAMPLES", compose.SAMPLES)
        compose.SAMPLES = self.root

    def write(self, text):
        (self.root / "sources" / "menu.xml").write_text(text, encoding="utf-8")

    def test_a_picture_becomes_base64_without_padding(self):
        page = compose.compose('<attachment-bitmap file="dot.png"/>', self.root / "sources")
        self.assertEqual(page, '<attachment-bitmap extension="png"><![CDATA[iVBORw]]></attachment-bitmap>')

    def test_a_rich_text_becomes_base64_without_the_space_between_its_nodes(self):
        page = compose.compose("<attachment-richtextbuffer>\n <richtext>\n  <text>a b</text>\n </richtext>\n"
                               "</attachment-richtextbuffer>", self.root)
        code = page.split("[CDATA[")[1].split("]]")[0]
        text = base64.b64decode(code + "=" * (-len(code) % 4)).decode()
        self.assertTrue(text.endswith("<richtext><text>a b</text></richtext>"), text)

    def test_any_picture_may_be_a_file(self):
        page = compose.compose('<props><icon><prop-icon file="dot.png"/></icon></props>', self.root / "sources")
        self.assertEqual(page, '<props><icon><prop-icon extension="png"><![CDATA[iVBORw]]></prop-icon></icon></props>')

    def test_a_folder_of_pictures_becomes_a_list_of_frames_in_the_order_of_their_numbers(self):
        folder = self.root / "sources" / "steps"
        folder.mkdir()
        for number in (0, 2, 10):
            (folder / f"{number}.png").write_bytes(bytes([number]))
        page = compose.compose('<animation type="animation" delay="30" file="steps"/>', self.root / "sources")
        self.assertEqual(page.split("\n"), [
            '<animation type="animation" delay="30" count="3">', '<frame0 extension="png"><![CDATA[AA]]></frame0>',
            '<frame1 extension="png"><![CDATA[Ag]]></frame1>', '<frame2 extension="png"><![CDATA[Cg]]></frame2>',
            "</animation>"])

    def test_a_gif_becomes_whole_pictures_with_times_of_their_own(self):
        (self.root / "sources" / "blink.gif").write_bytes(BLINK)
        page = compose.compose('<animation type="gif" loop="true" file="blink.gif"/>', self.root / "sources")
        lines = page.split("\n")
        self.assertEqual(lines[:2], ['<animation type="gif" loop="true" count="2">', '<size x="2" y="2"/>'])
        self.assertRegex(lines[2], r'^<frame0 delay="50"><frame extension="png"><!\[CDATA\[iVBOR.*\]\]></frame></frame0>$')
        self.assertTrue(lines[3].startswith('<frame1 delay="70"><frame '))

    def test_the_same_pixels_packed_in_another_way_are_the_same_page(self):
        rows = [[(1, 2, 3)] * 40] * 40
        tight, loose = gif.png(rows), gif.png(rows)
        at = loose.index(b"IDAT") + 4
        packed = zlib.compress(zlib.decompress(loose[at:-16]), 1)
        self.assertNotEqual(packed, tight[at:-16])
        loose = loose[:at - 8] + len(packed).to_bytes(4, "big") + b"IDAT" + packed + b"crc " + loose[-12:]
        node = "<frame><![CDATA[{}]]></frame>"
        first, second = (node.format(compose.encode(data)) for data in (tight, loose))
        self.assertTrue(compose.is_same(first, second))
        other = node.format(compose.encode(gif.png([[(1, 2, 4)] * 40] * 40)))
        self.assertFalse(compose.is_same(first, other))
    def test_an_archive_holds_each_file_once_and_always_the_same_bytes(self):
        text = "<attachment-richtextbuffer><richtext>\n <a/></richtext></attachment-richtextbuffer>"
        source = '<attachment-bitmap file="dot.png"/>' * 2 + text * 2
        page, archive = compose.compose_with_archive(source, self.root / "sources")
        self.assertEqual(page, '<attachment-bitmap name="dot.png"/>' * 2 +
                         '<attachment-richtextbuffer name="texts/01.xml"/>' * 2)
        self.assertEqual(compose.compose_with_archive(source, self.root / "sources")[1], archive)
        with zipfile.ZipFile(io.BytesIO(archive)) as opened:
            self.assertEqual(opened.namelist(), ["dot.png", "texts/01.xml"])
            self.assertEqual(opened.read("dot.png"), b"\x89PNG")
            self.assertTrue(opened.read("texts/01.xml").endswith(b"<richtext><a/></richtext>"))

    def test_a_fresh_page_passes_and_a_changed_or_missing_one_does_not(self):
        self.write('<page><attachment-bitmap file="dot.png"/></page>')
        self.assertEqual(compose.main(["--check"]), 1)
        self.assertEqual(compose.main([]), 0)
        self.assertEqual(compose.main(["--check"]), 0)
        (self.root / "sources" / "dot.png").write_bytes(b"\x89PNX")
        self.assertEqual(compose.main(["--check"]), 1)


if __name__ == "__main__":
    unittest.main()
