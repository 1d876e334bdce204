"""Checks of a single-stroke font: coverage and the soundness of its strokes."""

import math

COVERAGE = (
    *range(0x20, 0x7F), *range(0xA0, 0x180), 0x1E9E, *range(0x400, 0x460), 0x490, 0x491,
    *map(ord, "–—‘’‚“”„…‹›•†‰€№™µ∅⌀≤≥−≈≠√∞←↑→↓"), 0x3A9, 0x2126, 0x3BC,
)
EMPTY = (0x20, 0xA0)
TOUCH = 0.8
NEAR = 14
STEPS = 24


def contours(glyph):
    """Point runs (x, y, on_curve) of a simple glyph."""
    runs, start = [], 0
    for end in glyph.endPtsOfContours if glyph.numberOfContours else ():
        runs.append([(x, y, bool(on & 1)) for (x, y), on in
                     zip(glyph.coordinates[start:end + 1], glyph.flags[start:end + 1])])
        start = end + 1
    return runs


def pieces(contour):
    """Lines (2 points) and quadratic pieces (3 points) of an open contour."""
    result, previous, control = [], contour[0][:2], None
    for x, y, on in contour[1:]:
        if on:
            result.append((previous, (x, y)) if control is None else (previous, control, (x, y)))
            previous, control = (x, y), None
            continue
        if control is not None:
            middle = ((control[0] + x) / 2, (control[1] + y) / 2)
            result.append((previous, control, middle))
            previous = middle
        control = (x, y)
    return result


def flattened(contour):
    points = [contour[0][:2]]
    for piece in pieces(contour):
        if len(piece) == 2:
            points.append(piece[1])
            continue
        (ax, ay), (bx, by), (cx, cy) = piece
        for step in range(1, STEPS + 1):
            t = step / STEPS
            u = 1 - t
            points.append((u * u * ax + 2 * u * t * bx + t * t * cx,
                           u * u * ay + 2 * u * t * by + t * t * cy))
    return points


def _turn(before, after):
    a = math.atan2(before[-1][1] - before[-2][1], before[-1][0] - before[-2][0])
    b = math.atan2(after[1][1] - after[0][1], after[1][0] - after[0][0])
    return abs(math.degrees(math.remainder(b - a, math.tau)))


def _distance(point, a, b):
    dx, dy = b[0] - a[0], b[1] - a[1]
    length = dx * dx + dy * dy
    t = ((point[0] - a[0]) * dx + (point[1] - a[1]) * dy) / length if length else 0
    t = min(1, max(0, t))
    return math.hypot(point[0] - a[0] - t * dx, point[1] - a[1] - t * dy)


def _overlap(a, b):
    """Length marked twice by two straight lines."""
    dx, dy = a[1][0] - a[0][0], a[1][1] - a[0][1]
    length = math.hypot(dx, dy)
    along = []
    for x, y in b:
        if abs((x - a[0][0]) * dy - (y - a[0][1]) * dx) > length:
            return 0
        along.append(((x - a[0][0]) * dx + (y - a[0][1]) * dy) / length)
    return min(length, max(along)) - max(0, min(along))


def _contour_faults(contour):
    if len(contour) < 2:
        return ["contour of one point"]
    faults = []
    if not (contour[0][2] and contour[-1][2]):
        faults.append("contour does not begin and end on the curve")
    if any(abs(value) > 32767 or value != int(value) for p in contour for value in p[:2]):
        faults.append("coordinate out of range")
    parts = pieces(contour)
    for part in parts:
        if part[0] == part[-1]:
            faults.append(f"piece without length at {part[0]}")
    joints = list(zip(parts, parts[1:]))
    if contour[0] == contour[-1]:
        joints.append((parts[-1], parts[0]))
    for before, after in joints:
        if len(before) + len(after) > 4 and 2.5 < _turn(before, after) < 14:
            faults.append(f"kink of {_turn(before, after):.1f} degrees at {after[0]}")
    return faults


def _junction_faults(runs):
    faults = []
    flat = [flattened(run) for run in runs]
    for i, run in enumerate(runs):
        for end in (run[0][:2], run[-1][:2]):
            gaps = [_distance(end, a, b) for j, other in enumerate(flat) if j != i
                    for a, b in zip(other, other[1:])]
            if gaps and TOUCH < min(gaps) < NEAR:
                faults.append(f"end {end} misses another stroke by {min(gaps):.1f}")
    lines = [piece for run in runs for piece in pieces(run) if len(piece) == 2]
    for i, line in enumerate(lines):
        if any(_overlap(line, other) > 1 for other in lines[i + 1:]):
            faults.append(f"line {line} is marked twice")
    return faults


def glyph_faults(glyph):
    runs = contours(glyph)
    faults = [fault for run in runs for fault in _contour_faults(run)]
    return faults or _junction_faults(runs)


def faults(font):
    """Everything that is wrong with the font, as lines of text."""
    cmap, glyf, metrics = font.getBestCmap(), font["glyf"], font["hmtx"]
    result = []
    for code in COVERAGE:
        if code not in cmap:
            result.append(f"U+{code:04X} is not covered")
        elif (code in EMPTY) != (glyf[cmap[code]].numberOfContours == 0):
            result.append(f"U+{code:04X} has the wrong number of strokes")
    ascent, descent = font["OS/2"].usWinAscent, font["OS/2"].usWinDescent
    for name in font.getGlyphOrder():
        glyph = glyf[name]
        found = glyph_faults(glyph)
        if metrics[name][0] <= 0:
            found.append("no advance width")
        if glyph.numberOfContours and (glyph.yMax > ascent or glyph.yMin < -descent):
            found.append("strokes outside the cell")
        result += [f"{name}: {fault}" for fault in found]
    return result
