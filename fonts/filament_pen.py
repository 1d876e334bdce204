"""Pen notation for single-stroke glyphs.

A drawing is written as text, one stroke after another, separated by ';'.
Each stroke is a run of points in pen order:

    x,y     on-curve point, reached by a straight line or by the quadratic
            run of the off-curve points written before it
    (x,y)   off-curve point of a quadratic B-spline
    >x,y    quarter of an ellipse that leaves horizontally, arrives vertically
    ^x,y    quarter of an ellipse that leaves vertically, arrives horizontally
    @x,y    dots: small closed rings centred on the points that follow

A closed ring returns explicitly to its first point, since a consumer of a
single-stroke font drops the implied closing segment of each contour.
A stroke is held as a list of (x, y, on_curve) tuples.
"""

DOT_RADIUS = 24
# Place of the off-curve points of a quarter arc; tan(22.5 deg) = 0.4142 would
# follow the ellipse, a little more makes the bowls slightly square.
ARC = 0.45


def dot(x, y, r=DOT_RADIUS):
    return [(x + r, y, True), (x + r, y + r, False), (x - r, y + r, False),
            (x - r, y - r, False), (x + r, y - r, False), (x + r, y, True)]


def _pair(text):
    x, y = text.split(",")
    return int(x), int(y)


def _stroke(text):
    points = []
    for token in text.split():
        if token[0] == "(":
            points.append((*_pair(token[1:-1]), False))
        elif token[0] in ">^":
            x, y = _pair(token[1:])
            px, py, _ = points[-1]
            near, far = ARC, 1 - ARC
            if token[0] == ">":
                points.append((px + (x - px) * near, py, False))
                points.append((x, py + (y - py) * far, False))
            else:
                points.append((px, py + (y - py) * near, False))
                points.append((px + (x - px) * far, y, False))
            points.append((x, y, True))
        else:
            points.append((*_pair(token), True))
    return points


def strokes(text):
    result = []
    for part in text.split(";"):
        part = part.strip()
        if part.startswith("@"):
            result.extend(dot(*_pair(place)) for place in part[1:].split())
        elif part:
            result.append(_stroke(part))
    return result


def moved(drawing, dx, dy, scale=1.0):
    return [[(x * scale + dx, y * scale + dy, on) for x, y, on in stroke]
            for stroke in drawing]


def extent(drawing):
    """Left and right limit of the drawing."""
    xs = [x for stroke in drawing for x, _, _ in stroke]
    return min(xs), max(xs)


def rounded(drawing):
    return [[(round(x), round(y), on) for x, y, on in stroke]
            for stroke in drawing]
