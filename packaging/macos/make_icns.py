#!/usr/bin/env python3
"""Draws an SVG in the sizes of an application's icon, and writes them as one ICNS.

usage: make_icns.py RSVG_CONVERT SVG ICNS
"""

import struct
import subprocess
import sys

# The type of each picture and its side in pixels; several types are the same side at another scale.
TYPES = {
    "icp4": 16, "icp5": 32, "ic11": 32, "ic12": 64, "ic07": 128, "ic13": 256, "ic08": 256, "ic14": 512, "ic09": 512,
    "ic10": 1024
}


def main(rsvg_convert, svg, icns):
    command = [rsvg_convert, "--format", "png"]
    drawn = {
        side: subprocess.run([*command, "-w", str(side), "-h", str(side), svg], check=True, stdout=subprocess.PIPE).stdout
        for side in set(TYPES.values())
    }
    parts = b"".join(struct.pack(">4sI", kind.encode(), 8 + len(drawn[side])) + drawn[side]
                     for kind, side in TYPES.items())
    with open(icns, "wb") as file:
        file.write(struct.pack(">4sI", b"icns", 8 + len(parts)) + parts)


if __name__ == "__main__":
    if len(sys.argv) != 4:
        sys.exit(__doc__)
    main(*sys.argv[1:])
