"""Accent strokes and the making of precomposed letters.

Accents are drawn around x = 0 for a letter of x-height; over taller letters
they are raised.  The canonical decomposition of a letter tells which base and
which accents it is made of.
"""

import unicodedata

from filament_pen import extent, moved, strokes

X_HEIGHT, CAP_HEIGHT, ASCENDER = 500, 700, 740

ABOVE = {
    "\u0300": "-50,700 40,580",
    "\u0301": "50,700 -40,580",
    "\u0302": "-90,580 0,695 90,580",
    "\u0303": "-110,605 (-80,680) (-40,680) 0,640 (40,600) (80,600) 110,675",
    "\u0304": "-100,635 100,635",
    "\u0306": "-90,690 ^0,595 >90,690",
    "\u0307": "@0,645",
    "\u0308": "@-80,645 80,645",
    "\u030a": "0,710 >-60,650 ^0,590 >60,650 ^0,710",
    "\u030b": "-10,700 -90,580; 110,700 30,580",
    "\u030c": "-90,695 0,580 90,695",
}

# Below-base accents start at the point where they touch the letter.
CEDILLA, OGONEK = "\u0327", "\u0328"
BELOW = {
    CEDILLA: "0,0 -20,-70 20,-70 >85,-135 ^20,-200 -70,-200",
    OGONEK: "0,0 (-70,-60) -70,-125 ^0,-195 40,-195",
}

COMMA_BELOW = "15,-70 (20,-150) -35,-200"
COMMA_ABOVE = "30,710 (-25,660) -20,575"
CARON_BESIDE = "0,740 (10,640) -45,580"

COMMA_LETTERS = "GKLNRklnr"
CARON_BESIDE_AT = {"d": 525, "l": 95, "t": 235, "L": 180}

ABOVE_AT = {"C": 280, "G": 280, "J": 320, "L": 10, "ȷ": 110, "h": 0, "l": 0,
            "a": 195, "c": 215, "g": 215, "s": 180, "r": 130, "E": 215}

OGONEK_AT = {"A": (540, 0), "E": (400, 0), "I": (0, 0), "U": (260, 0),
             "a": (360, 0), "e": (321, 24), "i": (0, 0), "u": (390, 0)}
CEDILLA_AT = {"C": 280, "S": 235, "T": 240, "c": 220, "s": 175, "t": 215}

DOTLESS = {"i": "ı", "і": "ı", "j": "ȷ"}

SPACING = {"`": "\u0300", "´": "\u0301", "ˆ": "\u0302", "˜": "\u0303", "¯": "\u0304",
           "˘": "\u0306", "˙": "\u0307", "¨": "\u0308", "˚": "\u030a", "˝": "\u030b",
           "ˇ": "\u030c", "¸": CEDILLA, "˛": OGONEK}


def spacing_accent(character):
    mark = SPACING[character]
    return strokes(ABOVE.get(mark) or BELOW[mark])


def _rise(base):
    if base.isupper():
        return CAP_HEIGHT - X_HEIGHT
    return ASCENDER - X_HEIGHT if base in "hl" else 0


def _accent(base, mark, drawing):
    if mark == CEDILLA and base == "g":
        return moved(strokes(COMMA_ABOVE), ABOVE_AT["g"], 0)
    if mark == CEDILLA and base in COMMA_LETTERS:
        return moved(strokes(COMMA_BELOW), sum(extent(drawing)) / 2, 0)
    if mark == CEDILLA:
        return moved(strokes(BELOW[mark]), CEDILLA_AT[base], 0)
    if mark == OGONEK:
        return moved(strokes(BELOW[mark]), *OGONEK_AT[base])
    if mark == "\u030c" and base in CARON_BESIDE_AT:
        return moved(strokes(CARON_BESIDE), CARON_BESIDE_AT[base], 0)
    at = ABOVE_AT.get(base, sum(extent(drawing)) / 2)
    return moved(strokes(ABOVE[mark]), at, _rise(base))


def decomposition(character):
    """Base and accents of a precomposed letter; a dotted base loses its dot."""
    base, *marks = unicodedata.normalize("NFD", character)
    if any(mark in ABOVE for mark in marks):
        base = DOTLESS.get(base, base)
    return base, marks


def composed(base, marks, drawing):
    """The accent strokes for the drawing of the base letter."""
    result = []
    for mark in marks:
        result += _accent(base, mark, drawing)
    return result
