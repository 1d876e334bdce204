#!/usr/bin/env python3
"""The raster, against the outline of the vector data: the pixels of a solid fill are dark by the even-odd rule at their
centres, as computed here from the marked outline, wherever no edge of the outline passes through the pixel.

usage: raster.py PROGRAM
"""
import base64
import json
import math
import pathlib
import struct
import subprocess
import sys
import tempfile

DOTS = struct.unpack("<f", struct.pack("<f", 625.3))[0]  # in a millimetre


def mark(folder, name, settings, *options, inch=False):
    job = folder / "job.json"
    job.write_text(json.dumps({"measurement": "inch" if inch else "mm", "settings": settings}))
    file = folder / name
    subprocess.run([sys.argv[1], "mark", job, "-o", file, "--quiet", *options], check=True)
    return file.read_bytes()


def picture(data):
    """Rows from the top, each a list of 0 and 1."""
    magic, size, bits = data.split(b"\n", 2)
    columns, rows = map(int, size.split())
    per_row = (columns + 7) // 8
    assert magic == b"P4" and len(bits) == rows * per_row, (magic, size, len(bits))
    result = []
    for y in range(rows):
        number = int.from_bytes(bits[y * per_row:(y + 1) * per_row], "big")
        text = f"{number:0{per_row * 8}b}"
        assert "1" not in text[columns:], "bits beyond the last column"
        result.append([int(c) for c in text[:columns]])
    return result


def figures(data, scale):
    """The closed figures of the outline in pixels."""
    found = []
    for code, x, y in json.loads(data)["records"]:
        if code == "u":
            found.append([])
        if code in "udx":
            found[-1].append((x * scale, y * scale))
    return found


def evaluate(polygons, columns, rows):
    """Even-odd at the pixels' centres, and the pixels that an edge passes through or comes near by a rounding."""
    crossings = [[] for _ in range(rows)]
    touched = [set() for _ in range(rows)]
    near = 0.01
    for polygon in polygons:
        for (ax, ay), (bx, by) in zip(polygon, polygon[1:] + polygon[:1]):
            if ay > by:
                ax, ay, bx, by = bx, by, ax, ay
            for y in range(max(0, math.floor(ay - near)), min(rows, math.floor(by + near) + 1)):
                at = [ax + (bx - ax) * min(max((side - ay) / (by - ay), 0), 1) if by > ay else side_x
                      for side, side_x in ((y - near, ax), (y + 1 + near, bx))]
                touched[y].update(range(math.floor(min(at) - near), math.floor(max(at) + near) + 1))
                centre = y + 0.5
                if ay <= centre < by:
                    crossings[y].append(ax + (bx - ax) * (centre - ay) / (by - ay))
    inside = []
    for row in crossings:
        row.sort()
        line = [0] * columns
        for left, right in zip(row[::2], row[1::2]):
            for x in range(max(0, math.ceil(left - 0.5)), min(columns, math.ceil(right - 0.5))):
                line[x] = 1
        inside.append(line)
    return inside, touched


def check(folder, name, settings, step=40.0, inverted=False, hatch=False, outlined=False, inch=False):
    unit = 25.4 if inch else 1
    whole = math.floor(struct.unpack("<f", struct.pack("<f", 1000 / step))[0] * round(settings["Width"] * unit * 1000)
                       / 1000)
    scale = whole / (DOTS * settings["Width"] * unit)
    settings = dict(settings, FontName="Liberation Sans", TextData="Ovaline 8&B")
    outline = mark(folder, "a.json", dict(settings, OutlineType="SolidLine", FillStyle="NoFilling"), inch=inch)
    pixels = picture(mark(folder, "a.pbm", settings, "--step", str(step), inch=inch))
    rows, columns = len(pixels), len(pixels[0])
    polygons = figures(outline, scale)
    inside, touched = evaluate(polygons, columns, rows)
    compared = wrong = dark = area = 0
    for y in range(rows):
        # A line's half width, and the width of the smoothing, beside an edge.
        beside = {x + i for x in touched[y] for i in (-1, 0, 1)} if outlined or hatch else touched[y]
        if (outlined or hatch) and y:
            beside |= touched[y - 1]
        if (outlined or hatch) and y + 1 < rows:
            beside |= touched[y + 1]
        for x in range(columns):
            if x in beside:
                continue
            compared += 1
            is_text = inside[y][x] != inverted
            dark += pixels[y][x]
            area += is_text
            wrong += pixels[y][x] > is_text if hatch else pixels[y][x] != is_text
    # Lines 0.2 mm apart and a pixel wide are about a fifth of the area.
    good = wrong == 0 and compared > rows * columns / 2 and area > 1000
    good = good and (0.1 < dark / area < 0.4 if hatch else dark == area)
    print(f"{'ok' if good else 'FAILED'}: {name}: {columns} x {rows}, {compared} pixels compared, {area} inside, "
          f"{dark} dark, {wrong} wrong")
    return good


