#!/usr/bin/env python3
"""Prints the automation lines that draw the gallery into FOLDER, and writes the page that shows it.

usage: gallery_script.py FOLDER
"""
import html
import json
import pathlib
import sys

BASE = {"FontName": "Liberation Sans", "TextData": "OVALINE", "StartAngle": 150, "FillDistance": 0.3,
        "FillLineWidth": 0.1, "TextOutline": 0.12}
AXES = ["FullAxes", "PartialAxes", "NoAxesFull", "NoAxesPartial"]
FILLS = ["NoFilling", "Solid", "Line", "Cross"]
OUTLINES = ["NoOutline", "SolidLine", "Dash", "Dots", "DashDot", "DashDotDot"]
GRID = {"ArrayXDimension": 2, "ArrayYDimension": 2, "ArrayXOffset": 30, "ArrayYOffset": 30}

CASES = (
    [(f"axes-{axes}", {"ShowAxes": axes}) for axes in AXES]
    + [(f"fill-{fill}", {"FillStyle": fill}) for fill in FILLS]
    + [("fill-SingleStroke", {"FontStyle": "SingleStroke"})]
    + [(f"outline-{line}", {"OutlineType": line, "FillStyle": "NoFilling", "TextOutline": 0.3, "FontHeight": 8,
                            "TextData": "ABC"}) for line in OUTLINES]
    + [(f"invert-{fill}", {"Invert": True, "FillStyle": fill, "ShowAxes": "NoAxesFull"}) for fill in FILLS]
    + [("invert-text-alone", {"Invert": True, "ShowAxes": "NoAxesPartial"})]
    + [("invert-axes", {"Invert": True, "FillStyle": "Line"})]
    + [("array", dict(GRID)),
       ("array-line", dict(GRID, FillStyle="Line", ShowAxes="NoAxesPartial")),
       ("array-serial", dict(GRID, SerialNumEnable=True, SerialNumPrefix="NO ", SerNumSuffix="")),
       ("array-invert", dict(GRID, Invert=True, ShowAxes="NoAxesFull")),
       ("array-invert-overlap", dict(GRID, Invert=True, ShowAxes="NoAxesFull", ArrayXOffset=15, ArrayYOffset=15))]
    + [("dark-ground", {"FillStyle": "Line"})]
)


def main():
    folder = pathlib.Path(sys.argv[1])
    cells = []
    for name, settings in CASES:
        lines = [{"call": "SetUpdateFlag", "args": [0]}, {"call": "SetDefaultSize", "args": [0]}]
        lines += [{"put": key, "value": value} for key, value in (BASE | settings).items()]
        zoom = {"array": 1, "outline": 1.7}.get(name.split("-")[0], 2)
        lines += [{"call": "SetZoomFactor", "args": [zoom]}, {"call": "SetUpdateFlag", "args": [1]}]
        dark = name == "dark-ground"
        if dark:
            lines.append({"call": "SetBackGroundColor", "args": [1]})
        lines.append({"draw": str(folder / f"{name}.png"), "left": 8, "top": 8, "width": 222, "height": 222,
                      "background": "#203040" if dark else "#ffffff"})
        for line in lines:
            print(json.dumps(line | {"on": name}))
        cells.append(f'<figure><img src="{name}.png" alt=""><figcaption>{html.escape(name)}</figcaption></figure>')
    style = "body{font:14px sans-serif}figure{display:inline-block;margin:8px}img{border:1px solid #ccc}"
    (folder / "index.html").write_text(
        f"<!doctype html><meta charset=utf-8><title>Gallery</title><style>{style}</style>{''.join(cells)}\n",
        encoding="utf-8")


if __name__ == "__main__":
    main()
