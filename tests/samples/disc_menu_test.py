#!/usr/bin/env python3
"""What samples/disc/ promises: the films play in their buttons, the chapters in theirs, and lights in the sky.

The movies are small ones of the same names, whose every frame is another.
Usage: disc_menu_test.py --mfilter MFILTER
"""

import argparse
import re
import subprocess
import tempfile
import unittest
from pathlib import Path

DISC = Path(__file__).resolve().parents[2] / "samples" / "disc"
PAGE = DISC / "menu.xml"
WIDTH, HEIGHT = 640, 360
TOOLS = argparse.Namespace(mfilter="mfilter")

# In millimetres of the page: left, top, width, height of what is surely within.
CARDS = [(20 + 58 * number, 86, 42, 22) for number in range(4)]
CHAPTERS = [(76 + 28.25 * number, 126, 19, 7) for number in range(4)]
SKY = (140, 10, 100, 30)


def movies():
    """The names of the files that the page shows."""
    return re.findall(r'<filename path="" name="([^"]+)"/>', PAGE.read_text(encoding="utf-8"))


def make(folder, name):
    seconds = 36 if name == "air.mp4" else 2
    source = f"testsrc2=s=64x36:r=25:d={seconds},hue=h=t*90"
    options = ["-g", "25"]
    if name.endswith(".mov"):
        source += ",format=rgba,colorchannelmixer=aa=0.5"
        options = ["-c:v", "png"]
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-f", "lavfi", "-i", source, *options, folder / name], check=True)


def cut(frame, place):
    """The bytes of a part of a frame."""
    left, top, width, height = (int(number * WIDTH / 256) for number in place)
    rows = range(top, top + height)
    return b"".join(frame[(row * WIDTH + left) * 4:(row * WIDTH + left + width) * 4] for row in rows)


class DiscMenu(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        for name in movies():
            make(Path(cls.folder.name), name)
        cls.frames = cls.render()

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    @classmethod
    def render(cls, *options):
        run = subprocess.run([TOOLS.mfilter, "render", PAGE, "--themes", DISC, "--size", f"{WIDTH}x{HEIGHT}", "--frames",
                              "0-12", *options, "-o", "-"], cwd=cls.folder.name, capture_output=True, check=True)
        size = WIDTH * HEIGHT * 4
        return [run.stdout[at:at + size] for at in range(0, len(run.stdout), size)]

    def test_the_films_play_in_their_buttons(self):
        self.assertEqual(len(self.frames), 13)
        for card in CARDS:
            self.assertTrue(cut(self.frames[2], card) != cut(self.frames[12], card), card)

    def test_the_chapters_play_in_theirs_each_from_its_own_beginning(self):
        for chapter in CHAPTERS:
            self.assertTrue(cut(self.frames[2], chapter) != cut(self.frames[12], chapter), chapter)
        self.assertEqual(len({cut(self.frames[2], chapter) for chapter in CHAPTERS}), len(CHAPTERS))

    def test_lights_move_in_the_sky_over_the_photograph(self):
        self.assertTrue(cut(self.frames[2], SKY) != cut(self.frames[12], SKY))

    def test_without_movies_their_pictures_stand_still(self):
        still = self.render("--no-movies")
        self.assertEqual(len(set(still)), 1)
        for card in CARDS:
            self.assertGreater(len(set(cut(still[0], card))), 50)
            self.assertTrue(cut(still[0], card) != cut(self.frames[0], card), card)

    def test_the_state_selected_lights_every_frame(self):
        self.assertTrue(self.render("--no-movies", "--state", "selected")[0] != self.render("--no-movies")[0])

    def test_nothing_is_wrong_with_the_page(self):
        check = subprocess.run([TOOLS.mfilter, "check", PAGE, "--themes", DISC], cwd=self.folder.name, capture_output=True,
                               text=True, check=False)
        self.assertIn("menu.xml: no errors, no warnings\n", check.stdout)
        self.assertEqual((check.returncode, check.stderr), (0, ""))

    def test_all_its_movies_are_made(self):
        script = (DISC / "make-movies.sh").read_text(encoding="utf-8")
        made = re.findall(r"^(?:movie|light) (\S+) ", script, re.MULTILINE)
        self.assertEqual(sorted(made), sorted(movies()))


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--mfilter")
    TOOLS, rest = parser.parse_known_args()
    unittest.main(argv=[__file__, *rest])
