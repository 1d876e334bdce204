"""Kerning pairs: first letters, second letters, adjustment in font units.

Cyrillic letters that share a Latin glyph are kerned by the Latin pairs.
"""

GROUPS = (
    ("A", "TVWY", -60),
    ("TVWY", "A", -60),
    ("A", "vwy", -25),
    ("LĹŁ", "TVWY", -70),
    ("L", "vy", -30),
    ("T", "aceoqsuwy", -65),
    ("Т", "ял", -65),
    ("T", ".,-", -70),
    ("V", "aeouq", -35),
    ("W", "aeo", -25),
    ("Y", "aeopqu", -55),
    ("VWYPF", ".,", -70),
    ("P", "A", -55),
    ("F", "A", -50),
    ("Fr", "ao", -15),
    ("r", ".,", -55),
    ("vwy", ".,", -45),
    ("DO", "AVWXY", -20),
    ("R", "TVY", -20),
    ("K", "OCo", -25),
    ("k", "eo", -15),
    ("X", "OC", -25),
    ("Г", "АДЛ", -55),
    ("Г", "аоеурсля", -55),
    ("Г", ".,", -70),
    ("У", "АДЛ", -50),
    ("У", "аоелд", -40),
    ("Р", "ДЛ", -50),
    ("Ъь", "Т", -50),
    ("Ь", "ТЧ", -50),
    ("гт", ".,", -50),
    ("г", "ало", -20),
    ("7", ".,", -60),
    ("f", "’", 40),
    ("(", "jg", 45),
)


def pairs():
    """Pairs of characters; the first group that names a pair decides."""
    result = {}
    for firsts, seconds, value in GROUPS:
        for first in firsts:
            for second in seconds:
                result.setdefault((first, second), value)
    return result
