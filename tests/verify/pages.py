#!/usr/bin/env python3
"""What an operator does on both property pages, in each of the six languages, through the program alone: open, change,
watch, apply, read the control back; and that a page that is closed without Apply has changed nothing.

usage: pages.py PROGRAM
"""
import base64
import datetime
import json
import pathlib
import re
import struct
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
LANGUAGES = {7: 0, 9: 1, 17: 2, 21: 3, 25: 4, 4: 5}  # the host's number: place in the rows of the string table
DIRTY, CLEAN = {"pageStatus": 1}, {"pageStatus": 4}


def strings():
    text = (ROOT / "platform/resource_strings.inc").read_text(encoding="utf-8")
    rows = re.findall(r'^STRING\((\d+), (.*)\)$', text, re.M)
    return {int(number): re.findall(r'"([^"]*)"', texts) for number, texts in rows}


class Operator:
    def __init__(self, program):
        self.run = subprocess.Popen([program, "run"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, encoding="utf-8")

    def say(self, **line):
        self.run.stdin.write(json.dumps(line) + "\n")
        self.run.stdin.flush()
        return json.loads(self.run.stdout.readline())

    def do(self, **line):
        answer = self.say(**line)
        assert answer.get("hr", -1) >= 0, (line, answer)
        return answer

    def get(self, name):
        return self.do(get=name)["value"]

    def page(self, page, **line):
        return self.do(page=page, **line)

    def see(self, page, control):
        return self.page(page, id=control, read=True)["value"]

    def visible(self, page, *controls):
        return [self.see(page, control)["visible"] for control in controls]

    def finish(self):
        self.run.stdin.close()
        same("the status, one line having been refused", self.run.wait(60), 1)


def same(what, got, wanted):
    assert got == wanted, f"{what}: {got!r}, not {wanted!r}"


def text_page(o, text):
    o.do(call="SetDefaultSize", args=[0])
    o.do(put="FontName", value="Liberation Sans")
    opened = o.page("text", open=True)
    same("a page that has just opened", opened["events"], [DIRTY])
    same("dirty", o.page("text", dirty=True)["value"], True)
    same("items", o.see("text", 1205)["items"], [text(number) for number in range(10311, 10317)])
    same("selected", o.see("text", 1204)["selected"], 1)
    same("shown numbers", [o.see("text", i)["text"] for i in (1213, 1212, 1208, 207)], ["20.000", "0.0", "0.030", "5"])
    same("the range of a spin button", o.see("text", 1222)["range"], [1, 65535])

    # A height that is refused, a width that is not.
    refused = o.page("text", id=1214, type="61")
    assert {"message": text(103)} in refused["events"], refused
    o.page("text", id=1214, type="25")
    o.page("text", id=1213, type="40")
    o.page("text", id=1221, spin=3)
    same("three clicks up", o.see("text", 1212)["text"], "0.3")

    options = (1208, 1209, 1210, 1211)
    for style, shown in ((2, [True, True, True, False]), (3, [True] * 4), (0, [False] * 4), (2, [True, True, True, False])):
        o.page("text", id=1204, select=style)
        same("fill options", o.visible("text", *options), shown)
    o.page("text", id=1209, type="0.2")
    o.page("text", id=1205, select=0)
    assert o.say(page="text", id=1206, type="1")["error"], "a hidden edit was typed into"
    o.page("text", id=201, type="Größe Ж 7")
    o.page("text", id=205, click=True)
    same("nothing reaches the control before Apply", [o.get("Width"), o.get("FillStyle"), o.get("FontBold")], [20, 1, 0])

    o.page("text", apply=True)
    same("dirty", o.page("text", dirty=True)["value"], False)
    same("the control", [o.get(name) for name in ("Width", "Height", "FillStyle", "OutlineType", "TextData", "FontBold")],
         [40, 25, 2, 0, "Größe Ж 7", -1])
    same("three tenths of a degree", round(o.get("Angle"), 4), 0.3)
    same("a fifth of a millimetre", round(o.get("FillDistance"), 4), 0.2)
    record = base64.b64decode(o.do(call="GetProperty")["data"])
    same("the record's line distance", round(struct.unpack_from("<f", record, 0x10)[0], 2), 200)

    o.page("text", id=201, type="another")
    o.page("text", close=True)
    same("closed without Apply", o.get("TextData"), "Größe Ж 7")
    return base64.b64decode(o.do(call="GetVectorData")["data"])


def serial_page(o, text):
    o.page("serial", open=True)
    same("lists", [o.see("serial", i)["items"] for i in (243, 257, 248, 273)],
         [[text(i) for i in numbers] for numbers in
          (range(10129, 10131), range(10132, 10149), range(10201, 10217), range(20500, 20509))])
    same("only the two boxes are shown", o.visible("serial", 241, 255, 245, 257, 258, 263), [True] * 2 + [False] * 4)

    same("switching on", o.page("serial", id=241, click=True)["events"], [DIRTY])
    for control, typed in ((244, "LOT-"), (245, "00a4711"), (246, "/X"), (247, "3")):
        o.page("serial", id=control, type=typed)
    same("digits only, four of them", o.see("serial", 245)["text"], "0047")
    same("the composed text", o.see("serial", 263)["text"], "LOT-0047/X")
    o.page("serial", id=248, select=6)
    o.page("serial", id=245, type="4711")
    same("six digits", o.see("serial", 263)["text"], "LOT-004711/X")

    o.page("serial", id=255, click=True)
    o.page("serial", id=257, select=16)
    same("the custom pattern is shown", o.visible("serial", 205, 273), [True, True])
    o.page("serial", id=205, type="")
    for item in (8, 2, 3):
        o.page("serial", id=273, doubleClick=item)
    same("the pattern", o.see("serial", 205)["text"], "%Y%m%d")
    o.page("serial", id=265, type="1")
    o.page("serial", id=261, click=True)
    tomorrow = [datetime.date.today() + datetime.timedelta(days=1)]
    preview = o.see("serial", 263)["text"]
    tomorrow.append(datetime.date.today() + datetime.timedelta(days=1))
    assert preview in {f"LOT-004711/X{day:%Y%m%d}" for day in tomorrow}, preview
    same("nothing reaches the control before Apply", [o.get("SerialNumEnable"), o.get("SerNumSuffix")], [0, "Суфикс"])

    applied = o.page("serial", apply=True)
    same("one regeneration, then clean", [list(event)[0] for event in applied["events"]],
         ["posRect", "viewChange", "pageStatus"])
    same("the last event", applied["events"][-1], CLEAN)
    names = ("SerialNumPrefix", "SerNumStart", "SerNumSuffix", "SerNumIncrement", "SerNumDecimalPlaces", "AutoDateFormat",
             "AutoDatePosition", "AutoDateOffset", "CustomAutoText")
    same("the control", [o.get(name) for name in names], ["LOT-", "4711", "/X", 3, 6, 20016, 261, 1, "%Y%m%d"])
    same("it composes", o.do(call="GetArrayType")["value"], 0)
    o.page("serial", id=246, type="nothing")
    o.page("serial", close=True)
    same("closed without Apply", o.get("SerNumSuffix"), "/X")
    o.do(call="SetIncrement")
    same("the next part", o.get("SerNumStart"), "4714")


def main():
    table = strings()
    outlines = set()
    for language, column in LANGUAGES.items():
        operator = Operator(sys.argv[1])
        operator.do(lang=language)
        def text(number):
            return table[number][column]
        outlines.add(text_page(operator, text))
        serial_page(operator, text)
        operator.do(lang=None)
        operator.finish()
    same("the mark is the same in every language", len(outlines), 1)
    print(f"both pages in {len(LANGUAGES)} languages")


if __name__ == "__main__":
    main()
