#!/usr/bin/env python3
"""Writes small picture files that claim to be huge, or unpack to much, into a folder. Usage: make_bombs.py FOLDER

Those named "allowed" are as large as pictures may be, and decoded: to compare.
"""
import struct
import sys
import zlib
from pathlib import Path

ALLOWED = (16384, 3906)  # as many pixels as a picture may have, and no more
HUGE = (60000, 60000)


def chunk(kind, content):
    return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))


def png(size, *chunks, pixels=b"\0" * 64):
    head = chunk(b"IHDR", struct.pack(">IIBBBBB", *size, 8, 6, 0, 0, 0))
    return b"\x89PNG\r\n\x1a\n" + head + b"".join(chunks) + chunk(b"IDAT", zlib.compress(pixels)) + chunk(b"IEND", b"")


def zeros(count):
    packer = zlib.compressobj(9)
    return b"".join(packer.compress(bytes(1 << 20)) for _ in range(count >> 20)) + packer.flush()


def jpeg(size, components=3, kind=0xC0, passes=1):
    def segment(marker, content):
        return struct.pack(">BBH", 0xFF, marker, len(content) + 2) + content
    frame = struct.pack(">BHHB", 8, size[1], size[0], components) + b"".join(
        bytes([i + 1, 0x22, 0]) for i in range(components))
    tables = segment(0xDB, bytes(1) + b"\x01" * 64) + segment(0xC4, b"\x00" + b"\x01" + bytes(15) + b"\x00") + segment(
        0xC4, b"\x10" + b"\x01" + bytes(15) + b"\x00")
    scan = bytes([components]) + b"".join(bytes([i + 1, 0]) for i in range(components)) + (b"\x00\x3f\x00" if kind == 0xC0 else b"\x00\x00\x00")
    return b"\xff\xd8" + tables + segment(kind, frame) + (segment(0xDA, scan) + bytes(32)) * passes + b"\xff\xd9"


def bmp(size, bits=32):
    return b"BM" + struct.pack("<IHHI", 54, 0, 0, 54) + struct.pack("<IiiHHIIiiII", 40, *size, 1, bits, 0, 0, 0, 0, 0, 0)


def gif(size):
    return (b"GIF89a" + struct.pack("<HHBBB", *size, 0x80, 0, 0) + bytes(6) + b"," + struct.pack("<HHHHB", 0, 0, *size, 0)
            + b"\x02\x02\x44\x01\x00;")


def webp(size):
    bits = (size[0] - 1) | (size[1] - 1) << 14
    content = b"\x2f" + struct.pack("<I", bits) + bytes(43)
    return b"RIFF" + struct.pack("<I", 12 + len(content)) + b"WEBPVP8L" + struct.pack("<I", len(content)) + content


def tiff(size):
    entries = [(256, 4, size[0]), (257, 4, size[1]), (258, 3, 8), (259, 3, 1), (262, 3, 1), (273, 4, 8), (278, 4, size[1]),
               (279, 4, 64)]
    body = struct.pack("<H", len(entries)) + b"".join(struct.pack("<HHII", tag, kind, 1, value)
                                                       for tag, kind, value in entries)
    return b"II*\0" + struct.pack("<I", 8) + body + bytes(68)


def tga(size):
    return struct.pack("<BBBHHBHHHHBB", 0, 0, 10, 0, 0, 0, 0, 0, size[0], size[1], 32, 8) + b"\xff\0\0\0\0"


def pcx(size):
    head = struct.pack("<BBBBHHHH", 10, 5, 1, 8, 0, 0, size[0] - 1, size[1] - 1)
    return head.ljust(65, b"\0") + struct.pack("<BH", 3, size[0]) + bytes(60 + 64)


def qoi(size):
    return b"qoif" + struct.pack(">IIBB", *size, 4, 0) + b"\xfd" * 30 + bytes(7) + b"\1"


def pnm(size):
    return f"P6 {size[0]} {size[1]} 255\n".encode() + bytes(64)


def svg(size):
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{size[0]}" height="{size[1]}">'
            '<rect width="9" height="9"/></svg>').encode()


def xpm(size):
    return f'/* XPM */\nstatic char *p[] = {{\n"{size[0]} {size[1]} 1 1",\n"a c #000000",\n"aaaa"}};\n'.encode()


def with_texts(kind, count):
    text = chunk(kind, (b"k\0\1\0\0\0" if kind == b"iTXt" else b"k\0\0") + zeros(7 << 20))
    return png((8, 8), *[text] * count, pixels=bytes(33 * 8))


def main():
    folder = Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    kinds = {"png": png, "jpg": jpeg, "bmp": bmp, "gif": gif, "webp": webp, "tif": tiff, "tga": tga, "pcx": pcx,
             "qoi": qoi, "ppm": pnm, "svg": svg, "xpm": xpm}
    files = {}
    for name, make in kinds.items():
        files[f"{'allowed' if name == 'svg' else 'claims-all'}.{name}"] = make(ALLOWED)
        files[f"claims-more.{name}"] = make((16383, 16383) if name == "webp" else HUGE)
    files["claims-most.png"] = png((2**31 - 1, 2**31 - 1))
    files["allowed.png"] = png(ALLOWED, pixels=b"").replace(
        chunk(b"IDAT", zlib.compress(b"")), chunk(b"IDAT", zeros(245 << 20)))
    files["progressive.jpg"] = jpeg(ALLOWED, kind=0xC2)
    files["passes.jpg"] = jpeg((2000, 1999), kind=0xC2, passes=5000)
    files["unpacks-too-much.png"] = png((30000, 30000), pixels=b"").replace(
        chunk(b"IDAT", zlib.compress(b"")), chunk(b"IDAT", zeros(1 << 30)))
    for kind in (b"zTXt", b"iTXt", b"iCCP"):
        files[f"hides-{kind.decode()}.png"] = with_texts(kind, 100)
    for name, content in files.items():
        (folder / name).write_bytes(content)


if __name__ == "__main__":
    main()
