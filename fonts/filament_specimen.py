"""Specimen sheet of a single-stroke font: its contours drawn as open strokes."""

from xml.sax.saxutils import escape

from filament_checks import contours, pieces

COLUMNS = 16
CELL_WIDTH, CELL_HEIGHT = 1150, 1500
TEXTS = ("The quick brown fox jumps over the lazy dog 0123456789",
         "HAMBURGEFONSTIV AVATAR Type LT P. 12.5 mm ±0.02 ⌀40",
         "Größe ÄÖÜẞ Łódź Příliš žluťoučký kůň Çağrı Őrült",
         "Съешь ещё этих мягких французских булок, да выпей чаю",
         "ЩЁЛКОВО ЖЮЛЬ Ґанок Їжак Љубав Ћирилица џем")


def path(glyph):
    """Path data of the strokes; no stroke is closed."""
    data = []
    for contour in contours(glyph):
        data.append("M{} {}".format(*contour[0][:2]))
        for piece in pieces(contour):
            command = "L" if len(piece) == 2 else "Q"
            data.append(command + " ".join(f"{x:g} {y:g}" for x, y in piece[1:]))
    return "".join(data)


def _drawn(glyph, x, y):
    return f'<path transform="translate({x} {y}) scale(1 -1)" d="{path(glyph)}"/>'


def _line(font, text, x, y):
    cmap, glyf, metrics = font.getBestCmap(), font["glyf"], font["hmtx"]
    kern = font["kern"].kernTables[0]
    result, previous = [], None
    for character in text:
        name = cmap[ord(character)]
        x += kern[previous, name] or 0 if (previous, name) in kern.kernTable else 0
        result.append(_drawn(glyf[name], x, y))
        x += metrics[name][0]
        previous = name
    return result


def specimen(font):
    """The sheet as SVG text: lines of text, then every glyph in its cell."""
    glyf, metrics = font["glyf"], font["hmtx"]
    codes = {}
    for code, name in font.getBestCmap().items():
        codes.setdefault(name, code)
    width = COLUMNS * CELL_WIDTH
    body, y = [], 1100
    for text in TEXTS:
        body += _line(font, text, 200, y)
        y += 1300
    labels, guides = [], []
    for index, name in enumerate(font.getGlyphOrder()):
        column, row = index % COLUMNS, index // COLUMNS
        left, base = column * CELL_WIDTH + 100, y + row * CELL_HEIGHT + 700
        advance = metrics[name][0]
        body.append(_drawn(glyf[name], left, base))
        guides.append(f'<path d="M{left} {base}h{advance}M{left} {base - 700}h{advance}'
                      f'M{left} {base - 500}h{advance}M{left} {base + 210}v-1120'
                      f'm{advance} 0v1120"/>')
        label = f"U+{codes[name]:04X}" if name in codes else escape(name)
        labels.append(f'<text x="{left}" y="{base + 400}">{label}</text>')
    rows = -(-len(font.getGlyphOrder()) // COLUMNS)
    height = y + rows * CELL_HEIGHT
    return "\n".join([
        f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {width} {height}"'
        f' width="{width // 10}" height="{height // 10}">',
        '<rect width="100%" height="100%" fill="white"/>',
        '<g fill="none" stroke="#9cf" stroke-width="6">', *guides, "</g>",
        '<g font-size="130" font-family="monospace" fill="#777">', *labels, "</g>",
        '<g fill="none" stroke="black" stroke-width="24" stroke-linecap="round"'
        ' stroke-linejoin="round">', *body, "</g>", "</svg>", ""])
