"""same_settings.py NATIVE PROGRAM EMULATOR...: settings and font files that are the same give the same bytes on this
machine and on Windows: vector stream, outline stream and property record."""
import base64
import struct
import sys

from both_programs import both

RECORD = 9

# Families are those that both have, under names that both know: which face stands in for another is the font mapper's
# choice. Each case is put on a new control of 40 x 25 mm; what begins with a capital and takes a list is a call.
CASES = {
    "plain": {},
    "small letters": {"FontHeight": 1.5},
    "large letters": {"FontHeight": 20, "Width": 90, "Height": 70},
    "serifs": {"FontName": "Liberation Serif"},
    "fixed width": {"FontName": "Liberation Mono"},
    "another family": {"FontName": "DejaVu Sans"},
    "bold": {"FontBold": True},
    "italic": {"FontItalic": True},
    "bold italic": {"FontBold": True, "FontItalic": True, "FontName": "Liberation Serif"},
    "underlined and struck out": {"FontUnderline": True, "FontStrikeout": True},
    "single stroke": {"FontStyle": "SingleStroke"},
    "single stroke, bold": {"FontName": "Filament SanSerif", "FontBold": True},
    "single stroke, italic": {"FontName": "Filament SanSerif", "FontItalic": True},
    "kerning": {"TextData": "AVATAR Wolf To. LT"},
    "cyrillic": {"TextData": "Серия Ж № 7"},
    "accents and symbols": {"TextData": "Größe Ø 12 °C ½ €"},
    "characters without a glyph": {"TextData": "日本 x"},
    "combining marks": {"TextData": "a\u0301o\u0308 \U0001F600"},
    "no fill": {"FillStyle": "NoFilling"},
    "lines": {"FillStyle": "Line", "FillDistance": 0.2, "FillLineAngle": 30},
    "level lines": {"FillStyle": "Line", "FillDistance": 0.1, "FillLineAngle": 0},
    "upright lines": {"FillStyle": "Line", "FillDistance": 0.1, "FillLineAngle": 90},
    "crossed lines": {"FillStyle": "Cross", "FillDistance": 0.15, "FillLineAngle": -17.5, "FillCrossAngle": 60},
    "solid": {"FillStyle": "Solid", "FillLineWidth": 0.05},
    "counter-clockwise": {"TextDirection": "CounterClockwise", "StartAngle": 200},
    "guide at the descender": {"PathType": "Descender"},
    "guide at the ascender": {"PathType": "Ascender", "StartAngle": 33.3},
    "centred guide, wide spacing": {"PathType": "Center", "CharSpace": 0.7},
    "narrow spacing": {"CharSpace": -0.2},
    "turned": {"Angle": 37.25},
    "mirrored": {"MirrorHorizontal": True, "Angle": 15},
    "mirrored upside down": {"MirrorVertical": True, "MirrorHorizontal": True},
    "no axes": {"ShowAxes": "NoAxesPartial"},
    "array": {"ArrayXDimension": 3, "ArrayYDimension": 2, "ArrayXOffset": 12.5},
    "serial numbers": {"SerialNumEnable": True, "ArrayXDimension": 3, "ArrayYDimension": 2, "SerNumStart": "98"},
    "serial numbers downwards": {"SerialNumEnable": True, "ArrayXDimension": 2, "ArrayYDimension": 3,
                                 "SerialDirection": "Down", "SerNumDecimalPlaces": "Six", "SerNumIncrement": 7},
    "letters as serial numbers": {"SerialNumEnable": True, "SerialNumberType": "Alphanumeric", "SerNumStart": "AZ",
                                  "ArrayXDimension": 4},
    "no outline": {"OutlineType": "NoOutline"},
    "dashes": {"OutlineType": "Dash"},
    "dots": {"OutlineType": "Dots"},
    "dash and dot": {"OutlineType": "DashDot"},
    "dash and two dots": {"OutlineType": "DashDotDot", "FillStyle": "NoFilling"},
    "coarse": {"Flatness": 0.5},
    "fine": {"Flatness": 0.001},
    "inches": {"SetMeasurement": [1], "Width": 1.5, "Height": 1, "FontHeight": 0.15, "FillDistance": 0.01},
    "points": {"DisplayInPoint": [1], "FontHeight": 11.5},
    "finer dots": {"SetDotsPerUnit": [1000]},
    "zoomed": {"SetZoomFactor": [2.5], "SetResolutionInDPI": [12000]},
    "a circle": {"Width": 30, "Height": 30, "StartAngle": 90},
    "too much text": {"TextData": "round and round the text goes, where it stops nobody knows " * 2},
    "everything": {"FontName": "Liberation Serif", "FontBold": True, "FontItalic": True, "FillStyle": "Cross",
                   "FillDistance": 0.25, "OutlineType": "DashDot", "Angle": 71, "StartAngle": -40,
                   "TextDirection": "CounterClockwise", "CharSpace": 0.33, "MirrorHorizontal": True,
                   "SerialNumEnable": True, "ArrayXDimension": 2, "ArrayYDimension": 2, "Flatness": 0.02},
}
BASE = {"FontName": "Liberation Sans", "TextData": "Ovaline & 0123 gjy", "Width": 40, "Height": 25, "FontHeight": 4}

