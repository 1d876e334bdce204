#!/usr/bin/python3
"""Compares the font service with the font files themselves.

compare_fonts.py DUMP_PROGRAM
compare_fonts.py --gdi COMMAND...    the program on GDI, which may need a command that runs it

Recomputes metrics, outlines, advances and kerning from the files in plain integer arithmetic, with fontTools for the
reading of tables only, and compares them with what DUMP_PROGRAM prints. Exits with 1 on any difference.
"""

import pathlib
import struct
import subprocess
import sys
import tempfile

from fontTools.ttLib import TTFont

HERE = pathlib.Path(__file__).resolve().parent
TEST_FONTS = HERE.parent / "fonts"
SHIPPED_FONTS = HERE.parents[1] / "fonts"
GDI_HEIGHTS = [7, 61, 1001, -640, -2000, -65536]  # few: to start a program there takes long
HEIGHTS = [1, 3, 13, 60, 100, 333, 1000, 4097, 40000, 70000, 2147483647, -1, -17, -640, -65535, -65536, -2147483648]
CODES = [*range(0x20, 0x7F), *range(0xA0, 0x180), *range(0x391, 0x3CA), *range(0x410, 0x450), *range(0x2010, 0x2027),
         0x20AC, 0xD800, 0xE000, 0xF041]
KERNED = [*range(0x20, 0x530), *range(0x1E00, 0x20D0)]


