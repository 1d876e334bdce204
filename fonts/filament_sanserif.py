#!/usr/bin/python3
"""Makes FilamentSanSerif.ttf, the single-stroke font.

    filament_sanserif.py                   write the font beside this script
    filament_sanserif.py --check           compare the font with its sources
    filament_sanserif.py --specimen FILE   write a specimen sheet as SVG
"""

import argparse
import io
import sys
from array import array
from pathlib import Path

from fontTools.agl import UV2AGL
from fontTools.fontBuilder import FontBuilder
from fontTools.ttLib import TTFont, newTable
from fontTools.ttLib.tables._g_l_y_f import Glyph, GlyphCoordinates
from fontTools.ttLib.tables._k_e_r_n import KernTable_format_0
from fontTools.ttLib.tables.ttProgram import Program

import filament_glyphs
import filament_kerning
from filament_checks import faults
from filament_specimen import specimen

FONT_FILE = Path(__file__).resolve().parent / "FilamentSanSerif.ttf"

FAMILY, STYLE, VERSION = "Filament SanSerif", "Regular", "1.000"
EM = 1000
WIN_ASCENT, WIN_DESCENT = 960, 250
TYPO_ASCENT, TYPO_DESCENT = 750, 250
TIMESTAMP = 3786912000  # 2024-01-01 in seconds since 1904

# Latin 1, Latin 2, Cyrillic, Turkish and Baltic code pages
CODE_PAGES = sum(1 << bit for bit in (0, 1, 2, 4, 7))
PANOSE = dict(bFamilyType=2, bSerifStyle=11, bWeight=2, bProportion=4, bContrast=2,
              bStrokeVariation=2, bArmStyle=2, bLetterForm=2, bMidline=2, bXHeight=3)
INSTALLABLE = 0
REGULAR = 0x40


def glyph_name(character):
    return UV2AGL.get(ord(character), f"uni{ord(character):04X}")


def outline(strokes):
    """A simple glyph with one contour per stroke.

    The points are stored directly, so that the last point of a ring, which
    equals its first, stays in the contour.
    """
    glyph = Glyph()
    points = [point for stroke in strokes for point in stroke]
    glyph.numberOfContours = len(strokes)
    if not strokes:
        return glyph
    glyph.coordinates = GlyphCoordinates([(x, y) for x, y, _ in points])
    glyph.flags = array("B", [on for _, _, on in points])
    glyph.endPtsOfContours = []
    end = -1
    for stroke in strokes:
        end += len(stroke)
        glyph.endPtsOfContours.append(end)
    glyph.program = Program()
    glyph.program.fromBytecode(b"")
    return glyph


def kern_table(names):
    table = KernTable_format_0()
    table.coverage, table.tupleIndex = 1, None
    table.kernTable = {(names[first], names[second]): value
                       for (first, second), value in filament_kerning.pairs().items()}
    kern = newTable("kern")
    kern.version, kern.kernTables = 0, [table]
    return kern


def build():
    placed = filament_glyphs.glyphs()
    names = {character: glyph_name(character) for character in placed}
    for character, other in filament_glyphs.shared().items():
        names[character] = names[other]
    by_name = {".notdef": filament_glyphs.notdef()}
    by_name.update((names[character], glyph) for character, glyph in placed.items())
    glyf = {name: outline(glyph.strokes) for name, glyph in by_name.items()}

    builder = FontBuilder(EM, isTTF=True)
    builder.setupGlyphOrder(list(by_name))
    builder.setupCharacterMap({ord(character): name for character, name in names.items()})
    builder.setupGlyf(glyf)
    builder.setupHorizontalMetrics({
        name: (glyph.advance, getattr(glyf[name], "xMin", 0))
        for name, glyph in by_name.items()})
    builder.setupHorizontalHeader(ascent=WIN_ASCENT, descent=-WIN_DESCENT)
    builder.setupNameTable({
        "copyright": "Part of the Ovaline project, under the terms of the project",
        "familyName": FAMILY, "styleName": STYLE,
        "uniqueFontIdentifier": f"{FAMILY} {VERSION}",
        "fullName": FAMILY, "psName": "FilamentSanSerif-Regular",
        "version": f"Version {VERSION}",
        "description": "Single-stroke lettering: every contour is an open stroke",
    }, mac=False)
    builder.setupOS2(
        sTypoAscender=TYPO_ASCENT, sTypoDescender=-TYPO_DESCENT,
        sTypoLineGap=WIN_ASCENT + WIN_DESCENT - TYPO_ASCENT - TYPO_DESCENT,
        usWinAscent=WIN_ASCENT, usWinDescent=WIN_DESCENT,
        sxHeight=500, sCapHeight=700, usWeightClass=300, usWidthClass=5,
        fsType=INSTALLABLE, fsSelection=REGULAR, achVendID="OVAL",
        panose=PANOSE, ulCodePageRange1=CODE_PAGES, ulCodePageRange2=0,
        yStrikeoutPosition=260, yStrikeoutSize=24, usMaxContext=2)
    font = builder.font
    font["OS/2"].recalcUnicodeRanges(font)
    font["OS/2"].recalcAvgCharWidth(font)
    builder.setupPost(underlinePosition=-120, underlineThickness=24)
    font["kern"] = kern_table(names)
    font["head"].fontRevision = float(VERSION)
    font["head"].created = font["head"].modified = TIMESTAMP
    font.recalcTimestamp = False
    return font


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--check", action="store_true",
                        help="fail if the font differs from its sources")
    parser.add_argument("--specimen", metavar="FILE", help="write a specimen sheet as SVG")
    options = parser.parse_args()

    stream = io.BytesIO()
    build().save(stream)
    font = TTFont(stream)
    found = faults(font)
    if found:
        sys.exit("\n".join(found))
    if options.specimen:
        Path(options.specimen).write_text(specimen(font), encoding="utf-8")
    elif options.check:
        if not FONT_FILE.exists() or FONT_FILE.read_bytes() != stream.getvalue():
            sys.exit(f"{FONT_FILE.name} differs from its sources; make it again")
    else:
        FONT_FILE.write_bytes(stream.getvalue())
    print(f"{FONT_FILE.name}: {len(font.getGlyphOrder())} glyphs,"
          f" {len(font.getBestCmap())} characters,"
          f" {len(font['kern'].kernTables[0].kernTable)} kerning pairs")


if __name__ == "__main__":
    main()
