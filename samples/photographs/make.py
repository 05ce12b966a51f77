#!/usr/bin/env python3
"""Makes the pictures of the samples. No photograph was taken: each is computed, and comes out the same each time.

Needs numpy and Pillow (python3-numpy and python3-pil in Debian). Nothing in the build needs this script.
All of them take some ten minutes; OVER=0.6 in the environment gives coarse ones in a tenth of the time.
Usage: samples/photographs/make.py [NAME ...]
"""

import importlib
import sys
from pathlib import Path

sys.dont_write_bytecode = True

from frames import FRAMES
from PIL import Image

SCENES = ["lake", "forest", "city", "dunes", "lighthouse", "coast", "night"]
WHOLE = ["lighthouse", "coast", "night"]  # of the others the pages use only what is cut from them
SMALL = (384, 216)

# The lake leaves a window free, through which a film shows: four parts round it, which overlap, as their edges fall
# on whole pixels at few sizes.
LAKE_PARTS = {
    "lake-top": (0, 0, 1280, 420),
    "lake-left": (0, 400, 820, 660),
    "lake-right": (1200, 400, 1280, 660),
    "lake-bottom": (0, 640, 1280, 720),
}


def save(picture, path, quality):
    if path.suffix == ".jpg":
        picture.save(path, quality=quality, optimize=True)
    else:
        picture.save(path, optimize=True)
    print(path)


def main():
    folder = Path(__file__).resolve().parent.parent / "sources" / "pictures"
    folder.mkdir(parents=True, exist_ok=True)
    for name in sys.argv[1:] or [*SCENES, *FRAMES]:
        if name in FRAMES:
            save(FRAMES[name](), folder / f"{name}.png", None)
            continue
        picture = importlib.import_module(name).make()
        if name in WHOLE:
            save(picture, folder / f"{name}.jpg", 84)
        save(picture.resize(SMALL, Image.LANCZOS), folder / f"{name}-small.jpg", 86)
        if name == "lake":
            for part, box in LAKE_PARTS.items():
                save(picture.crop(box), folder / f"{part}.jpg", 86)


if __name__ == "__main__":
    main()
