"""Sheets of indexed pixels, and their bytes as PCX and PNG files."""

import struct
import zlib


class Sheet:
    """Rows of palette indices; tiles are placed by column and row."""

    def __init__(self, width, height, palette, tile=32):
        self.width, self.height, self.palette, self.tile = width, height, palette, tile
        self.rows = [bytearray(width) for _ in range(height)]

    def put(self, column, row, pixels):
        for y, line in enumerate(pixels):
            at = column * self.tile
            self.rows[row * self.tile + y][at:at + len(line)] = bytes(line)


def run_lengths(line):
    """PCX: a byte stands for itself below 0xC0; else a count byte 0xC1 to 0xFF goes before it."""
    out, at = bytearray(), 0
    while at < len(line):
        run = 1
        while run < 63 and at + run < len(line) and line[at + run] == line[at]:
            run += 1
        if run > 1 or line[at] >= 0xC0:
            out.append(0xC0 | run)
        out.append(line[at])
        at += run
    return bytes(out)


def _pcx_header(sheet, planes):
    header = struct.pack("<BBBBHHHHHH48xxBHHHH", 10, 5, 1, 8, 0, 0, sheet.width - 1, sheet.height - 1, 72, 72,
                         planes, sheet.width, 1, 0, 0)
    return header.ljust(128, b"\0")


def pcx_of_palette(sheet):
    """PCX with one plane of 8 bits and the palette of 256 colours at its end. The width must be even."""
    body = b"".join(run_lengths(row) for row in sheet.rows)
    colours = b"".join(bytes(colour) for colour in sheet.palette).ljust(768, b"\0")
    return _pcx_header(sheet, 1) + body + b"\x0c" + colours


def pcx_of_planes(sheet):
    """PCX with three planes of 8 bits: each row as red, then green, then blue."""
    body = bytearray()
    for row in sheet.rows:
        for plane in range(3):
            body += run_lengths(bytes(sheet.palette[index][plane] for index in row))
    return _pcx_header(sheet, 3) + bytes(body)


def png(sheet):
    """PNG of 8-bit palette indices; colour 0 is see-through."""
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    lines = b"".join(b"\0" + bytes(row) for row in sheet.rows)
    return (b"\x89PNG\r\n\x1a\n"
            + chunk(b"IHDR", struct.pack(">IIBBBBB", sheet.width, sheet.height, 8, 3, 0, 0, 0))
            + chunk(b"PLTE", b"".join(bytes(colour) for colour in sheet.palette))
            + chunk(b"tRNS", b"\0")
            + chunk(b"IDAT", zlib.compress(lines, 9)) + chunk(b"IEND", b""))


def _code_stream(pixels, depth):
    """The codes of a GIF's compression, packed from the lowest bit on."""
    clear = 1 << depth
    out, held, bits = bytearray(), 0, 0
    width, table = depth + 1, {bytes([i]): i for i in range(clear)}
    found = b""
    fresh = clear + 2

    def put(code):
        nonlocal held, bits
        held |= code << bits
        bits += width
        while bits >= 8:
            out.append(held & 255)
            held >>= 8
            bits -= 8

    put(clear)
    for pixel in pixels:
        longer = found + bytes([pixel])
        if longer in table:
            found = longer
            continue
        put(table[found])
        if fresh < 4096:
            table[longer] = fresh
            width = max(width, fresh.bit_length())
            fresh += 1
        else:
            put(clear)
            width, table, fresh = depth + 1, {bytes([i]): i for i in range(clear)}, clear + 2
        found = bytes([pixel])
    put(table[found])
    put(clear + 1)
    out.append(held & 255)
    return bytes(out)


def gif(sheet):
    """GIF of the palette's indices, none of them see-through."""
    depth = max(2, (len(sheet.palette) - 1).bit_length())
    colours = b"".join(bytes(colour) for colour in sheet.palette).ljust(3 << depth, b"\0")
    codes = _code_stream(b"".join(bytes(row) for row in sheet.rows), depth)
    blocks = b"".join(bytes([len(codes[at:at + 255])]) + codes[at:at + 255] for at in range(0, len(codes), 255))
    return (b"GIF87a" + struct.pack("<HHBBB", sheet.width, sheet.height, 0x80 | 7 << 4 | depth - 1, 0, 0) + colours
            + b"," + struct.pack("<HHHHB", 0, 0, sheet.width, sheet.height, 0) + bytes([depth]) + blocks + b"\0;")