def check_protocol(folder):
    """The bytes of the control, whose rows begin with the bottom one, against the file's."""
    lines = [{"call": "SetDefaultSize", "args": [0]}, {"call": "SetStepSize", "args": [50]}, {"call": "GetRasterDataSize"},
             {"call": "GetRasterData"}, {"call": "SetBackGroundColor", "args": [1]}, {"call": "GetRasterData"},
             {"call": "SetStepSize", "args": [0]}, {"call": "GetRasterData"}]
    script = "".join(json.dumps(line) + "\n" for line in lines)
    done = subprocess.run([sys.argv[1], "run"], input=script, capture_output=True, text=True, check=True)
    answers = [json.loads(line) for line in done.stdout.splitlines()]
    data, light, none = (base64.b64decode(answers[i]["data"]) for i in (3, 5, 7))
    rows, columns = struct.unpack_from("<HH", data)
    per_row = (columns - 1) // 8 + 1
    from_top = b"".join(data[4 + y * per_row:4 + (y + 1) * per_row] for y in reversed(range(rows)))
    file = mark(folder, "a.pbm", {}, "--step", "50").split(b"\n", 2)[2]
    good = (answers[2]["value"] == (columns + 31) // 32 * 4 * rows + 62 and from_top == file and any(from_top)
            and light[:4] == data[:4] and len(light) == len(data) and not any(light[4:])
            and none == bytes(4) and answers[7]["hr"] < 0 and not any(answers[i]["overrun"] for i in (3, 5, 7)))
    print(f"{'ok' if good else 'FAILED'}: the protocol's bytes: {columns} x {rows}")
    return good


def main():
    base = {"Width": 20, "Height": 20, "FillStyle": "Solid", "OutlineType": "NoOutline"}
    line = dict(base, FillStyle="Line", FillDistance=0.2)
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        results = [
            check(folder, "solid", base),
            check(folder, "solid, fine", base, step=15),
            check(folder, "solid, uneven step", base, step=37.3),
            check(folder, "text alone", dict(base, ShowAxes="NoAxesPartial", StartAngle=150)),
            check(folder, "flat ellipse, turned and mirrored",
                  dict(base, Width=35.7, Height=11, Angle=25, MirrorHorizontal=True, TextDirection=1)),
            check(folder, "inch", dict(base, Width=1.5, Height=1, FontHeight=0.2), inch=True),
            check(folder, "inverted", dict(base, Invert=True), inverted=True),
            check(folder, "outlined", dict(base, OutlineType="SolidLine"), outlined=True),
            check(folder, "inverted and outlined", dict(base, Invert=True, OutlineType="Dash"), inverted=True,
                  outlined=True),
            check(folder, "lines", line, hatch=True),
            check(folder, "serial numbers",
                  dict(base, SerialNumEnable=True, ArrayXDimension=3, ArrayXOffset=30, SerialNumPrefix="SN-")),
            check_protocol(folder),
        ]
    print(f"{sum(results)} passed, {len(results) - sum(results)} failed")
    return 0 if all(results) else 1


if __name__ == "__main__":
    sys.exit(main())
