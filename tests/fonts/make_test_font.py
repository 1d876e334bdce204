#!/usr/bin/python3
"""Makes the filled fonts of the tests, or with --check compares them with their sources.

Both have 2048 units per em.  No advance width is a multiple of 64, save the zero width of the combining acute.  The glyphs
have straight lines and runs of one to four off-curve points, up to five contours, one that starts off the curve (comma),
one without points on it (period), one of a single point (x); Ä is a composite.

"Ovaline Test" kerns with a kern table and has no GPOS table; "Ovaline Test Gpos" kerns with the GPOS feature 'kern' alone:
pairs, then classes (V A is decided by the pairs), then a second lookup reached through an extension.
"""

import io
import sys
from array import array
from pathlib import Path

from fontTools.feaLib.builder import addOpenTypeFeaturesFromString
from fontTools.fontBuilder import FontBuilder
from fontTools.ttLib import newTable
from fontTools.ttLib.tables import otTables
from fontTools.ttLib.tables._g_l_y_f import Glyph, GlyphComponent, GlyphCoordinates
from fontTools.ttLib.tables._k_e_r_n import KernTable_format_0
from fontTools.ttLib.tables.ttProgram import Program

from outlines import OUTLINES, contour

EM, WIN_ASCENT, WIN_DESCENT = 2048, 1854, 434
TIMESTAMP = 3786912000  # 2024-01-01 in seconds since 1904
CODE_PAGES = 1 << 0 | 1 << 2  # Latin 1 and Cyrillic

ROUND_TO_GRID, USE_MY_METRICS = 0x0004, 0x0200
EXTENSION_LOOKUP = 9
COMPOSITES = {"Adieresis": [("A", 0, 0), ("dieresis", 330, 290)]}

CODES = {
    "space": " ", "percent": "%", "comma": ",", "hyphen": "-", "period": ".",
    "zero": "0", "one": "1", "two": "2", "three": "3", "four": "4", "five": "5",
    "six": "6", "seven": "7", "eight": "8", "nine": "9", "dieresis": "¨",
    "Adieresis": "Ä", "acutecomb": "\u0301", "afii10024": "Ж",
    **{letter: letter for letter in "ABHORSTVaeilnovx"},
}

KERNING = {("A", "V"): -152, ("V", "A"): -152, ("T", "o"): -226, ("T", "V"): 37}

GPOS_GLYPHS = (".notdef", "space", "A", "T", "V", "o")
FEATURES = """
languagesystem DFLT dflt;
languagesystem latn dflt;

lookup pairsAndClasses {
    pos A V -152;
    pos V A -152;
    pos [T] [o] -226;
    pos [T] [A] -140;
    pos [V] [o] -90;
    pos [V] [A] -120;
} pairsAndClasses;

lookup extended {
    pos o V -64;
    pos o T 37;
} extended;

feature kern {
    lookup pairsAndClasses;
    lookup extended;
} kern;
"""


def simple_glyph(contours):
    glyph = Glyph()
    glyph.numberOfContours = len(contours)
    if not contours:
        return glyph
    points = [point for run in contours for point in run]
    glyph.coordinates = GlyphCoordinates([(x, y) for x, y, _ in points])
    glyph.flags = array("B", [on for _, _, on in points])
    glyph.endPtsOfContours = [sum(map(len, contours[:i + 1])) - 1 for i in range(len(contours))]
    glyph.program = Program()
    glyph.program.fromBytecode(b"")
    return glyph


def composite_glyph(parts):
    glyph = Glyph()
    glyph.numberOfContours = -1
    glyph.components = []
    for name, x, y in parts:
        component = GlyphComponent()
        component.glyphName, component.x, component.y = name, x, y
        component.flags = ROUND_TO_GRID
        glyph.components.append(component)
    glyph.components[0].flags |= USE_MY_METRICS
    return glyph


def build(family, names):
    """A font of the named glyphs without kerning."""
    glyf, advances = {}, {}
    for name in names:
        if name in COMPOSITES:
            glyf[name] = composite_glyph(COMPOSITES[name])
            advances[name] = OUTLINES[COMPOSITES[name][0][0]][0]
        else:
            advances[name], outline = OUTLINES[name]
            glyf[name] = simple_glyph([contour(text) for text in outline])
    ps_name = family.replace(" ", "") + "-Regular"
    builder = FontBuilder(EM, isTTF=True)
    builder.setupGlyphOrder(list(names))
    builder.setupCharacterMap({ord(CODES[name]): name for name in names if name in CODES})
    builder.setupGlyf(glyf)
    builder.setupHorizontalMetrics({
        name: (advances[name], getattr(glyf[name], "xMin", 0)) for name in names})
    builder.setupHorizontalHeader(ascent=WIN_ASCENT, descent=-WIN_DESCENT)
    builder.setupNameTable({
        "familyName": family, "styleName": "Regular", "uniqueFontIdentifier": f"{family} 1.000",
        "fullName": family, "psName": ps_name, "version": "Version 1.000"}, mac=False)
    builder.setupOS2(
        sTypoAscender=1491, sTypoDescender=-434, sTypoLineGap=307,
        usWinAscent=WIN_ASCENT, usWinDescent=WIN_DESCENT, sxHeight=1062, sCapHeight=1434,
        fsType=0, fsSelection=0x40, achVendID="OVAL",
        ulCodePageRange1=CODE_PAGES, ulCodePageRange2=0,
        yStrikeoutPosition=530, yStrikeoutSize=102, usMaxContext=2)
    builder.setupPost(underlinePosition=-217, underlineThickness=150)
    font = builder.font
    font["OS/2"].recalcUnicodeRanges(font)
    font["OS/2"].recalcAvgCharWidth(font)
    font["head"].created = font["head"].modified = TIMESTAMP
    font.recalcTimestamp = False
    return font


def kern_table_font():
    font = build("Ovaline Test", [*OUTLINES, *COMPOSITES])
    table = KernTable_format_0()
    table.coverage, table.tupleIndex, table.kernTable = 1, None, KERNING
    font["kern"] = newTable("kern")
    font["kern"].version, font["kern"].kernTables = 0, [table]
    return font


def gpos_font():
    font = build("Ovaline Test Gpos", GPOS_GLYPHS)
    addOpenTypeFeaturesFromString(font, FEATURES)
    extended = font["GPOS"].table.LookupList.Lookup[-1]
    for i, subtable in enumerate(extended.SubTable):
        extended.SubTable[i] = otTables.ExtensionPos()
        extended.SubTable[i].Format = 1
        extended.SubTable[i].ExtensionLookupType = extended.LookupType
        extended.SubTable[i].ExtSubTable = subtable
    extended.LookupType = EXTENSION_LOOKUP
    return font


def main():
    for name, make in {"OvalineTest.ttf": kern_table_font, "OvalineTestGpos.ttf": gpos_font}.items():
        stream = io.BytesIO()
        make().save(stream)
        file = Path(__file__).resolve().with_name(name)
        if "--check" not in sys.argv:
            file.write_bytes(stream.getvalue())
        elif file.read_bytes() != stream.getvalue():
            sys.exit(f"{name} differs from its sources; make it again")


if __name__ == "__main__":
    main()
