#!/usr/bin/env python3
"""Writes the test pictures beside this script. Needs Debian's python3-pil; see README.md."""

import os
import struct

from PIL import Image

W, H = 32, 16
RED, GREEN, BLUE, WHITE = (255, 0, 0), (0, 255, 0), (0, 0, 255), (255, 255, 255)
HERE = os.path.dirname(os.path.abspath(__file__))


def color(x, y):
    return ((RED, GREEN), (BLUE, WHITE))[y >= H // 2][x >= W // 2]


def index(x, y):
    return 2 * (y >= H // 2) + (x >= W // 2)


PALETTE = (RED, GREEN, BLUE, WHITE)
ROWS = [[color(x, y) for x in range(W)] for y in range(H)]
INDEXED = [[index(x, y) for x in range(W)] for y in range(H)]


def write(name, data):
    with open(os.path.join(HERE, name), "wb") as file:
        file.write(data)


def save(image, name, **options):
    image.save(os.path.join(HERE, name), **options)


def rgb():
    image = Image.new("RGB", (W, H))
    image.putdata([pixel for row in ROWS for pixel in row])
    return image


def rgba(alpha_of_white):
    image = Image.new("RGBA", (W, H))
    image.putdata([p + (alpha_of_white if p == WHITE else 255,) for row in ROWS for p in row])
    return image


def indexed():
    image = Image.new("P", (W, H))
    image.putdata([i for row in INDEXED for i in row])
    image.putpalette([c for entry in PALETTE for c in entry])
    return image


def gray():
    image = Image.new("L", (W, H))
    image.putdata([(0, 85, 170, 255)[i] for row in INDEXED for i in row])
    return image


def flat(rows, order=(0, 1, 2), tail=b""):
    return b"".join(bytes(p[c] for c in order) + tail for row in rows for p in row)


def bmp(header, pixels):
    offset = 14 + len(header)
    return b"BM" + struct.pack("<IHHI", offset + len(pixels), 0, 0, offset) + header + pixels


def write_bmps():
    up, down = ROWS[::-1], ROWS
    bgr = (2, 1, 0)
    info = lambda size, h, bits, comp=0: struct.pack("<IiiHHIIiiII", size, W, h, 1, bits, comp, 0, 0, 0, 0, 0)
    write("bmp-24bit.bmp", bmp(info(40, H, 24), flat(up, bgr)))
    write("bmp-24bit-top-down.bmp", bmp(info(40, -H, 24), flat(down, bgr)))
    write("bmp-24bit-os2.bmp", bmp(struct.pack("<IHHHH", 12, W, H, 1, 24), flat(up, bgr)))
    write("bmp-24bit-os2-v2.bmp", bmp(info(64, H, 24) + bytes(24), flat(up, bgr)))
    masks = struct.pack("<IIII", 0xFF0000, 0xFF00, 0xFF, 0xFF000000)
    write("bmp-32bit-v4.bmp", bmp(info(108, H, 32, 3) + masks + bytes(52), flat(up, bgr, b"\xff")))
    write("bmp-32bit-v5.bmp", bmp(info(124, H, 32, 3) + masks + bytes(68), flat(up, bgr, b"\xff")))
    entries = b"".join(bytes((b, g, r, 0)) for r, g, b in PALETTE) + bytes(4 * 252)
    pixels = b"".join(bytes(row) for row in INDEXED[::-1])
    write("bmp-8bit.bmp", bmp(info(40, H, 8) + entries, pixels))


def icon_image():
    header = struct.pack("<IiiHHIIiiII", 40, W, 2 * H, 1, 32, 0, 0, 0, 0, 0, 0)
    return header + flat(ROWS[::-1], (2, 1, 0), b"\xff") + bytes(W // 8 * H)


def icon(kind, *images):
    directory = struct.pack("<HHH", 0, kind, len(images))
    at = 6 + 16 * len(images)
    for image in images:
        directory += struct.pack("<BBBBHHII", W, H, 0, 0, 1, 32, len(image), at)
        at += len(image)
    return directory + b"".join(images)


def tiff(order, size_type):
    """One uncompressed strip; the two size fields have the given type (3 for 16, 4 for 32 bits)."""
    pixels = flat(ROWS)
    entries = [(256, size_type, W), (257, size_type, H), (258, 3, None), (259, 3, 1), (262, 3, 2),
               (273, 4, None), (277, 3, 3), (278, 4, H), (279, 4, len(pixels))]
    bits_at = 8 + 2 + 12 * len(entries) + 4
    data = (b"II*\0" if order == "<" else b"MM\0*") + struct.pack(order + "IH", 8, len(entries))
    for tag, kind, value in entries:
        count = 1
        if tag == 258:
            count, kind_format, value = 3, "I", bits_at
        elif tag == 273:
            kind_format, value = "I", bits_at + 6
        else:
            kind_format = "I" if kind == 4 else "H2x"
        data += struct.pack(order + "HHI" + kind_format, tag, kind, count, value)
    return data + struct.pack(order + "IHHH", 0, 8, 8, 8) + pixels


def qoi():
    data = b"qoif" + struct.pack(">IIBB", W, H, 3, 0)
    return data + b"".join(b"\xfe" + bytes(p) for row in ROWS for p in row) + bytes(7) + b"\1"


def lbm(kind):
    header = struct.pack(">HHhhBBBBHBBhh", W, H, 0, 0, 8 if kind == b"PBM " else 2, 0, 0, 0, 0, 1, 1, W, H)
    colors = bytes(c for entry in PALETTE for c in entry)
    if kind == b"PBM ":
        body = b"".join(bytes(row) for row in INDEXED)
    else:
        body = b""
        for row in INDEXED:
            for plane in range(2):
                bits = "".join(str(i >> plane & 1) for i in row)
                body += int(bits, 2).to_bytes(W // 8, "big")
    chunks = kind + b"".join(name + struct.pack(">I", len(data)) + data
                             for name, data in ((b"BMHD", header), (b"CMAP", colors), (b"BODY", body)))
    return b"FORM" + struct.pack(">I", len(chunks)) + chunks


def xcf():
    """One RGB layer of one uncompressed tile."""
    def prop(kind, data=b""):
        return struct.pack(">II", kind, len(data)) + data

    head = b"gimp xcf file\0" + struct.pack(">III", W, H, 0) + prop(17, b"\0") + prop(0)
    layer_at = len(head) + 12
    name = b"picture\0"
    layer_head = struct.pack(">III", W, H, 0) + struct.pack(">I", len(name)) + name
    layer_head += prop(6, struct.pack(">I", 255)) + prop(8, struct.pack(">I", 1)) + prop(15, bytes(8)) + prop(0)
    hierarchy_at = layer_at + len(layer_head) + 8
    level_at = hierarchy_at + 12 + 8
    tile_at = level_at + 8 + 8
    data = head + struct.pack(">III", layer_at, 0, 0) + layer_head + struct.pack(">II", hierarchy_at, 0)
    data += struct.pack(">III", W, H, 3) + struct.pack(">II", level_at, 0)
    data += struct.pack(">II", W, H) + struct.pack(">II", tile_at, 0)
    return data + flat(ROWS)


def xpm():
    lines = ["%d %d 4 1" % (W, H)] + ["%s c #%02X%02X%02X" % ((n,) + c) for n, c in zip("RGBW", PALETTE)]
    lines += ["".join("RGBW"[i] for i in row) for row in INDEXED]
    return ("/* XPM */\nstatic char *picture[] = {\n" + ",\n".join('"%s"' % l for l in lines) + "};\n").encode()


def xv():
    pixels = b"".join(bytes((r & 0xE0) | (g >> 3 & 0x1C) | b >> 6 for r, g, b in row) for row in ROWS)
    return b"P7 332\n#XVVERSION:Version 2.28\n#END_OF_COMMENTS\n%d %d 255\n" % (W, H) + pixels


def svg():
    rect = '<rect x="%d" y="%d" width="16" height="8" fill="#%02x%02x%02x"/>\n'
    body = "".join(rect % ((16 * (i % 2), 8 * (i // 2)) + c) for i, c in enumerate(PALETTE))
    return ('<?xml version="1.0"?>\n<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d">\n%s</svg>\n'
            % (W, H, body)).encode()


def write_pnms():
    bits = [[int(i in (1, 2)) for i in row] for row in INDEXED]
    grays = [[(0, 85, 170, 255)[i] for i in row] for row in INDEXED]
    text = lambda rows: "\n".join(" ".join(map(str, row)) for row in rows).encode() + b"\n"
    size = b"# a comment\n%d %d\n" % (W, H)
    write("pnm-p1.pbm", b"P1\n" + size + text(bits))
    write("pnm-p2.pgm", b"P2\n" + size + b"255\n" + text(grays))
    write("pnm-p3.ppm", b"P3\n" + size + b"255\n" + text([[c for p in row for c in p] for row in ROWS]))
    packed = b"".join(int("".join(map(str, row)), 2).to_bytes(W // 8, "big") for row in bits)
    write("pnm-p4.pbm", b"P4\n" + size + packed)
    write("pnm-p5.pgm", b"P5\n" + size + b"255\n" + b"".join(bytes(row) for row in grays))
    write("pnm-p6.ppm", b"P6\n" + size + b"255\n" + flat(ROWS))


def main():
    save(indexed(), "png-8bit.png")
    save(gray(), "png-8bit-gray.png")
    save(rgb(), "png-24bit.png")
    save(rgba(128), "png-32bit.png")
    save(rgb(), "jpeg-24bit.jpg", quality=100, subsampling=0)
    save(rgb(), "jpeg-24bit-progressive.jpg", quality=100, subsampling=0, progressive=True)
    save(gray(), "jpeg-8bit-gray.jpg", quality=100)
    save(indexed(), "gif-8bit.gif")
    save(indexed(), "gif-8bit-transparent.gif", transparency=3)
    save(rgb(), "webp-24bit-lossless.webp", lossless=True)
    save(rgb(), "webp-24bit-lossy.webp", quality=100)
    save(rgba(128), "webp-32bit-lossless.webp", lossless=True)
    save(rgba(128), "webp-32bit-extended.webp", quality=100)
    write_bmps()
    write("icon.ico", icon(1, icon_image()))
    write("cursor.cur", icon(2, icon_image()))
    with open(os.path.join(HERE, "png-32bit.png"), "rb") as png:
        write("icon-png.ico", icon(1, png.read()))
    for order, name in (("<", "little"), (">", "big")):
        for kind, bits in ((3, 16), (4, 32)):
            write("tiff-%s-endian-%dbit-size.tif" % (name, bits), tiff(order, kind))
    save(rgb(), "pcx-24bit.pcx")
    save(indexed(), "pcx-8bit.pcx")
    save(rgb(), "tga-24bit.tga")
    save(rgba(255), "tga-32bit.tga")
    write_pnms()
    write("qoi-24bit.qoi", qoi())
    write("lbm-packed.lbm", lbm(b"PBM "))
    write("lbm-interleaved.lbm", lbm(b"ILBM"))
    write("xcf-24bit.xcf", xcf())
    write("xpm.xpm", xpm())
    write("xv.xv", xv())
    write("svg.svg", svg())


main()