def rounded(numerator, denominator):
    """Quotient to the nearest, halves away from zero."""
    magnitude = (abs(numerator) + denominator // 2) // denominator
    return magnitude if (numerator < 0) == (denominator < 0) else -magnitude


class Expected:
    """One font at one height."""

    def __init__(self, font, height):
        self.font = font
        self.em = font["head"].unitsPerEm
        self.ascent, self.descent = font["OS/2"].usWinAscent, font["OS/2"].usWinDescent
        self.ppem = self.dots_per_em(height)
        self.scale = rounded(self.ppem * 64 << 16, self.em)
        self.cmap = font.getBestCmap() or symbols(font["cmap"].getcmap(3, 0).cmap)
        self.glyf, self.hmtx = font["glyf"], font["hmtx"]

    def dots_per_em(self, height):
        if height < 0:
            return -height
        cell = self.ascent + self.descent
        ppem = rounded(self.em * height, cell)
        if rounded(cell * ppem, self.em) > height:
            ppem -= 1
        return max(ppem, 1)

    def exists(self):
        return self.ppem <= 0xFFFF

    def scaled(self, units):
        return rounded(units * self.scale, 0x10000)

    def metrics(self):
        scale = rounded(self.ppem << 16, self.em)
        return [rounded(value * scale, 0x10000) for value in (self.ascent, self.descent)]

    def contours(self, name):
        """Scaled contours of (x, y, on curve) and the scaled ends of the advance."""
        glyph = self.glyf[name]
        advance, bearing = self.hmtx[name]
        origin = getattr(glyph, "xMin", 0) - bearing
        ends = self.scaled(origin), self.scaled(origin + advance)
        if glyph.isComposite():
            contours = []
            for part in glyph.components:
                pieces, part_ends = self.contours(part.glyphName)
                contours += [[self.placed(point, part) for point in piece] for piece in pieces]
                if part.flags & 0x200:
                    ends = part_ends
            return contours, ends
        contours, first = [], 0
        for last in getattr(glyph, "endPtsOfContours", []):
            span = range(first, last + 1)
            contours.append([(*map(self.scaled, glyph.coordinates[i]), glyph.flags[i] & 1) for i in span])
            first = last + 1
        return contours, ends

    def placed(self, point, part):
        x, y, on = point
        if hasattr(part, "transform"):
            (xx, yx), (xy, yy) = [[round(value * 0x10000) for value in row] for row in part.transform]
            x, y = (rounded(x * xx, 0x10000) + rounded(y * xy, 0x10000),
                    rounded(x * yx, 0x10000) + rounded(y * yy, 0x10000))
        return x + self.scaled(part.x), y + self.scaled(part.y), on

    def name_of(self, code):
        return self.cmap.get(code, self.font.getGlyphOrder()[0])

    def has_start(self, code):
        """Whether each contour has a point on the curve at one of its ends. Where there is none, engines differ."""
        return all(points[0][2] or points[-1][2] for points in self.contours(self.name_of(code))[0])

    def glyph(self, code, slanted, flip):
        contours, (left, right) = self.contours(self.name_of(code))
        data = b""
        try:
            for contour in contours:
                points = [(x - left, y, on) for x, y, on in contour]
                if slanted:
                    points = [(x + rounded(y, 4), y, on) for x, y, on in points]
                if flip:
                    points = [(x, -y, on) for x, y, on in points]
                if len(points) > 1:
                    data += native(points)
        except struct.error:
            return "error"
        return f"{-(-(right - left) // 64)} 0 {data.hex()}"

    def code_of(self):
        codes = {}
        for code, name in sorted(self.cmap.items()):
            if 0 < code <= 0xFFFF:
                codes.setdefault(name, code)
        return codes

    def kerning_dots(self, units):
        dots = rounded((abs(units) + 1) * self.ppem, self.em)
        return -dots if units < 0 else dots

    def kern_pairs(self):
        """Pairs of the kern table, which here has one subtable."""
        data, order, codes = self.font.reader["kern"], self.font.getGlyphOrder(), self.code_of()
        version, tables, _, _, coverage, count = struct.unpack(">6H", data[:12])
        assert (version, tables, coverage) == (0, 1, 1)
        for left, right, value in struct.iter_unpack(">HHh", data[18:18 + 6 * count]):
            first, second = codes.get(order[left]), codes.get(order[right])
            if value and first and second:
                yield first, second, self.kerning_dots(value)

    def gpos_pairs(self, wanted):
        """Pairs of GPOS among the codes `wanted`, asked pair by pair."""
        lookups = kern_lookups(self.font["GPOS"].table)
        codes = sorted((code, name) for name, code in self.code_of().items() if code in wanted)
        for first, left in codes:
            for second, right in codes:
                units = sum(advance_of(lookup, left, right) for lookup in lookups)
                if units:
                    yield first, second, self.kerning_dots(units)


def symbols(cmap):
    """A symbol font's codes, also those below 0x100 that stand for the ones from 0xF000 on."""
    return {code - 0xF000: name for code, name in cmap.items() if 0xF000 <= code < 0xF100} | cmap


def native(points):
    """One contour's records."""
    first, last = points[0], points[-1]
    if first[2]:
        start, body = first, points[1:]
    elif last[2]:
        start, body = last, points[:-1]
    else:
        start, body = (int((first[0] + last[0]) / 2), int((first[1] + last[1]) / 2), 1), points
    body = list(body)
    if not body[-1][2]:
        body.append(start)
    records = b""
    while body:
        kind = 1 if body[0][2] else 2
        length = 1
        if kind == 2:
            while not body[length - 1][2]:
                length += 1
        else:
            while length < len(body) and body[length][2]:
                length += 1
        records += struct.pack("<HH", kind, length) + b"".join(pointfx(point) for point in body[:length])
        del body[:length]
    return struct.pack("<II", 16 + len(records), 24) + pointfx(start) + records


def pointfx(point):
    data = b""
    for value in point[:2]:
        whole, part = divmod(value, 64)
        bits = f"{part:06b}"
        data += struct.pack("<Hh", int((bits * 3)[:16], 2), whole)
    return data


def kern_lookups(gpos):
    found = set()
    for record in gpos.ScriptList.ScriptRecord:
        language = record.Script.DefaultLangSys
        if record.ScriptTag in ("DFLT", "latn") and language:
            for index in language.FeatureIndex:
                feature = gpos.FeatureList.FeatureRecord[index]
                if feature.FeatureTag == "kern":
                    found.update(feature.Feature.LookupListIndex)
    return [prepared(gpos.LookupList.Lookup[index]) for index in sorted(found)]


def prepared(lookup):
    subtables = [getattr(table, "ExtSubTable", table) for table in lookup.SubTable]
    return [(table, set(table.Coverage.glyphs), index_of(table)) for table in subtables if table.LookupType == 2]


def index_of(table):
    if table.Format == 2:
        return None
    return {glyph: {record.SecondGlyph: record.Value1 for record in pairs.PairValueRecord}
            for glyph, pairs in zip(table.Coverage.glyphs, table.PairSet)}


def advance_of(subtables, left, right):
    for table, covered, listed in subtables:
        if left not in covered:
            continue
        if table.Format == 2:
            row = table.Class1Record[table.ClassDef1.classDefs.get(left, 0)]
            value = row.Class2Record[table.ClassDef2.classDefs.get(right, 0)].Value1
        elif right in listed[left]:
            value = listed[left][right]
        else:
            continue
        return getattr(value, "XAdvance", 0) if value else 0
    return 0


class Comparison:
    def __init__(self, command, folders, gdi=False):
        self.command, self.folders, self.gdi = command, [str(folder) for folder in folders], gdi
        self.passed = self.failed = 0

    def check(self, what, expected, found):
        if expected == found:
            self.passed += 1
            return
        self.failed += 1
        if self.failed <= 20:
            print(f"{what}:\n  expected {str(expected)[:300]}\n  found    {str(found)[:300]}")

    def dump(self, family, height, italic, flip):
        words = [*self.command, family, str(height), "400", str(int(italic)), str(int(flip)), *self.folders]
        codes = " ".join(map(str, CODES))
        return subprocess.run(words, input=codes, capture_output=True, text=True, check=True).stdout.splitlines()

    def compare(self, family, path, height, slanted, flip):
        where = f"{family} at {height}{' slanted' if slanted else ''}{' flipped' if flip else ''}"
        expected = Expected(TTFont(path), height)
        lines = self.dump(family, height, slanted, flip)
        if not expected.exists():
            self.check(where, ["none"], lines)
            return
        self.check(f"{where}: family", f"family {family}", lines[0])
        ascent, descent = expected.metrics()
        self.check(f"{where}: metrics", f"metrics {ascent} {descent}", lines[1])
        glyphs = dict(line.removeprefix("glyph ").split(" ", 1) for line in lines if line.startswith("glyph "))
        for code in CODES:
            if self.gdi and not expected.has_start(code):
                continue
            self.check(f"{where}: U+{code:04X}", expected.glyph(code, slanted, flip), glyphs.get(str(code)))
        pairs = [tuple(map(int, line.split()[1:])) for line in lines if line.startswith("pair ")]
        if "kern" in expected.font:
            self.check(f"{where}: kern", list(expected.kern_pairs()), pairs)
        elif self.gdi:
            self.check(f"{where}: no kern", [], pairs)
        elif "GPOS" in expected.font:
            wanted = set(CODES) & set(KERNED)
            self.check(f"{where}: GPOS order", sorted(pairs), pairs)
            self.check(f"{where}: GPOS range", [], [pair for pair in pairs if not set(pair[:2]) <= set(KERNED)])
            pairs = [pair for pair in pairs if pair[0] in wanted and pair[1] in wanted]
            self.check(f"{where}: GPOS", list(expected.gpos_pairs(wanted)), pairs)


def installed(family):
    """File of the regular face."""
    query = ["fc-match", "-f", "%{file}", f"{family}:weight=80:slant=0"]
    return subprocess.run(query, capture_output=True, text=True, check=True).stdout


def without_kern_table(family, folder):
    """A copy of the font whose kerning is in GPOS only."""
    font = TTFont(installed(family))
    del font["kern"]
    return saved(font, f"{family} Gpos", folder)


def with_symbol_codes(family, folder):
    """A copy of the font that maps the codes from 0xF020 on, as symbol fonts do, and no other."""
    font = TTFont(installed(family))
    table = font["cmap"].getcmap(3, 1)
    table.platEncID = 0
    table.cmap = {0xF000 + code: name for code, name in table.cmap.items() if code < 0x100}
    font["cmap"].tables = [table]
    return saved(font, f"{family} Symbols", folder)


def saved(font, name, folder):
    """The font under another name."""
    for record in font["name"].names:
        if record.nameID in (1, 4, 16):
            record.string = name
    path = pathlib.Path(folder) / f"{name}.ttf"
    font.save(path)
    return name, path


def compare_gdi(command):
    comparison = Comparison(command, [TEST_FONTS, SHIPPED_FONTS], gdi=True)
    for family, path in [("Liberation Sans", installed("Liberation Sans")),
                         ("Ovaline Test Gpos", TEST_FONTS / "OvalineTestGpos.ttf"),
                         ("Filament SanSerif", SHIPPED_FONTS / "FilamentSanSerif.ttf")]:
        for height in GDI_HEIGHTS:
            slanted = height % 2 != 0 and "Liberation" not in family  # of which there is an italic face
            comparison.compare(family, path, height, slanted, height > 0)
    return comparison


def compare_all(command):
    with tempfile.TemporaryDirectory() as folder:
        comparison = Comparison(command, [folder, TEST_FONTS, SHIPPED_FONTS])
        upright = [(family, installed(family)) for family in ("Liberation Sans", "DejaVu Sans")]
        ours = [("Ovaline Test", TEST_FONTS / "OvalineTest.ttf"),
                ("Filament SanSerif", SHIPPED_FONTS / "FilamentSanSerif.ttf")]
        by_gpos = [("Ovaline Test Gpos", TEST_FONTS / "OvalineTestGpos.ttf"),
                   *(without_kern_table(family, folder) for family, _ in upright)]
        by_symbols = [with_symbol_codes("Liberation Sans", folder)]
        for family, path in upright + ours + by_symbols:
            for height in HEIGHTS:
                comparison.compare(family, path, height, False, height % 2 == 0)
        for family, path in by_gpos:
            comparison.compare(family, path, 500, False, False)
        for height in (60, 1001):
            for family, path in ours:
                comparison.compare(family, path, height, True, height == 60)
    return comparison


def main():
    gdi = sys.argv[1] == "--gdi"
    comparison = compare_gdi(sys.argv[2:]) if gdi else compare_all(sys.argv[1:])
    print(f"{comparison.passed} passed, {comparison.failed} failed")
    return 1 if comparison.failed else 0


if __name__ == "__main__":
    sys.exit(main())
