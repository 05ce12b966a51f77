#!/usr/bin/env python3
"""What samples/animated-menu.xml promises: it moves all the time, and begins anew after six seconds without a jump."""

import argparse
import subprocess
import unittest
from pathlib import Path

PAGE = Path(__file__).resolve().parents[2] / "samples" / "animated-menu.xml"
WIDTH, HEIGHT, LOOP = 320, 180, 150
TOOLS = argparse.Namespace(mfilter="mfilter")


def steps(frames):
    """How much each frame differs from the one before it, summed over every seventh byte."""
    return [sum(abs(a - b) for a, b in zip(one[::7], two[::7])) for one, two in zip(frames, frames[1:])]


class AnimatedMenu(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        run = subprocess.run([TOOLS.mfilter, "render", PAGE, "--input", "#203040", "--size", f"{WIDTH}x{HEIGHT}", "--fps",
                              "25", "--frames", f"0-{LOOP}", "-o", "-"], capture_output=True, check=True)
        size = WIDTH * HEIGHT * 4
        cls.frames = [run.stdout[at:at + size] for at in range(0, len(run.stdout), size)]

    def test_it_comes_round(self):
        self.assertEqual(len(self.frames), LOOP + 1)
        self.assertEqual(self.frames[LOOP], self.frames[0])

    def test_it_moves_from_each_frame_to_the_next(self):
        self.assertTrue(all(one != two for one, two in zip(self.frames, self.frames[1:])))

    def test_the_loop_closes_as_smoothly_as_it_goes_on(self):
        *within, last = steps(self.frames)
        self.assertLess(last, 1.5 * sorted(within)[len(within) // 2])

    def test_the_page_is_of_moderate_size(self):
        self.assertLess(PAGE.stat().st_size, 1_500_000)


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--mfilter")
    TOOLS, rest = parser.parse_known_args()
    unittest.main(argv=[__file__, *rest])
