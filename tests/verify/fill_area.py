#!/usr/bin/env python3
"""The marked fill, measured by another library: the hatch lines' length times their spacing is the glyphs' area, and each
piece lies inside the glyphs, as a polygon library sees them.

usage: fill_area.py PROGRAM
"""
import base64
import json
import math
import struct
import subprocess
import sys

from shapely.geometry import LineString, Polygon
from shapely.ops import unary_union

DOTS = 625.3  # in a millimetre


def records(settings):
    """The records of the vector data for these settings, by the program's automation protocol."""
    lines = [{"call": "SetUpdateFlag", "args": [0]}, {"call": "SetDefaultSize", "args": [0]}]
    lines += [{"put": name, "value": value} for name, value in settings.items()]
    lines += [{"call": "SetUpdateFlag", "args": [1]}, {"call": "GetVectorData"}]
    script = "".join(json.dumps(line) + "\n" for line in lines)
    done = subprocess.run([sys.argv[1], "run"], input=script, capture_output=True, text=True, check=True)
    answer = json.loads(done.stdout.splitlines()[-1])
    assert answer["hr"] == 0 and not answer["overrun"], answer
    data = base64.b64decode(answer["data"])
    return [(chr(code), x, y) for code, x, y in struct.iter_unpack("<Bff", data)]


def check(name, settings, spacing):
    """spacing: of one family, in dots; a cross fill has two families."""
    stream = records(settings)
    figures, pieces, start = [], [], None
    for code, x, y in stream:
        if code == "u":
            figures.append([(x, y)])
        elif code in "dx":
            figures[-1].append((x, y))
        elif code == "U":
            start = (x, y)
        elif code == "D":
            pieces.append((start, (x, y)))
    area = Polygon()
    for figure in figures:  # even-odd: a contour inside another is a hole
        area = area.symmetric_difference(Polygon(figure).buffer(0))
    length = sum(math.dist(a, b) for a, b in pieces)
    families = 2 if settings["FillStyle"] == 3 else 1
    expected = families * area.area / spacing
    off = abs(length - expected) / expected
    # A piece lies inside but for the rounding of its ends.
    inside = area.buffer(0.02)
    outside = sum(not inside.covers(LineString(piece)) for piece in pieces)
    good = off < 0.01 and outside == 0 and len(pieces) > 100
    print(f"{'ok' if good else 'FAILED'}: {name}: {len(pieces)} pieces, {length:.0f} dots, by area {expected:.0f} "
          f"({100 * off:.2f} % off), {outside} outside")
    return good


def main():
    base = {"FontName": "Liberation Sans", "TextData": "Ovaline 8&B", "StartAngle": 150}
    line = dict(base, FillStyle=2, FillDistance=0.05)
    results = [
        check("solid", dict(base, FillStyle=1), 0.03 * DOTS),
        check("line at 45 degrees", line, 0.05 * DOTS),
        check("line at 100 degrees, turned", dict(line, FillLineAngle=100, Angle=25), 0.05 * DOTS),
        check("upright", dict(line, FillLineAngle=90), 0.05 * DOTS),
        check("cross", dict(line, FillStyle=3, FillCrossAngle=70), 0.05 * DOTS),
        check("inside, mirrored, flat ellipse", dict(line, TextDirection=1, MirrorHorizontal=True, Height=11),
              0.05 * DOTS),
    ]
    print(f"{sum(results)} passed, {len(results) - sum(results)} failed")
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())