# Where the record's fields begin, for telling which one differs.
FIELDS = {0x00: "PathType", 0x04: "StartAngle", 0x08: "FillStyle", 0x0C: "FillLineWidth", 0x10: "FillDistance",
          0x14: "FillLineAngle", 0x18: "FillCrossAngle", 0x1C: "OutlineType", 0x20: "TextOutline",
          0x24: "MirrorHorizontal", 0x28: "MirrorVertical", 0x2C: "ShowAxes", 0x30: "StepSize", 0x40: "CharSpace",
          0x44: "Angle", 0x48: "ActualLeft", 0x4C: "ActualTop", 0x50: "Width", 0x54: "Height", 0x5C: "Flatness",
          0x64: "ZoomFactor", 0x68: "ResolutionInDPI", 0x70: "DotsPerUnit", 0x74: "UnitFactor"}
READINGS = ("GetVectorData", "GetOutlineData", "GetProperty")


def lines_of(case, settings):
    yield {"on": case, "call": "SetUpdateFlag", "args": [0]}
    # The measurement decides what lengths mean.
    calls = {name: value for name, value in settings.items() if isinstance(value, list)}
    for name, value in calls.items():
        yield {"on": case, "call": name, "args": value}
    for name, value in {**BASE, **settings}.items():
        if name not in calls:
            yield {"on": case, "put": name, "value": value}
    yield {"on": case, "call": "SetUpdateFlag", "args": [1]}
    for reading in READINGS:
        yield {"on": case, "call": reading}


def record_at(stream, at):
    code, x, y = struct.unpack_from("<cff", stream, at)
    return f"{code.decode()} {x!r} {y!r}"


def difference(reading, here, there):
    at = next((i for i, (a, b) in enumerate(zip(here, there)) if a != b), min(len(here), len(there)))
    if reading == "GetProperty":
        field = max(offset for offset in FIELDS if offset <= at)
        return f"{FIELDS[field]} is {here[field:field + 4].hex()} here and {there[field:field + 4].hex()} on Windows"
    at -= at % RECORD
    records = [record_at(stream, at) if at < len(stream) else "no more" for stream in (here, there)]
    differing = sum(here[i:i + RECORD] != there[i:i + RECORD] for i in range(0, max(len(here), len(there)), RECORD))
    return (f"record {at // RECORD} is {records[0]} here and {records[1]} on Windows; {differing} of "
            f"{len(here) // RECORD} and {len(there) // RECORD} records differ")


def main(arguments):
    lines = [line for case, settings in CASES.items() for line in lines_of(case, settings)]
    wrong = []
    compared = 0
    for line, here, there in zip(lines, *both(arguments, lines)):
        if line.get("call") not in READINGS:
            if here != there or here.get("hr") != 0:
                wrong.append(f"{line['on']}: {line} is answered {here} here and {there} on Windows")
            continue
        data = [base64.b64decode(answer.get("data", "")) for answer in (here, there)]
        compared += len(data[0])
        if data[0] != data[1] or not data[0]:
            wrong.append(f"{line['on']}: {line['call']}: {difference(line['call'], *data)}")
    print("\n".join(wrong) or f"{len(CASES)} settings, {compared} bytes are the same")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
