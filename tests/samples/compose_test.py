#!/usr/bin/env python3
"""What samples/compose.py makes of a source, and that its check sees a page that is not what its source gives."""

import base64
import sys
import tempfile
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "samples"))

import compose


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

    def test_a_fresh_page_passes_and_a_changed_or_missing_one_does_not(self):
        self.write('<page><attachment-bitmap file="dot.png"/></page>')
        self.assertEqual(compose.main(["--check"]), 1)
        self.assertEqual(compose.main([]), 0)
        self.assertEqual(compose.main(["--check"]), 0)
        (self.root / "sources" / "dot.png").write_bytes(b"\x89PNX")
        self.assertEqual(compose.main(["--check"]), 1)


if __name__ == "__main__":
    unittest.main()
