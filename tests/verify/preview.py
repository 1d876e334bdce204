#!/usr/bin/env python3
"""The preview against the paths it is drawn from: which pixels are ink by an even-odd test of the outline that the control
hands out, what a zoom doubles, and the picture as another program draws its SVG.

usage: preview.py PROGRAM
"""
import base64
import json
import pathlib
import struct
import subprocess
import sys
import tempfile
import zlib

import numpy

DOTS_PER_INCH = 15882.62
SIZE = 420


def pixels(file):
    """The grey values of a PNG of 8 bits a channel, rows × columns."""
    data = file.read_bytes()
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    at, packed, header = 8, b"", None
    while at < len(data):
        length, kind = struct.unpack_from(">I4s", data, at)
        body = data[at + 8:at + 8 + length]
        if kind == b"IHDR":
            header = struct.unpack(">IIBBBBB", body)
        elif kind == b"IDAT":
            packed += body
        at += 12 + length
    width, height, depth, colour = header[:4]
    channels = {2: 3, 6: 4}[colour]
    assert depth == 8
    raw = numpy.frombuffer(zlib.decompress(packed), numpy.uint8).reshape(height, 1 + width * channels)
    rows, above = [], numpy.zeros((width, channels), int)
    for line in raw:
        kind, row = line[0], line[1:].astype(int).reshape(width, channels)
        if kind == 2:
            row = (row + above) % 256
        elif kind:
            left, corner, out = numpy.zeros(channels, int), numpy.zeros(channels, int), []
            for value, up in zip(row, above):
                if kind == 1:
                    guess = left
                elif kind == 3:
                    guess = (left + up) // 2
                else:
                    p = left + up - corner
                    a, b, c = abs(p - left), abs(p - up), abs(p - corner)
                    guess = numpy.where((a <= b) & (a <= c), left, numpy.where(b <= c, up, corner))
                left, corner = (value + guess) % 256, up
                out.append(left)
            row = numpy.array(out)
        rows.append(row)
        above = row
    return numpy.array(rows)[:, :, :3].mean(axis=2)


def drive(settings, draws, zoom=1, calls=()):
    """Runs the draws for these settings; the outline's figures in dots."""
    lines = [{"call": "SetUpdateFlag", "args": [0]}, {"call": "SetDefaultSize", "args": [0]}]
    lines += [{"put": name, "value": value} for name, value in settings.items()]
    lines += [{"call": "SetZoomFactor", "args": [zoom]}, {"call": "SetUpdateFlag", "args": [1]}]
    lines += [*draws, {"call": "GetVectorData"}]
    script = "".join(json.dumps(line) + "\n" for line in lines)
    done = subprocess.run([sys.argv[1], "run"], input=script, capture_output=True, text=True, check=True)
    answers = [json.loads(line) for line in done.stdout.splitlines()]
    assert all(answer["hr"] == 0 for answer in answers), answers
    figures = []
    for code, x, y in struct.iter_unpack("<Bff", base64.b64decode(answers[-1]["data"])):
        if chr(code) == "u":
            figures.append([])
        if chr(code) in "udx":
            figures[-1].append((x, y))
    return [numpy.array(figure) for figure in figures]


def inside(figures, x, y):
    """Even-odd: whether each point of the arrays is inside."""
    odd = numpy.zeros(x.shape, bool)
    for figure in figures:
        for (ax, ay), (bx, by) in zip(figure, numpy.roll(figure, -1, axis=0)):
            if ay != by:
                crosses = (ay <= y) != (by <= y)
                odd ^= crosses & (x < ax + (y - ay) * (bx - ax) / (by - ay))
    return odd


def wrong_pixels(picture, figures, scale):
    """Pixels away from every edge that are not as the even-odd test says; the number of those compared."""
    moved = [figure * scale for figure in figures]
    corner = numpy.min([figure.min(axis=0) for figure in moved], axis=0)
    moved = [figure - corner for figure in moved]
    size = picture.shape[0]
    centre = numpy.arange(size) + 0.5
    x, y = numpy.meshgrid(centre, centre)
    near = numpy.zeros((size, size), bool)
    for figure in moved:
        for a, b in zip(figure, numpy.roll(figure, -1, axis=0)):
            steps = int(numpy.hypot(*(b - a)) * 4) + 1
            points = a + (b - a) * numpy.linspace(0, 1, steps + 1)[:, None]
            for across in (-1, 0, 1):
                for down in (-1, 0, 1):
                    places = numpy.clip(points.astype(int) + (across, down), 0, size - 1)
                    near[places[:, 1], places[:, 0]] = True
    ink = inside(moved, x, y)
    drawn = picture < 128
    return int(((ink != drawn) & ~near).sum()), int((~near).sum()), int((ink & ~near).sum())


def rows_of_ink(picture):
    dark = picture < 128
    return numpy.flatnonzero(dark.any(axis=1)), numpy.flatnonzero(dark.any(axis=0))


def main():
    results = []

    def say(good, text):
        results.append(good)
        print(f"{'ok' if good else 'FAILED'}: {text}")

    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        base = {"FontName": "Liberation Sans", "TextData": "Ovaline 8&B", "StartAngle": 150, "ShowAxes": 3,
                "FillStyle": 1, "TextOutline": 0}

        def draw(file, **more):
            return {"draw": str(folder / file), "width": SIZE, "height": SIZE, **more}

        for zoom in (3.7, 5.0):
            figures = drive(base, [draw("solid.png")], zoom)
            picture = pixels(folder / "solid.png")
            scale = 96 * zoom / DOTS_PER_INCH
            wrong, compared, ink = wrong_pixels(picture, figures, scale)
            say(wrong == 0 and ink > 500, f"zoom {zoom}: {wrong} of {compared} pixels wrong, {ink} of them ink")
            off = wrong_pixels(picture, figures, scale * 1.03)[0]
            say(off > 100, f"zoom {zoom}: against paths 3 % larger {off} are wrong")

        outline = dict(base, FillStyle=0, TextData="I", TextOutline=1.0, OutlineType=1)
        extents = []
        for zoom in (2, 4):
            drive(outline, [draw("zoom.png", left=40, top=40, width=SIZE - 40, height=SIZE - 40)], zoom)
            rows, columns = rows_of_ink(pixels(folder / "zoom.png"))
            extents.append((numpy.ptp(rows) + 1, numpy.ptp(columns) + 1))
        (h1, w1), (h2, w2) = extents
        say(abs(h2 - 2 * h1) <= 2 and abs(w2 - 2 * w1) <= 2, f"a wide outline is {w1} x {h1}, at twice the zoom {w2} x {h2}")

        full = dict(base, ShowAxes=0, FillStyle=3, FillDistance=0.4, FillLineWidth=0.2, TextOutline=0.2, OutlineType=4)
        drive(full, [draw("a.png"), draw("a.svg")], 3)
        drive(dict(full, Angle=2), [draw("turned.png")], 3)
        subprocess.run(["rsvg-convert", str(folder / "a.svg"), "-o", str(folder / "svg.png")], check=True)
        ours, theirs = pixels(folder / "a.png"), pixels(folder / "svg.png")
        difference = float(abs(ours - theirs).mean())
        turned = float(abs(pixels(folder / "turned.png") - theirs).mean())
        limit = 0.5  # of 255
        say(ours.shape == theirs.shape and difference < limit, f"the SVG differs by {difference:.3f} on average")
        say(turned > 4 * limit, f"turned by 2 degrees it differs by {turned:.3f}")
    print(f"{sum(results)} passed, {len(results) - sum(results)} failed")
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())
