#!/usr/bin/python3
"""Makes the filled fonts of the golden tests.

    make_test_font.py           write OvalineTest.ttf and OvalineTestGpos.ttf
    make_test_font.py --check   compare the fonts with their sources

Both have 2048 units per em, an ascent of 1854 and a descent of 434.  No
advance width is a multiple of 64, save the zero width of the combining acute.

OvalineTest.ttf, family "Ovaline Test", kerns with a kern table:
A V -152, V A -152, T o -226, T V +37.  It has no GPOS table.

    glyph            what is special
    .notdef          a box with a counter
    space            no contour, advance 569
    H T A V v Ж 4    straight lines only; A and 4 have a counter
    l i hyphen       rectangles; i has two contours
    comma            contour starts off the curve, its last point is on it
    period           contour of off-curve points only
    0                runs of four off-curve points
    e                runs of one and of three off-curve points
    O %              runs of two off-curve points; % has five contours
    o                sixteen points a contour, runs of one off-curve point
    1 2 3 5 7 S n a  runs of one off-curve point, the a with a counter
    6 9              runs of one and of two; 9 is 6 turned around
    R B              one and two counters, lines and runs of one
    8                two counters with runs of two in a contour with runs of one
    x                straight lines, and a contour of one point beside the real one
    dieresis         two contours, component of Ä
    Ä                composite of A and dieresis, with the metrics of A
    acutecomb        advance 0, ink left of the origin

OvalineTestGpos.ttf, family "Ovaline Test Gpos", holds space, A, T, V and o
and kerns with the GPOS feature 'kern' alone:

    lookup   subtable                 pairs
    first    PairPos format 1         A V -152, V A -152
    first    PairPos format 2         T o -226, T A -140, V o -90, V A -120
                                      (V A is decided by the first subtable)
    second   Extension, PairPos 1     o V -64, o T +37
"""

import argparse
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

FOLDER = Path(__file__).resolve().parent

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


def extend(lookup):
    """Reach the subtables of a lookup through extension subtables."""
    wrapped = []
    for subtable in lookup.SubTable:
        extension = otTables.ExtensionPos()
        extension.Format = 1
        extension.ExtensionLookupType = lookup.LookupType
        extension.ExtSubTable = subtable
        wrapped.append(extension)
    lookup.SubTable = wrapped
    lookup.LookupType = EXTENSION_LOOKUP


def gpos_font():
    font = build("Ovaline Test Gpos", GPOS_GLYPHS)
    addOpenTypeFeaturesFromString(font, FEATURES)
    extend(font["GPOS"].table.LookupList.Lookup[-1])
    return font


FONTS = {"OvalineTest.ttf": kern_table_font, "OvalineTestGpos.ttf": gpos_font}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true",
                        help="fail if a font differs from its sources")
    options = parser.parse_args()
    for file_name, make in FONTS.items():
        stream = io.BytesIO()
        make().save(stream)
        file = FOLDER / file_name
        if not options.check:
            file.write_bytes(stream.getvalue())
        elif not file.exists() or file.read_bytes() != stream.getvalue():
            sys.exit(f"{file_name} differs from its sources; make it again")


if __name__ == "__main__":
    main()
