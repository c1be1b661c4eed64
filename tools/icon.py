#!/usr/bin/env python3
"""Draws resources/QBSettings.ico: three sliders on a tile. Needed again only when the drawing changes.

Every size has its own grid, so that edges lie on whole pixels where the icon is small.
"""
import pathlib
import struct
import zlib

TILE_TOP, TILE_BOTTOM = (46, 92, 138), (24, 52, 88)
TRACK, FILLED, KNOB, RIM = (126, 160, 194), (255, 255, 255), (255, 186, 66), (24, 52, 88)

# Per size: margin and corner of the tile; the tracks' first centre, distance, half width, top and bottom;
# the knobs' half width and half height. All in pixels.
GRIDS = {
    16: (0, 3, 3.0, 5.0, 1.0, 2.0, 14.0, 2.0, 1.5),
    20: (0, 4, 5.0, 5.0, 1.0, 3.0, 17.0, 2.0, 2.0),
    24: (0, 5, 6.0, 6.0, 1.0, 4.0, 20.0, 2.0, 2.0),
    32: (1, 6, 8.0, 8.0, 1.0, 5.0, 27.0, 3.0, 2.5),
    48: (2, 9, 12.0, 12.0, 2.0, 8.0, 40.0, 5.0, 4.0),
    256: (10, 46, 68.0, 60.0, 8.0, 44.0, 212.0, 24.0, 18.0),
}
# Where each knob stands on its track, from the top.
KNOBS = (0.65, 0.25, 0.45)


def in_rounded(x, y, left, top, right, bottom, radius):
    if not (left <= x <= right and top <= y <= bottom):
        return False
    dx = max(left + radius - x, x - (right - radius), 0)
    dy = max(top + radius - y, y - (bottom - radius), 0)
    return dx * dx + dy * dy <= radius * radius


def colour_at(x, y, size):
    margin, corner, first, step, half, top, bottom, knob_w, knob_h = GRIDS[size]
    if not in_rounded(x, y, margin, margin, size - margin, size - margin, corner):
        return None
    for column, place in enumerate(KNOBS):
        centre = first + step * column
        knob = round(top + (bottom - top) * place - knob_h) + knob_h
        for grow, colour in ((0, KNOB), (size // 40 or size > 16, RIM)):
            if in_rounded(x, y, centre - knob_w - grow, knob - knob_h - grow, centre + knob_w + grow,
                          knob + knob_h + grow, (knob_h + grow) * (0.5 if size >= 32 else 0)):
                return colour
        if in_rounded(x, y, centre - half, top, centre + half, bottom, half if size >= 48 else 0):
            return FILLED if y > knob else TRACK
    share = y / size
    return tuple(a + (b - a) * share for a, b in zip(TILE_TOP, TILE_BOTTOM))


def draw(size):
    """Rows of (red, green, blue, alpha), averaged over samples inside each pixel."""
    count = 4 if size > 48 else 8
    rows = []
    for row in range(size):
        pixels = []
        for column in range(size):
            hits = [c for i in range(count * count)
                    if (c := colour_at(column + (i % count + 0.5) / count, row + (i // count + 0.5) / count, size))]
            mean = [round(sum(c[k] for c in hits) / len(hits)) for k in range(3)] if hits else [0, 0, 0]
            pixels.append((*mean, round(255 * len(hits) / count**2)))
        rows.append(pixels)
    return rows


def as_bitmap(rows):
    size = len(rows)
    header = struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, 0, 0, 0, 0, 0)
    colours = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    stride = (size + 31) // 32 * 4
    mask = bytearray(stride * size)
    for y, row in enumerate(reversed(rows)):
        for x, pixel in enumerate(row):
            if pixel[3] == 0:
                mask[y * stride + x // 8] |= 0x80 >> x % 8
    return header + colours + bytes(mask)


def as_png(rows):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    size = len(rows)
    raw = b"".join(b"\0" + bytes(part for pixel in row for part in pixel) for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b""))


def main():
    images = [(size, (as_png if size == 256 else as_bitmap)(draw(size))) for size in GRIDS]
    offset = 6 + 16 * len(images)
    directory = struct.pack("<HHH", 0, 1, len(images))
    for size, data in images:
        directory += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(data), offset)
        offset += len(data)
    target = pathlib.Path(__file__).resolve().parent.parent / "resources" / "QBSettings.ico"
    target.write_bytes(directory + b"".join(data for _, data in images))


if __name__ == "__main__":
    main()
