"""Reads GIF files and writes PNG pictures, with nothing but Python itself."""

import struct
import zlib

CLEAR = None  # a pixel that shows what lies below


def _indices(data, at, count):
    """The pixels of a frame: the codes that begin at a place of the file, unpacked."""
    size = data[at]
    at += 1
    packed = bytearray()
    while data[at]:
        packed += data[at + 1:at + 1 + data[at]]
        at += 1 + data[at]
    clear, end = 1 << size, (1 << size) + 1
    fresh = [bytes([code]) for code in range(clear)] + [b"", b""]
    table, width, last, result = list(fresh), size + 1, None, bytearray()
    bits = buffered = 0
    for byte in packed:
        bits |= byte << buffered
        buffered += 8
        while buffered >= width:
            code = bits & ((1 << width) - 1)
            bits >>= width
            buffered -= width
            if code == clear:
                table, width, last = list(fresh), size + 1, None
                continue
            if code == end:
                return result[:count], at + 1
            if last is None:
                text = table[code]
            else:
                text = table[code] if code < len(table) else last + last[:1]
                if len(table) < 4096:
                    table.append(last + text[:1])
                if len(table) == 1 << width and width < 12:
                    width += 1
            result += text
            last = text
    return result[:count], at + 1


def _rows(height, interlaced):
    passes = ((0, 8), (4, 8), (2, 4), (1, 2)) if interlaced else ((0, 1),)
    return [row for first, step in passes for row in range(first, height, step)]


def frames(data):
    """Width, height, and for each frame its rows of colours (red, green, blue) or CLEAR and its delay in milliseconds."""
    width, height, flags = struct.unpack_from("<HHB", data, 6)

    def palette(at, flags):
        count = 2 << (flags & 7)
        return [tuple(data[at + 3 * i:at + 3 * i + 3]) for i in range(count)], at + 3 * count

    at = 13
    shared = []
    if flags & 0x80:
        shared, at = palette(at, flags)
    canvas = [[CLEAR] * width for _ in range(height)]
    result, delay, disposal, transparent = [], 0, 0, None
    while at < len(data) and data[at] != 0x3B:
        if data[at] == 0x21:
            if data[at + 1] == 0xF9:
                packed, hundredths, index = struct.unpack_from("<BHB", data, at + 3)
                delay, disposal, transparent = hundredths * 10, packed >> 2 & 7, index if packed & 1 else None
            at += 2
            while data[at]:
                at += 1 + data[at]
            at += 1
            continue
        left, top, wide, high, flags = struct.unpack_from("<HHHHB", data, at + 1)
        at += 10
        colours = shared
        if flags & 0x80:
            colours, at = palette(at, flags)
        indices, at = _indices(data, at, wide * high)
        before = [list(row) for row in canvas] if disposal == 3 else None
        for number, row in enumerate(_rows(high, flags & 0x40)):
            line = canvas[top + row]
            for x, index in enumerate(indices[number * wide:(number + 1) * wide], left):
                if index != transparent:
                    line[x] = colours[index]
        result.append(([list(row) for row in canvas], delay))
        if disposal == 2:
            for row in range(top, top + high):
                canvas[row][left:left + wide] = [CLEAR] * wide
        elif disposal == 3:
            canvas = before
        delay, disposal, transparent = 0, 0, None
    return width, height, result


def png(rows):
    """A picture of up to 256 colours; all of a GIF's frames are."""
    colours = sorted({colour for row in rows for colour in row}, key=lambda colour: (colour is not CLEAR, colour))
    place = {colour: index for index, colour in enumerate(colours)}

    def chunk(kind, content):
        return struct.pack(">I", len(content)) + kind + content + struct.pack(">I", zlib.crc32(kind + content))

    header = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 3, 0, 0, 0)
    palette = b"".join(bytes(colour or (0, 0, 0)) for colour in colours)
    pixels = b"".join(b"\0" + bytes(place[colour] for colour in row) for row in rows)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"PLTE", palette) +
            (chunk(b"tRNS", b"\0") if CLEAR in place else b"") + chunk(b"IDAT", zlib.compress(pixels, 9)) + chunk(b"IEND", b""))
