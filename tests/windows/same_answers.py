"""same_answers.py NATIVE PROGRAM EMULATOR...: the Windows program answers a session as the one of this machine does."""
import base64
import sys

from both_programs import both

KEY = "HKEY_CLASSES_ROOT\\CLSID\\{6F0E2C44-9B7D-4E53-A164-3C58D2907E11}"


def pages():
    """Both property pages, but for the list of fonts and for dates."""
    text = [{"open": True}, {"controls": True}, {"dirty": True}, {"id": 1205, "read": True}, {"id": 1214, "type": "61"},
            {"id": 1214, "type": "25"}, {"id": 1222, "spin": -3}, {"id": 1204, "select": 3}, {"id": 1211, "read": True},
            {"id": 1205, "select": 0}, {"id": 1206, "type": "1"}, {"id": 201, "type": "Größe 日 \U0001F600"},
            {"id": 205, "click": True}, {"id": 9, "read": True}, {"apply": True}, {"close": True}, {"dirty": True}]
    serial = [{"open": True}, {"id": 257, "read": True}, {"id": 241, "click": True}, {"id": 245, "type": "00a4711"},
              {"id": 245, "read": True}, {"id": 248, "select": 6}, {"id": 243, "select": 1}, {"id": 245, "type": "7F"},
              {"id": 247, "type": "-3"}, {"id": 263, "read": True}, {"id": 263, "type": "x"}, {"id": 258, "click": True},
              {"apply": True}, {"close": True}]
    for language in (7, 25):
        yield {"lang": language}
        for page, lines in (("text", text), ("serial", serial)):
            for line in lines:
                yield {"on": "pages", "page": page, **line}
    for name in ("Height", "TextData", "FillStyle", "SerNumStart", "SerNumIncrement", "SerialNumberType"):
        yield {"on": "pages", "get": name}


def session():
    yield {"register": True}
    yield {"call": "SetUpdateFlag", "args": [0]}
    for name, value in [("FontName", "Liberation Sans"), ("TextData", "Größe Ω 日本 \U0001F600 \\ \"x\""),
                        ("Width", 40), ("Height", 25.5), ("FontHeight", 6), ("FontHeight", 60), ("FontHeight", 0.01),
                        ("Flatness", 0), ("ArrayXDimension", 256), ("ArrayXDimension", 255), ("ArrayYDimension", -1),
                        ("FillStyle", "Cross"), ("FillStyle", 99), ("OutlineType", "DashDot"), ("Invert", True),
                        ("MirrorVertical", False), ("FontStrikeout", True), ("SpareFlag", True), ("Angle", -725.25),
                        ("SerNumIncrement", -2147483648), ("AutoDateFormat", "Custom"), ("Width", "NaN"),
                        ("Width", -1e30), ("Height", 1e30), ("CustomAutoText", ""), ("SerNumStart", "00AZ9")]:
        yield {"put": name, "value": value}
        yield {"get": name}
    for wrong in [{"put": "Width", "value": "wide"}, {"put": "Nonsense", "value": 1}, {"get": "width"},
                  {"put": "ArrayXDimension", "value": 1e10}, {"call": "SetUpdateFlag"}, {"call": "SetUpdateFlag", "args": ["x"]},
                  {"put": "FillStyle", "value": "Dotted"}, {"get": "Width", "put": "Width"}, [], "text", {}]:
        yield wrong
    yield {"put": "Width", "value": 40}
    yield {"put": "Height", "value": 25.5}
    yield {"put": "ArrayXDimension", "value": 1}
    yield {"put": "FontHeight", "value": 4}
    yield {"put": "TextData", "value": "Marking 123"}
    yield {"call": "SetUpdateFlag", "args": [1]}
    for call in ["GetArrayType", "GetUnitsPrecision", "GetUnitFactor", "GetMeasurement", "GetDisplayInPoint",
                 "GetScreenSize", "GetActualSize", "GetResultSize", "GetVectorDataSize", "RotateByQuadrant", "FlipH",
                 "InvertColor", "SetIncrement", "GetProperty"]:
        yield {"call": call}
    yield {"get": "SerNumStart"}
    yield {"call": "GetVectorData", "size": 9}
    yield {"call": "GetVectorData", "size": 0}
    yield {"call": "SetProperty", "data": base64.b64encode(bytes(272)).decode()}
    yield {"call": "GetProperty"}
    yield {"on": "another", "get": "SerialNumPrefix"}
    yield {"call": "SetDefaultSize", "args": [0]}
    yield {"call": "GetRasterDataSize"}
    yield from pages()
    yield {"lang": 25}
    yield {"registry": "HKEY_CURRENT_USER\\Software\\Norvel\\Host", "name": "Lang"}
    yield {"lang": None}
    yield {"registry": "HKEY_CURRENT_USER\\Software\\Norvel\\Host", "name": "Lang"}
    yield {"registry": KEY, "list": True}
    yield {"registry": KEY + "\\MiscStatus\\1", "name": ""}
    yield {"registry": KEY + "\\InprocServer32", "list": True}
    yield {"registry": "HKEY_LOCAL_MACHINE\\Software", "list": True}
    yield {"register": False}
    yield {"registry": KEY, "list": True}


def main(arguments):
    lines = list(session())
    native, windows = both(arguments, lines)
    wrong = [f"{line}\n  here     {here}\n  Windows  {there}"
             for line, here, there in zip(lines, native, windows) if here != there]
    print("\n".join(wrong) or f"{len(lines)} answers are the same")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
