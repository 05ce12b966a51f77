#!/usr/bin/env python3
"""That samples/zip-menu/ shows what the page shows that has everything in it.

Usage: zip_menu_test.py MFILTER SAMPLES
"""

import subprocess
import sys
from pathlib import Path


def frame(mfilter, page, *options):
    command = [mfilter, "render", page, "--size", "640x360", "--frames", "0-0", *options, "-o", "-"]
    return subprocess.run(command, check=True, stdout=subprocess.PIPE).stdout


def main(mfilter, samples):
    folder = Path(samples)
    archive = folder / "zip-menu" / "menu.zip"
    whole = frame(mfilter, folder / "chapter-menu.xml")
    assert len(set(whole)) > 100, "the page is nearly empty"
    assert frame(mfilter, folder / "zip-menu" / "menu.xml", "--attachments", archive) == whole
    assert frame(mfilter, folder / "zip-menu" / "menu.xml") != whole
    subprocess.run([mfilter, "check", folder / "zip-menu" / "menu.xml", "--attachments", archive], check=True)


if __name__ == "__main__":
    main(*sys.argv[1:])
