"""Placed glyphs: every covered character with its strokes and advance width."""

from collections import namedtuple

import filament_accents as accents
import filament_cyrillic as cyrillic
import filament_latin as latin
import filament_symbols as symbols
from filament_pen import extent, moved, rounded, strokes

Glyph = namedtuple("Glyph", "strokes advance")

# Room beside the ink: straight stem, round, open, narrow, diagonal, hook, none.
SIDES = {"s": 78, "o": 60, "t": 48, "n": 30, "d": 25, "h": -35, "z": 0}
TABULAR = "##"
TABULAR_ADVANCE = 560
SPACE_ADVANCE = 290
ACCENT_ROOM = 28

NOTDEF = "0,0 0,700 400,700 400,0 0,0"

DRAWN = {**latin.CAPITALS, **latin.SMALL, **latin.DIGITS,
         **cyrillic.CAPITALS, **cyrillic.SMALL, **symbols.SIGNS}
ASSEMBLED = {**latin.ASSEMBLED, **symbols.ASSEMBLED}
SAME_AS = {**latin.SAME_AS, **cyrillic.SAME_AS,
           **symbols.SAME_AS, "\u00a0": " "}


def _precomposed_letters():
    wanted = [*range(0xC0, 0x180), *range(0x400, 0x460)]
    return [chr(code) for code in wanted
            if chr(code) not in DRAWN and chr(code) not in ASSEMBLED
            and chr(code) not in SAME_AS]


def _assembled(character):
    sides, parts, extra = ASSEMBLED[character]
    drawing = []
    for part, scale, dx, dy in parts:
        drawing += moved(_drawing(part)[1], dx, dy, scale)
    return sides, drawing + strokes(extra)


def _drawing(character):
    """Side classes and strokes of a character that is not accented."""
    character = SAME_AS.get(character, character)
    if character in ASSEMBLED:
        return _assembled(character)
    if character in accents.SPACING:
        return "tt", accents.spacing_accent(character)
    sides, text = DRAWN[character].split(None, 1)
    return sides, strokes(text)


def _placed(sides, drawing, added=()):
    """Set the drawing between its sidebearings; added accents may widen it."""
    left, right = extent(drawing)
    if sides == TABULAR:
        start = round((TABULAR_ADVANCE - (right - left)) / 2) - left
        advance = TABULAR_ADVANCE
    else:
        start = SIDES[sides[0]] - left
        advance = start + right + SIDES[sides[1]]
    if added:
        first, last = extent(added)
        wider = max(0, ACCENT_ROOM - (start + first))
        start, advance = start + wider, advance + wider
        advance = max(advance, start + last + ACCENT_ROOM)
    return Glyph(rounded(moved([*drawing, *added], start, 0)), round(advance))


def _glyph(character):
    base, marks = character, []
    if character not in DRAWN and character not in ASSEMBLED \
            and character not in accents.SPACING:
        base, marks = accents.decomposition(character)
    base = SAME_AS.get(base, base)
    sides, drawing = _drawing(base)
    return _placed(sides, drawing, accents.composed(base, marks, drawing))


def glyphs():
    """Characters with a glyph of their own, in code point order."""
    characters = [*DRAWN, *ASSEMBLED, *accents.SPACING, *_precomposed_letters()]
    placed = {character: _glyph(character) for character in sorted(characters)}
    placed[" "] = Glyph([], SPACE_ADVANCE)
    return dict(sorted(placed.items()))


def notdef():
    return _placed("ss", strokes(NOTDEF))


def shared():
    """Characters that use the glyph of another character."""
    return dict(sorted(SAME_AS.items()))
