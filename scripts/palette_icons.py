#!/usr/bin/env python3
"""Draws the icons of the symbol palette and writes symbol_tools/palette_icons.cpp.

Each icon is 16 by 16 pixels with alpha, described by signed distances to its shapes, and lies on a light contour, so that
it reads on light and dark backgrounds alike. Run without arguments from anywhere in the tree.
"""
import math
import pathlib
import struct
import zlib

SIZE = 16
SAMPLES = 8  # per pixel and direction
CONTOUR = 0.9  # pixels of light around a shape

BLUE = (38, 94, 170)
GREEN = (30, 130, 62)
RED = (200, 48, 40)
ORANGE = (214, 120, 20)
PINK = (222, 110, 140)
LIGHT = (255, 255, 255)


# --- shapes: functions from a point to its distance, negative inside ---

def stroke(x1, y1, x2, y2, width):
    def distance(x, y):
        dx, dy = x2 - x1, y2 - y1
        t = max(0.0, min(1.0, ((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy)))
        return math.hypot(x - x1 - t * dx, y - y1 - t * dy) - width / 2
    return distance


def polygon(*points):
    def distance(x, y):
        best, inside = 1e9, False
        for (ax, ay), (bx, by) in zip(points, points[1:] + points[:1]):
            best = min(best, stroke(ax, ay, bx, by, 0)(x, y))
            if (ay > y) != (by > y) and x < (bx - ax) * (y - ay) / (by - ay) + ax:
                inside = not inside
        return -best if inside else best
    return distance


def disc(cx, cy, radius):
    return lambda x, y: math.hypot(x - cx, y - cy) - radius


def arc(cx, cy, radius, start, sweep, width):
    """Counter-clockwise from `start`, in degrees, as seen on the screen."""
    def distance(x, y):
        angle = (math.degrees(math.atan2(cy - y, x - cx)) - start) % 360
        if angle <= sweep:
            return abs(math.hypot(x - cx, y - cy) - radius) - width / 2
        ends = []
        for end in (start, start + sweep):
            ex, ey = cx + radius * math.cos(math.radians(end)), cy - radius * math.sin(math.radians(end))
            ends.append(math.hypot(x - ex, y - ey))
        return min(ends) - width / 2
    return distance


def join(*shapes):
    return lambda x, y: min(shape(x, y) for shape in shapes)


def both(a, b):
    return lambda x, y: max(a(x, y), b(x, y))


def without(a, b):
    return lambda x, y: max(a(x, y), -b(x, y))


def mirrored(shape):
    return lambda x, y: shape(SIZE - x, y)


def checks(cell, ox, oy):
    def distance(x, y):
        odd = (math.floor((x - ox) / cell) + math.floor((y - oy) / cell)) % 2
        return -1 if odd else 1
    return distance


# --- the icons: layers of (shape, colour, with contour), lowest first ---

def counter_clockwise():
    # Open at the left: the line comes round from below left and ends at the top, pointing left.
    ring = arc(8.0, 9.0, 5.0, -165, 250, 2.0)
    head = polygon((9.0, 0.2), (9.0, 7.8), (3.2, 4.0))
    return join(ring, head)


def step():
    lines = join(stroke(2.2, 13.2, 13.8, 13.2, 2.0), stroke(2.2, 13.2, 10.9, 4.5, 2.0))
    return lines, arc(2.2, 13.2, 8.6, 2, 36, 1.6), polygon((12.7, 12.0), (8.2, 9.6), (12.7, 7.6))


def diagonal_arrow(x1, y1, x2, y2, head):
    """From the first point to the second, along a diagonal."""
    sx, sy = (1 if x2 > x1 else -1), (1 if y2 > y1 else -1)
    return join(stroke(x1, y1, x2 - sx * 1.2, y2 - sy * 1.2, 2.0),
                polygon((x2, y2), (x2 - sx * head, y2), (x2, y2 - sy * head)))


def grow():
    return join(diagonal_arrow(8.8, 7.2, 14.6, 1.4, 5.8), diagonal_arrow(7.2, 8.8, 1.4, 14.6, 5.8))


def shrink():
    return join(diagonal_arrow(14.2, 1.8, 8.7, 7.3, 5.8), diagonal_arrow(1.8, 14.2, 7.3, 8.7, 5.8))


def trash():
    can = polygon((3.2, 5.6), (12.8, 5.6), (11.9, 14.8), (4.1, 14.8))
    lid = polygon((2.0, 2.9), (14.0, 2.9), (14.0, 4.7), (2.0, 4.7))
    knob = polygon((6.0, 1.2), (10.0, 1.2), (10.0, 2.9), (6.0, 2.9))
    slots = join(*(stroke(x, 7.8, x, 12.6, 1.0) for x in (6.0, 8.0, 10.0)))
    return join(can, lid, knob), slots


SIGN_X, SIGN_Y, SIGN = 11.9, 11.9, 2.7


def minus():
    return stroke(SIGN_X - SIGN, SIGN_Y, SIGN_X + SIGN, SIGN_Y, 2.0)


def plus():
    return join(minus(), stroke(SIGN_X, SIGN_Y - SIGN, SIGN_X, SIGN_Y + SIGN, 2.0))


BALL = disc(6.6, 6.6, 5.4)


def eraser():
    left = polygon((1.4, 9.0), (5.0, 5.4), (10.0, 10.4), (7.4, 13.0), (5.4, 13.0))
    right = polygon((5.0, 5.4), (9.4, 1.0), (14.4, 6.0), (10.0, 10.4))
    ground = stroke(3.0, 14.0, 13.0, 14.0, 2.0)
    return left, right, ground


def icons():
    slope, bow, head = step()
    can, slots = trash()
    tip, grip, ground = eraser()
    hollow = disc(6.6, 6.6, 4.0)
    faint = join(without(BALL, hollow), both(hollow, checks(2.0, 7.0, 7.0)))
    return [
        ("rotate_ccw", [(counter_clockwise(), BLUE, True)]),
        ("rotate_cw", [(mirrored(counter_clockwise()), BLUE, True)]),
        ("view_orientation", [(slope, BLUE, True), (bow, ORANGE, False)]),
        ("resizecol", [(grow(), GREEN, True)]),
        ("resizecol2", [(shrink(), ORANGE, True)]),
        ("edittrash", [(can, RED, True), (slots, LIGHT, False)]),
        ("shear", [(BALL, LIGHT, True), (faint, BLUE, False), (minus(), RED, True)]),
        ("shear2", [(BALL, BLUE, True), (plus(), GREEN, True)]),
        ("editclear", [(join(tip, grip, ground), PINK, True), (grip, BLUE, False), (ground, BLUE, False)]),
    ]


# --- pixels ---

def over(below, colour, alpha):
    r, g, b, a = below
    out = alpha + a * (1 - alpha)
    if out == 0:
        return (0, 0, 0, 0)
    mix = [(c * alpha + d * a * (1 - alpha)) / out for c, d in zip(colour, (r, g, b))]
    return (*mix, out)


def coverage(shape, grown, px, py):
    hits = 0
    for j in range(SAMPLES):
        for i in range(SAMPLES):
            hits += shape(px + (i + 0.5) / SAMPLES, py + (j + 0.5) / SAMPLES) <= grown
    return hits / SAMPLES ** 2


def render(layers):
    rows = []
    for py in range(SIZE):
        row = bytearray()
        for px in range(SIZE):
            pixel = (0, 0, 0, 0)
            for shape, colour, contour in layers:
                if contour:
                    pixel = over(pixel, LIGHT, 0.9 * coverage(shape, CONTOUR, px, py))
                pixel = over(pixel, colour, coverage(shape, 0, px, py))
            r, g, b, a = pixel
            row += bytes((round(r), round(g), round(b), round(a * 255)))
        rows.append(bytes(row))
    return rows


def png(rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    body = zlib.compress(b"".join(b"\0" + row for row in rows), 9)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", body) + chunk(b"IEND", b"")


def array(name, data):
    lines = [f"constexpr unsigned char {name}[] = {{"]
    for start in range(0, len(data), 26):
        lines.append("    " + ",".join(str(byte) for byte in data[start:start + 26]) + ",")
    return "\n".join(lines + ["};"])


def main():
    target = pathlib.Path(__file__).resolve().parent.parent / "symbol_tools" / "palette_icons.cpp"
    drawn = [(name, png(render(layers))) for name, layers in icons()]
    parts = ["// Written by scripts/palette_icons.py, which draws the icons. Change them there.",
             "// clang-format off",
             '#include "symbol_tools/palette_icons.h"', "", "namespace vorn {", "", "namespace {", ""]
    parts += [array(name, data) + "\n" for name, data in drawn]
    parts += ["constexpr PaletteIcon all[] = {"]
    parts += [f'    {{u"{name}", {name}}},' for name, _ in drawn]
    parts += ["};", "", "} // namespace", "", "std::span<const PaletteIcon> PaletteIcons()", "{", "    return all;", "}",
              "", "} // namespace vorn"]
    target.write_text("\n".join(parts) + "\n")


if __name__ == "__main__":
    main()
