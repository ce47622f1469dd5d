#!/usr/bin/env python3
"""Draws the icons: make-icons.py MenuIcon.pdf Vanoka.icns

The menu's is a PDF of the letter shape alone, black on nothing, which the system tints. The application's is the
same shape in white on a coloured tile. Both come from the outline below; only Python's own library is needed.
"""
import struct
import sys
import zlib

# A V with a curl at its right end, in a square of 100, y downwards: straight and cubic segments.
START = (14, 20)
SEGMENTS = [
    ((30, 20),), ((47, 66),), ((60, 32),),
    ((64, 21), (71, 15), (79, 15)), ((88, 15), (94, 22), (94, 30)), ((94, 38), (88, 44), (80, 44)),
    ((80, 44), (78, 34), (78, 34)), ((81, 34), (83, 32), (83, 30)), ((83, 27), (81, 25), (79, 25)),
    ((76, 25), (73, 28), (71, 33)), ((53, 84),), ((40, 84),), ((14, 20),),
]
TILE = (28, 102, 196)


def pdf():
    flip = lambda point: f"{point[0] / 100 * 16:.3f} {16 - point[1] / 100 * 16:.3f}"
    path = [f"0 g {flip(START)} m"]
    for segment in SEGMENTS:
        path.append(" ".join(map(flip, segment)) + (" c" if len(segment) == 3 else " l"))
    stream = ("\n".join(path) + "\nh f\n").encode()
    objects = [
        b"<< /Type /Catalog /Pages 2 0 R >>",
        b"<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        b"<< /Type /Page /Parent 2 0 R /MediaBox [0 0 16 16] /Resources << >> /Contents 4 0 R >>",
        b"<< /Length %d >>\nstream\n%sendstream" % (len(stream), stream),
    ]
    data, places = b"%PDF-1.4\n", []
    for number, body in enumerate(objects, 1):
        places.append(len(data))
        data += b"%d 0 obj\n%s\nendobj\n" % (number, body)
    table = b"".join(b"%010d 00000 n \n" % place for place in places)
    return data + b"xref\n0 5\n0000000000 65535 f \n%strailer\n<< /Size 5 /Root 1 0 R >>\nstartxref\n%d\n%%%%EOF\n" % (
        table, len(data))


def polygon():
    points = [START]
    for segment in SEGMENTS:
        if len(segment) == 1:
            points.append(segment[0])
            continue
        p0, (p1, p2, p3) = points[-1], segment
        for step in range(1, 13):
            t = step / 12
            weights = ((1 - t) ** 3, 3 * t * (1 - t) ** 2, 3 * t * t * (1 - t), t ** 3)
            points.append(tuple(sum(w * p[axis] for w, p in zip(weights, (p0, p1, p2, p3))) for axis in (0, 1)))
    return points


def spans(points, y):
    """Where a horizontal line is inside, as pairs of x."""
    crossings = []
    for (x0, y0), (x1, y1) in zip(points, points[1:] + points[:1]):
        if (y0 <= y) != (y1 <= y):
            crossings.append(x0 + (y - y0) * (x1 - x0) / (y1 - y0))
    crossings.sort()
    return list(zip(crossings[::2], crossings[1::2]))


def tile_span(y, low=8.0, high=92.0, radius=20.0):
    if not low < y < high:
        return []
    inset = max(low + radius - y, y - high + radius, 0)
    cut = radius - max(radius * radius - inset * inset, 0) ** 0.5
    return [(low + cut, high - cut)]


def coverage(row_spans, size):
    """How much of each pixel of a row is covered, averaged over the lines of the row."""
    row = [0.0] * size
    for line in row_spans:
        for start, end in line:
            a, b = start * size / 100, end * size / 100
            for x in range(max(int(a), 0), min(int(b) + 1, size)):
                row[x] += max(0.0, min(b, x + 1) - max(a, x)) / len(row_spans)
    return row


def png(size):
    glyph = [(22 + x * 0.56, 22 + y * 0.56) for x, y in polygon()]
    lines, rows = 4, bytearray()
    for y in range(size):
        ys = [(y + (i + 0.5) / lines) * 100 / size for i in range(lines)]
        tile = coverage([tile_span(line) for line in ys], size)
        mark = coverage([spans(glyph, line) for line in ys], size)
        rows.append(0)
        for alpha, white in zip(tile, mark):
            white = min(white, 1.0)
            rows += bytes(round(channel + (255 - channel) * white) for channel in TILE)
            rows.append(round(min(alpha, 1.0) * 255))
    chunk = lambda kind, body: struct.pack(">I", len(body)) + kind + body + struct.pack(
        ">I", zlib.crc32(kind + body))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", size, size, 8, 6, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(bytes(rows), 9)) + chunk(b"IEND", b""))


def icns():
    images = {size: png(size) for size in (32, 64, 128, 256, 512, 1024)}
    # None for 16 and 32 pixels on plain screens: their kinds are shown garbled in a bundle when they hold a PNG.
    # The system takes the next larger one.
    kinds = [(b"ic11", 32), (b"ic12", 64), (b"ic07", 128), (b"ic13", 256), (b"ic08", 256), (b"ic14", 512),
             (b"ic09", 512), (b"ic10", 1024)]
    body = b"".join(kind + struct.pack(">I", 8 + len(images[size])) + images[size] for kind, size in kinds)
    return b"icns" + struct.pack(">I", 8 + len(body)) + body


if __name__ == "__main__":
    menu, application = sys.argv[1:]
    with open(menu, "wb") as file:
        file.write(pdf())
    with open(application, "wb") as file:
        file.write(icns())
