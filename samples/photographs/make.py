#!/usr/bin/env python3
"""Makes the pictures of the samples. No photograph was taken: each is computed, and comes out the same each time.

Needs numpy, Pillow and the DejaVu faces (python3-numpy, python3-pil and fonts-dejavu in Debian). Nothing in the build
needs this script.
All of them take some ten minutes; OVER=0.6 in the environment gives coarse ones in a tenth of the time.
Usage: samples/photographs/make.py [NAME ...]
"""

import importlib
import sys
from pathlib import Path

sys.dont_write_bytecode = True

import moving
from buttons import BUTTONS
from frames import FRAMES
from PIL import Image

SCENES = ["lake", "forest", "city", "dunes", "lighthouse", "coast", "night"]
WHOLE = ["lighthouse", "coast", "night"]  # of the others the pages use only what is cut from them
SMALL = (384, 216)

# Two of them leave a window free, through which a film shows: four parts round it, which overlap, as their edges fall
# on whole pixels at few sizes.
IN_PARTS = ["lake", "city"]
PARTS = {
    "top": (0, 0, 1280, 420),
    "left": (0, 400, 820, 660),
    "right": (1200, 400, 1280, 660),
    "bottom": (0, 640, 1280, 720),
}

STILLS = {**FRAMES, **BUTTONS}
MOVING = ["lanterns", "sign", "reel"]


def save(picture, path, quality):
    if path.suffix == ".jpg":
        picture.save(path, quality=quality, optimize=True)
    else:
        picture.save(path, optimize=True)
    print(path)


def main():
    folder = Path(__file__).resolve().parent.parent / "sources" / "pictures"
    folder.mkdir(parents=True, exist_ok=True)
    for name in sys.argv[1:] or [*SCENES, "fjord", *STILLS, *MOVING]:
        if name in STILLS:
            save(STILLS[name](), folder / f"{name}.png", None)
            continue
        if name in MOVING:
            moving.save(name, folder)
            continue
        if name == "fjord":
            picture, sky = importlib.import_module(name).make()
            save(picture, folder / "fjord.jpg", 84)
            save(sky, folder / "fjord-sky.png", None)
            continue
        picture = importlib.import_module(name).make()
        if name in WHOLE:
            save(picture, folder / f"{name}.jpg", 84)
        save(picture.resize(SMALL, Image.LANCZOS), folder / f"{name}-small.jpg", 86)
        if name in IN_PARTS:
            for part, box in PARTS.items():
                save(picture.crop(box), folder / f"{name}-{part}.jpg", 86)


if __name__ == "__main__":
    main()
