#!/usr/bin/env python3
"""Makes src/shell/hublink.ico from the drawings beside this script. Run it after a change of these.

    packaging/icon/make-icon.py [FILE]

It takes rsvg-convert (package librsvg2-bin) and ImageMagick; the build takes the file that it made.
"""
import struct
import subprocess
import sys
from pathlib import Path

HERE = Path(__file__).resolve().parent
SMALL, LARGE = HERE / "hublink-small.svg", HERE / "hublink.svg"
SIZES = [(16, SMALL), (20, SMALL), (24, SMALL), (32, LARGE), (48, LARGE), (64, LARGE), (128, LARGE), (256, LARGE)]
LARGEST_BITMAP = 48  # Windows XP shows none larger, and reads no PNG


def png(drawing, size):
    return subprocess.run(["rsvg-convert", "-w", str(size), "-h", str(size), str(drawing)],
                          check=True, capture_output=True).stdout


def bitmap(picture, size):
    """32 bits a pixel from the bottom up, then a mask of one bit a pixel, in lines of whole 32 bits."""
    pixels = subprocess.run(["convert", "png:-", "-depth", "8", "bgra:-"], input=picture, check=True,
                            capture_output=True).stdout
    lines = [pixels[4 * size * y:4 * size * (y + 1)] for y in reversed(range(size))]
    mask = bytearray()
    for line in lines:
        bits = "".join("1" if line[4 * x + 3] == 0 else "0" for x in range(size)).ljust(-(-size // 32) * 32, "0")
        mask += int(bits, 2).to_bytes(len(bits) // 8, "big")
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 4 * size * size + len(mask), 0, 0, 0, 0)
    return header + b"".join(lines) + bytes(mask)


def icon():
    images = []
    for size, drawing in SIZES:
        picture = png(drawing, size)
        images.append(bitmap(picture, size) if size <= LARGEST_BITMAP else picture)
    place = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for (size, _), image in zip(SIZES, images):
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), place)
        place += len(image)
    return directory + b"".join(images)


if __name__ == "__main__":
    target = Path(sys.argv[1]) if len(sys.argv) > 1 else HERE.parent.parent / "src/shell/hublink.ico"
    target.write_bytes(icon())
