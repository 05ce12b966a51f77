#!/usr/bin/env python3
"""Makes archives as people make them, each with the same files, by the `zip` command and by Python.

Usage: archives.py FOLDER
"""

import io
import struct
import subprocess
import sys
import warnings
import zipfile
import zlib
from pathlib import Path

COLOURS = {
    "red.png": (255, 0, 0),
    "folder/green.png": (0, 255, 0),
    "Bär größer.png": (0, 0, 255),
}


def png(colour, size=4):
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    rows = (b"\0" + bytes(colour) * size) * size
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 2, 0, 0, 0)) +
            chunk(b"IDAT", zlib.compress(rows)) + chunk(b"IEND", b""))


PICTURES = {name: png(colour) for name, colour in COLOURS.items()}


class Pipe(io.RawIOBase):
    """Cannot be sought in, so that sizes follow the files."""

    def __init__(self):
        self.bytes = b""

    def writable(self):
        return True

    def write(self, data):
        self.bytes += bytes(data)
        return len(data)


def by_python(target, method=zipfile.ZIP_DEFLATED, before=b"", comment=b"", large=False, folders=False, twice=False):
    target.write_bytes(before)
    with zipfile.ZipFile(target, "a", method) as archive:
        if folders:
            archive.writestr("folder/", b"")
        if twice:
            archive.writestr("red.png", png((1, 2, 3)))
        for name, data in PICTURES.items():
            with archive.open(zipfile.ZipInfo(name) if large else name, "w", force_zip64=large) as file:
                file.write(data)
        archive.comment = comment


def make_python(folder):
    by_python(folder / "python-deflated.zip")
    by_python(folder / "python-stored.zip", zipfile.ZIP_STORED)
    by_python(folder / "python-comment.zip", comment=b"PK\5\6 a comment" * 100)
    by_python(folder / "python-behind.zip", before=b"other bytes" * 1000)
    by_python(folder / "python-large.zip", large=True)
    by_python(folder / "python-folders.zip", folders=True)
    by_python(folder / "python-twice.zip", twice=True)
    whole = (folder / "python-deflated.zip").read_bytes()
    (folder / "python-behind-unadjusted.zip").write_bytes(b"other bytes" * 1000 + whole)
    (folder / "python-behind-archive.zip").write_bytes((folder / "python-twice.zip").read_bytes() + whole)
    pipe = Pipe()
    with zipfile.ZipFile(pipe, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, data in PICTURES.items():
            archive.writestr(name, data)
    (folder / "python-piped.zip").write_bytes(pipe.bytes)


def make_old_code_page(folder):
    """As a system of the time before Unicode writes the names."""
    plain = "B_r gr__er.png"
    with zipfile.ZipFile(folder / "old-names.zip", "w") as archive:
        for name, data in PICTURES.items():
            archive.writestr(plain if name.startswith("B") else name, data)
    whole = (folder / "old-names.zip").read_bytes()
    assert whole.count(plain.encode()) == 2
    (folder / "old-names.zip").write_bytes(whole.replace(plain.encode(), "Bär größer.png".encode("cp437")))


def make_zip(folder):
    source = folder / "source"
    for name, data in PICTURES.items():
        (source / name).parent.mkdir(parents=True, exist_ok=True)
        (source / name).write_bytes(data)

    def zip_command(name, *options, **rest):
        subprocess.run(["zip", "-q", "-X", *options, str(folder / name), "-r", "."], cwd=source, check=True, **rest)

    zip_command("zip-deflated.zip", "-9")
    zip_command("zip-stored.zip", "-0")
    zip_command("zip-without-folders.zip", "-D")
    zip_command("zip-comment.zip", "-z", input=b"a comment\n")
    zip_command("zip-large.zip", "-fz")
    zip_command("zip-described.zip", "-fd")
    zip_command("zip-utf8.zip", env={"LC_ALL": "C.UTF-8", "PATH": "/usr/bin:/bin"})
    piped = subprocess.run(["zip", "-q", "-r", "-", "."], cwd=source, check=True, stdout=subprocess.PIPE).stdout
    (folder / "zip-piped.zip").write_bytes(piped)
    whole = (folder / "zip-deflated.zip").read_bytes()
    (folder / "zip-behind.zip").write_bytes(b"#!/bin/sh\nexit\n" + whole)
    subprocess.run(["zip", "-q", "-A", str(folder / "zip-behind.zip")], check=True)


def make_many(folder):
    with zipfile.ZipFile(folder / "ten-thousand.zip", "w", zipfile.ZIP_STORED) as archive:
        for i in range(10_000):
            archive.writestr(f"folder/{i:05}.png", b"x" * 500)
        archive.writestr("red.png", PICTURES["red.png"])


def main(arguments):
    warnings.simplefilter("ignore")  # of names that occur twice, as one test wants
    folder = Path(arguments[0])
    make_python(folder)
    make_old_code_page(folder)
    make_zip(folder)
    if "many" in arguments[1:]:
        make_many(folder)


if __name__ == "__main__":
    main(sys.argv[1:])
