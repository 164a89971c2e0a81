#!/usr/bin/env python3
"""Draws the command bar's pictures: 16x16 bitmaps and their masks (white where the
picture is transparent), named after the caption id they go with ("103.bmp", "103m.bmp").
Run it from the repository root; it writes resources/pictures/."""
import os
import struct

W = H = 16
OUT = os.path.join("resources", "pictures")

BLUE, DARK, GREEN, RED, GOLD, GREY, WHITE = (40, 90, 180), (30, 30, 30), (40, 140, 60), (190, 50, 40), (220, 170, 30), (130, 130, 130), (255, 255, 255)

# A 3x5 font for the few letters the pictures carry.
FONT = {
    "x": ["...", "x.x", ".x.", "x.x", "..."],
    "C": [".xx", "x..", "x..", "x..", ".xx"],
    "P": ["xx.", "x.x", "xx.", "x..", "x.."],
    "S": [".xx", "x..", ".x.", "..x", "xx."],
    "?": ["xx.", "..x", ".x.", "...", ".x."],
}


class Picture:
    def __init__(self):
        self.px = [[None] * W for _ in range(H)]

    def dot(self, x, y, c):
        if 0 <= x < W and 0 <= y < H:
            self.px[y][x] = c

    def rect(self, x0, y0, x1, y1, c, fill=None):
        for y in range(y0, y1 + 1):
            for x in range(x0, x1 + 1):
                edge = x in (x0, x1) or y in (y0, y1)
                if edge:
                    self.dot(x, y, c)
                elif fill:
                    self.dot(x, y, fill)

    def line(self, x0, y0, x1, y1, c):
        n = max(abs(x1 - x0), abs(y1 - y0), 1)
        for i in range(n + 1):
            self.dot(round(x0 + (x1 - x0) * i / n), round(y0 + (y1 - y0) * i / n), c)

    def text(self, s, x, y, c, scale=1):
        for ch in s:
            for row, bits in enumerate(FONT[ch]):
                for col, b in enumerate(bits):
                    if b == "x":
                        for dy in range(scale):
                            for dx in range(scale):
                                self.dot(x + col * scale + dx, y + row * scale + dy, c)
            x += 4 * scale

    def save(self, name):
        write_bmp(os.path.join(OUT, name + ".bmp"), [[c or (192, 192, 192) for c in row] for row in self.px])
        write_bmp(os.path.join(OUT, name + "m.bmp"), [[(0, 0, 0) if c else WHITE for c in row] for row in self.px])


def write_bmp(path, rows):
    stride = (W * 3 + 3) & ~3
    data = b""
    for row in reversed(rows):
        line = b"".join(struct.pack("BBB", b, g, r) for (r, g, b) in row)
        data += line + b"\0" * (stride - len(line))
    header = struct.pack("<2sIHHI", b"BM", 54 + len(data), 0, 0, 54)
    info = struct.pack("<IiiHHIIiiII", 40, W, H, 1, 24, 0, len(data), 2835, 2835, 0, 0)
    with open(path, "wb") as f:
        f.write(header + info + data)


def card(letter, colour):
    p = Picture()
    p.rect(1, 1, 14, 14, colour, WHITE)
    p.text(letter, 3, 3, colour, 2)
    return p


def pictures():
    yield "103", card("x", BLUE)                       # Add Variable
    yield "102", card("C", GREEN)                      # Add Constant
    yield "105", card("P", GOLD)                       # Add Property
    p = card("x", BLUE)                                # Insert Variable: with an arrow into the line
    p.line(9, 12, 14, 12, RED); p.line(12, 10, 14, 12, RED); p.line(12, 14, 14, 12, RED)
    yield "182", p
    yield "101", card("S", RED)                        # Add Procedure
    p = Picture()                                      # Add Class: three stacked members
    for i, c in enumerate((BLUE, GREEN, GOLD)):
        p.rect(2, 2 + i * 4, 13, 4 + i * 4, DARK, c)
    p.rect(1, 1, 14, 14, DARK)
    yield "104", p
    p = Picture()                                      # Insert Line of Code: lines with a new one
    for y in (3, 6, 12):
        p.line(2, y, 13, y, GREY)
    p.line(2, 9, 11, 9, BLUE); p.line(11, 7, 13, 9, BLUE); p.line(11, 11, 13, 9, BLUE)
    yield "106", p
    p = Picture()                                      # Insert Fragment: a page with a turned corner
    p.rect(3, 1, 12, 14, DARK, WHITE)
    p.line(9, 1, 12, 4, DARK)
    for y in (6, 8, 10):
        p.line(5, y, 10, y, BLUE)
    yield "181", p
    p = Picture()                                      # Add Control: a button
    p.rect(1, 4, 14, 11, DARK, (220, 220, 220))
    p.line(4, 7, 11, 7, DARK); p.line(4, 8, 11, 8, DARK)
    yield "183", p
    p = Picture()                                      # Help Contents: a book with a question mark
    p.rect(2, 1, 13, 14, BLUE, WHITE)
    p.line(4, 1, 4, 14, BLUE)
    p.text("?", 7, 4, RED, 1)
    yield "111", p
    p = Picture()                                      # Shortcuts and Search: a lens
    p.rect(2, 2, 9, 9, DARK, (200, 225, 250))
    p.line(9, 9, 14, 14, DARK); p.line(10, 9, 14, 13, DARK)
    yield "194", p
    p = Picture()                                      # Code Explorer: a tree
    p.rect(1, 1, 5, 4, BLUE, BLUE)
    p.line(3, 5, 3, 12, GREY); p.line(3, 8, 7, 8, GREY); p.line(3, 12, 7, 12, GREY)
    p.rect(8, 6, 13, 9, GREEN, GREEN); p.rect(8, 10, 13, 13, GOLD, GOLD)
    yield "195", p


if __name__ == "__main__":
    os.makedirs(OUT, exist_ok=True)
    for name, picture in pictures():
        picture.save(name)
