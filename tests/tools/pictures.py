# SPDX-License-Identifier: MIT
"""Writes pictures, only from the descriptions of the formats, and the converter's expected results."""

import struct
import zlib

PALETTE = [(entry * 37 % 256, entry * 5 % 256 ^ 90, entry * 113 % 256) for entry in range(256)]
ADAM7 = [(0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2)]


def drawn(width, height, pixel):
    """Returns rows of the values of `pixel` at each position."""
    return [[pixel(x, y) for x in range(width)] for y in range(height)]


def motley(x, y):
    """Returns colours that differ from position to position in all channels."""
    return (x * 37 + y * 11) % 256, (x * 5 + y * 71 + 90) % 256, (x * 113 + y * 29 + 200) % 256


def device(rows):
    """Returns a picture of red, green, blue and perhaps alpha in the device's format, by docs/image-format.md."""
    has_alpha = any(pixel[3:] not in ((), (255,)) for row in rows for pixel in row)

    def pack(red, green, blue, alpha=255):
        if has_alpha:
            return bytes((blue, green, red, alpha))
        parts = ((part * most + 127) // 255 << shift
                 for part, most, shift in ((red, 31, 11), (green, 63, 5), (blue, 31, 0)))
        return struct.pack('<H', sum(parts))

    packed = [padded(b''.join(pack(*pixel) for pixel in row)) for row in rows]
    stride = len(packed[0])
    return struct.pack('<4s4B4I', b'MIMG', 1, 1 + has_alpha, 0, 24, len(rows[0]), len(rows), stride,
                       stride * len(rows)) + b''.join(packed)


def padded(row):
    return row + bytes(-len(row) % 4)


def from_bits(bits, filler='0'):
    bits += filler * (-len(bits) % 8)
    return int('0' + bits, 2).to_bytes(len(bits) // 8, 'big')


def chunk(kind, data):
    return struct.pack('>I', len(data)) + kind + data + struct.pack('>I', zlib.crc32(kind + data))


def png(rows, colour_type, depth=8, interlaced=False, chunks=b'', piece=65536):
    """Makes a PNG of rows of pixels of samples."""
    lines = [from_bits(''.join(f'{sample:0{depth}b}' for pixel in row[x::right] for sample in pixel))
             for x, y, right, down in (ADAM7 if interlaced else [(0, 0, 1, 1)]) for row in rows[y::down]]
    return png_of_lines(len(rows[0]), len(rows), filter(None, lines), colour_type, depth, interlaced, chunks, piece)


def png_of_lines(width, height, lines, colour_type, depth=8, interlaced=False, chunks=b'', piece=65536):
    """Inserts `chunks` before the pixels, whose data are in pieces of `piece` bytes."""
    data = zlib.compress(b''.join(b'\0' + line for line in lines))
    header = struct.pack('>2I5B', width, height, depth, colour_type, 0, 0, interlaced)
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', header) + chunks +
            b''.join(chunk(b'IDAT', data[at:at + piece]) for at in range(0, len(data), piece)) + chunk(b'IEND', b''))


def bmp(width, height, bits, data, compression=0, masks=(), colours=0):
    """Has a header of 40 bytes and unchanged data; a negative height counts from the top."""
    palette = b''.join(bytes((blue, green, red, 0)) for red, green, blue in PALETTE[:colours])
    head = struct.pack('<IiiHHIIIIII', 40, width, height, 1, bits, compression, len(data), 0, 0, colours, 0)
    head += struct.pack(f'<{len(masks)}I', *masks) + palette
    return struct.pack('<2sIII', b'BM', 14 + len(head) + len(data), 0, 14 + len(head)) + head + data


def bmp_rows(rows, bits):
    """Returns rows of numbers with `bits` bits each, in the file's order."""
    if bits < 8:
        return b''.join(padded(from_bits(''.join(f'{number:0{bits}b}' for number in row))) for row in rows)
    return b''.join(padded(b''.join(number.to_bytes(bits // 8, 'little') for number in row)) for row in rows)


def gif(width, height, *frames, palette=PALETTE[:16]):
    return (b'GIF89a' + struct.pack('<HHBBB', width, height, 0x83 if palette else 0, 0, 0) +
            bytes(sum(palette, ())) + b''.join(frames) + b';')


def gif_frame(indices, left=0, top=0, interlaced=False, transparent=None, palette=()):
    """Returns a frame of rows of indices, in codes of 9 bits without compression."""
    passes = [(0, 8), (4, 8), (2, 4), (1, 2)] if interlaced else [(0, 1)]
    flat = [index for first, step in passes for row in indices[first::step] for index in row]
    codes = [code for at in range(0, len(flat), 250) for code in [256] + flat[at:at + 250]] + [257]
    data = sum(code << 9 * place for place, code in enumerate(codes)).to_bytes(len(codes) * 9 // 8 + 1, 'little')
    control = b'' if transparent is None else b'!\xf9\x04\1\0\0' + bytes([transparent, 0])
    flags = 0x40 * interlaced | (0x83 if palette else 0)
    head = control + b',' + struct.pack('<4HB', left, top, len(indices[0]), len(indices), flags)
    blocks = (data[at:at + 255] for at in range(0, len(data), 255))
    return head + bytes(sum(palette, ())) + b'\x08' + b''.join(bytes([len(block)]) + block for block in blocks) + b'\0'


def jpg(width, height, area, adobe=None, scans=()):
    """Makes a JPG of areas of 8 x 8 pixels with one colour each, whose samples `area` returns as they are stored. With
    `scans` it is progressive: each has a component, first and last coefficient and two shifts."""
    places = [(x, y) for y in range((height + 7) // 8) for x in range((width + 7) // 8)]
    components = range(1, len(area(0, 0)) + 1)
    bits, last = '', [128] * len(components)
    for place in places:
        for number, sample in enumerate(area(*place)):
            step = 8 * (sample - last[number])
            last[number] = sample
            size = abs(step).bit_length()  # 4-bit codes for the sizes, and a 1-bit code for the end of an area
            bits += f'{size:04b}' + (f'{step if step > 0 else step + 2 ** size - 1:0{size}b}' if size else '')
            bits += '' if scans else '0'

    def segment(kind, data):
        return bytes((0xFF, kind)) + struct.pack('>H', len(data) + 2) + data

    def scan(numbers, first, end, shifts, coded):
        head = bytes([len(numbers)]) + b''.join(bytes((number, 0)) for number in numbers) + bytes((first, end, shifts))
        return segment(0xDA, head) + from_bits(coded, '1').replace(b'\xff', b'\xff\0')

    frame = struct.pack('>BHHB', 8, height, width, len(components)) + b''.join(bytes((n, 0x11, 0)) for n in components)
    return (b'\xff\xd8' + (b'' if adobe is None else segment(0xEE, b'Adobe\0\x64\0\0\0\0' + bytes([adobe]))) +
            segment(0xDB, bytes([0] + [1] * 64)) + segment(0xC2 if scans else 0xC0, frame) +
            segment(0xC4, bytes([0, 0, 0, 0, 12] + [0] * 12 + list(range(12)))) +
            segment(0xC4, bytes([0x10, 1] + [0] * 15 + [0])) + scan(components, 0, 0 if scans else 63, 0, bits) +
            b''.join(scan([n], first, end, high << 4 | low, '0' * len(places)) for n, first, end, high, low in scans) +
            b'\xff\xd9')
