#!/usr/bin/env python3
"""What is marked and drawn, by other libraries: the fill and the pixels of raster and preview against the outline's area as
a polygon library sees it, and the preview's picture against its SVG as another program draws it.

usage: shapes.py PROGRAM
"""
import base64
import json
import math
import pathlib
import struct
import subprocess
import sys
import tempfile

import numpy
from PIL import Image
from shapely.affinity import scale
from shapely.geometry import JOIN_STYLE, LineString, Polygon
from shapely.vectorized import contains

DOTS = 625.3  # in a millimetre
DOTS_PER_INCH = 15882.62
SIZE = 420
BASE = {"FontName": "Liberation Sans", "TextData": "Ovaline 8&B", "StartAngle": 150, "TextOutline": 0}


def run(settings, *calls):
    """The answers to the calls of a control with these settings, by the program's automation protocol."""
    lines = [{"call": "SetUpdateFlag", "args": [0]}, {"call": "SetDefaultSize", "args": [0]}]
    lines += [{"put": name, "value": value} for name, value in {**BASE, **settings}.items()]
    lines += [{"call": "SetUpdateFlag", "args": [1]}, *calls]
    script = "".join(json.dumps(line) + "\n" for line in lines)
    done = subprocess.run([sys.argv[1], "run"], input=script, capture_output=True, text=True, check=True)
    answers = [json.loads(line) for line in done.stdout.splitlines()]
    assert all(answer["hr"] == 0 and not answer.get("overrun") for answer in answers), answers
    return answers[-len(calls):]


def records(answer):
    return [(chr(code), x, y) for code, x, y in struct.iter_unpack("<Bff", base64.b64decode(answer["data"]))]


def area_of(stream):
    """The area of the outline's figures, even-odd: a contour inside another is a hole."""
    area, figures = Polygon(), []
    for code, x, y in stream:
        if code == "u":
            figures.append([])
        if code in "udx":
            figures[-1].append((x, y))
    for figure in figures:
        area = area.symmetric_difference(Polygon(figure).buffer(0))
    return area


def fill(settings, spacing):
    """The hatch lines' length times their spacing, in dots, is the area, and each piece of a line lies inside it."""
    stream = records(run(settings, {"call": "GetVectorData"})[0])
    ends = [(x, y) for code, x, y in stream if code in "UD"]
    pieces = list(zip(ends[::2], ends[1::2]))
    area = area_of(stream)
    expected = area.area / spacing * (2 if settings["FillStyle"] == 3 else 1)
    length = sum(math.dist(a, b) for a, b in pieces)
    inside = area.buffer(0.02)  # the rounding of the ends
    outside = sum(not inside.covers(LineString(piece)) for piece in pieces)
    good = abs(length - expected) < 0.01 * expected and outside == 0 and len(pieces) > 100
    return good, f"{len(pieces)} pieces, {length:.0f} dots, by area {expected:.0f}, {outside} outside"


def compare(dark, shape, invert=False):
    """Random pixels that the shape's edges keep away from. Its coordinates are pixels."""
    rows, columns = dark.shape
    chosen = numpy.random.default_rng(1)
    x, y = chosen.integers(0, columns, 100000), chosen.integers(0, rows, 100000)
    inside = contains(shape.buffer(-1.5), x + 0.5, y + 0.5)
    outside = ~contains(shape.buffer(1.5), x + 0.5, y + 0.5)
    wrong = int(((inside | outside) & (dark[y, x] != (inside != invert))).sum())
    good = wrong == 0 and inside.sum() > 300 and outside.sum() > 30000
    return good, f"{columns} x {rows}: of {inside.sum()} pixels inside and {outside.sum()} outside {wrong} wrong"


def raster(settings, step=40.0):
    vector, _, answer = run(dict(settings, FillStyle=1), {"call": "GetVectorData"},
                            {"call": "SetStepSize", "args": [step]}, {"call": "GetRasterData"})
    data = numpy.frombuffer(base64.b64decode(answer["data"]), numpy.uint8)
    rows, columns = struct.unpack_from("<HH", data)
    packed = data[4:4 + rows * ((columns + 7) // 8)].reshape(rows, -1)[::-1]
    width = settings.get("Width", 20)
    pixels = math.floor(numpy.float32(1000 / step) * width) / (DOTS * width)  # of a dot
    area = scale(area_of(records(vector)), pixels, pixels, origin=(0, 0))
    return compare(numpy.unpackbits(packed, axis=1)[:, :columns] == 1, area, settings.get("Invert", False))


def main():
    failed = 0

    def say(name, result):
        nonlocal failed
        failed += not result[0]
        print(f"{'ok' if result[0] else 'FAILED'}: {name}: {result[1]}")

    line = {"FillStyle": 2, "FillDistance": 0.05}
    turned = {"Angle": 25, "TextDirection": 1, "MirrorHorizontal": True, "Height": 11}
    say("solid fill", fill({"FillStyle": 1}, 0.03 * DOTS))
    say("lines at 100 degrees, turned", fill(dict(line, FillLineAngle=100, Angle=25), 0.05 * DOTS))
    say("cross", fill(dict(line, FillStyle=3, FillCrossAngle=70), 0.05 * DOTS))
    say("lines inside a flat ellipse, mirrored", fill(dict(line, **turned), 0.05 * DOTS))

    say("raster", raster({}))
    say("raster, uneven step, inverted", raster({"Invert": True}, 37.3))
    say("raster, the text alone, flat", raster(dict(turned, ShowAxes=3, Width=35.7), 15))
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)

        def draw(settings, zoom, file="preview.png"):
            """The picture's grey values, and the outline in its pixels."""
            png = {"draw": str(folder / file), "width": SIZE, "height": SIZE}
            answers = run(settings, {"call": "SetZoomFactor", "args": [zoom]}, png,
                          dict(png, draw=str(folder / "preview.svg")), {"call": "GetVectorData"})
            pixels = 96 * zoom / DOTS_PER_INCH
            area = scale(area_of(records(answers[-1])), pixels, pixels, origin=(0, 0))
            return numpy.asarray(Image.open(folder / file).convert("L"), float), area

        grey, area = draw({"FillStyle": 1, "ShowAxes": 3}, 3.7)
        say("preview", compare(grey < 128, area))
        say("preview, not as one 3 % larger", (not compare(grey < 128, scale(area, 1.03, 1.03, origin=(0, 0)))[0], ""))
        grey, area = draw({"FillStyle": 0, "ShowAxes": 3, "TextOutline": 1.0, "OutlineType": 1, "TextData": "I"}, 8)
        half = area.boundary.buffer(0.5 * 96 * 8 / 25.4, join_style=JOIN_STYLE.mitre)
        say("preview of a wide outline", compare(grey < 128, half))

        full = {"FillStyle": 3, "FillDistance": 0.4, "FillLineWidth": 0.2, "TextOutline": 0.2, "OutlineType": 4}
        other = draw(dict(full, Angle=2), 3, "turned.png")[0]
        ours = draw(full, 3)[0]
        subprocess.run(["rsvg-convert", folder / "preview.svg", "-o", folder / "svg.png"], check=True)
        theirs = numpy.asarray(Image.open(folder / "svg.png").convert("RGB").convert("L"), float)
        difference, far = abs(ours - theirs).mean(), abs(other - theirs).mean()
        say("SVG", (difference < 0.5 and far > 2, f"differs by {difference:.3f} of 255, turned by 2 degrees by {far:.3f}"))
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
