# SPDX-License-Identifier: MIT
"""Tests the conversion of each kind of picture. Usage: pictures_test.py CONVERTER"""

import pathlib
import re
import struct

from converter import ConverterTest, main
from pictures import PALETTE, bmp, bmp_rows, chunk, device, drawn, gif, gif_frame, jpg, motley, png, png_of_lines

GREY, RGB, INDEXED, GREY_ALPHA, RGB_ALPHA = 0, 2, 3, 4, 6
PNG_KINDS = {GREY: (1, 2, 4, 8, 16), RGB: (8, 16), INDEXED: (1, 2, 4, 8), GREY_ALPHA: (8, 16), RGB_ALPHA: (8, 16)}
CHANNELS = {GREY: 1, RGB: 3, INDEXED: 1, GREY_ALPHA: 2, RGB_ALPHA: 4}
PLTE = b''.join(map(bytes, PALETTE))


def samples(channels, depth):
    """Returns 13 x 11 pixels of samples that use all of their bits."""
    def sample(x, y, channel):
        return ((x * 7919 + y * 104729 + channel * 15485863 + 12345) * 2654435761 >> 8) % 2 ** depth

    return drawn(13, 11, lambda x, y: tuple(sample(x, y, channel) for channel in range(channels)))


def index(x, y):
    return (x * 5 + y * 3) % 16


def colours(indices, palette=PALETTE):
    return [[palette[number] for number in row] for row in indices]


class Png(ConverterTest):
    def test_converts_every_colour_type_and_depth_with_and_without_interlacing(self):
        def pixel(colour_type, values, depth):
            if colour_type == INDEXED:
                return PALETTE[values[0]]
            most = 2 ** depth - 1
            near = tuple((value * 255 + most // 2) // most for value in values)
            return near if colour_type & RGB else near[:1] * 3 + near[1:]

        for colour_type, depths in PNG_KINDS.items():
            for depth in depths:
                rows = samples(CHANNELS[colour_type], depth)
                palette = chunk(b'PLTE', PLTE[:3 << depth]) if colour_type == INDEXED else b''
                wanted = device([[pixel(colour_type, values, depth) for values in row] for row in rows])
                for interlaced in (False, True):
                    with self.subTest(colour_type=colour_type, depth=depth, interlaced=interlaced):
                        self.assertEqual(self.converted(png(rows, colour_type, depth, interlaced, palette)), wanted)
        self.assertEqual(self.converted(png(rows, colour_type, depth, piece=7)), wanted)

    def test_reads_transparency_of_palettes_and_of_16_bit_colours(self):
        rows = samples(1, 2)
        alphas = chunk(b'PLTE', PLTE[:12]) + chunk(b'tRNS', bytes((255, 0, 77)))
        self.assertEqual(self.converted(png(rows, INDEXED, 2, chunks=alphas)),
                         device([[PALETTE[value] + ((255, 0, 77, 255)[value],) for value, in row] for row in rows]))
        # Two colours that are equal in 8 bits; only the first is transparent.
        rows = drawn(4, 2, lambda x, y: (0x8080 + x % 2,) * 3)
        self.assertEqual(self.converted(png(rows, RGB, 16, chunks=chunk(b'tRNS', b'\x80' * 6))),
                         device(drawn(4, 2, lambda x, y: (128, 128, 128, x % 2 * 255))))

    def test_an_alpha_channel_without_a_transparent_pixel_becomes_rgb565(self):
        for width, height in ((13, 11), (3, 1), (1, 3)):  # the small ones have no pixels in some passes
            rows = drawn(width, height, lambda x, y: motley(x, y) + (255,))
            for interlaced in (False, True):
                self.assertEqual(self.converted(png(rows, RGB_ALPHA, interlaced=interlaced)), device(rows))

    def test_reads_a_large_picture_row_by_row(self):
        size = 2500  # 18.75 MB of pixels
        found = self.converted(png_of_lines(size, size, (bytes(motley(1, y)) * size for y in range(size)), RGB))
        for y in range(0, size, 83):
            self.assertEqual(found[24 + 2 * size * y:24 + 2 * size * (y + 1)], device([[motley(1, y)] * size])[24:])

    def test_refuses_damage_and_impossible_sizes(self):
        whole = png(samples(3, 8), RGB)
        for from_the_end in (12 + 1, 12 + 4 + 1, 12 + 4 + 4 + 20):  # the checksums of chunk and data, and the data
            damaged = bytearray(whole)
            damaged[-from_the_end] ^= 1
            self.refuses(damaged, b'broken png')
        for width, height, text in ((0, 5, b'picture of 0 x 5 pixels, expected at least 1 x 1'),
                                    (8001, 8000, b'picture of 8001 x 8000 pixels, expected at most 64000000'),
                                    (2 ** 31 - 1, 2 ** 31 - 1, b'expected at most 64000000')):
            self.refuses(whole[:16] + struct.pack('>2I', width, height) + whole[24:], text)


class Bmp(ConverterTest):
    def test_converts_every_plain_depth_top_down_and_bottom_up(self):
        for bits in (1, 4, 8, 24, 32):
            for height, order in ((7, -1), (-7, 1)):
                with self.subTest(bits=bits, height=height):
                    if bits <= 8:
                        numbers = drawn(19, 7, lambda x, y: (x * 5 + y * 3) % 2 ** bits)
                        wanted = colours(numbers)
                    else:  # the highest byte of 32 bits is unused
                        wanted = drawn(19, 7, motley)
                        numbers = [[int.from_bytes(bytes(p), 'big') | 0x12 << 24 for p in row] for row in wanted]
                    rows = bmp_rows([[number % 2 ** bits for number in row] for row in numbers[::order]], bits)
                    picture = bmp(19, height, bits, rows, colours=2 ** bits if bits <= 8 else 0)
                    self.assertEqual(self.converted(picture), device(wanted))

    def test_applies_masks_and_scales_each_channel_to_8_bits(self):
        numbers = drawn(5, 3, lambda x, y: (x * 9999 + y * 777) & 0xFFFF)
        for compression, masks in ((3, (0xF800, 0x07E0, 0x001F)), (0, ())):
            def pixel(number):
                channels = ((number & mask) * 255 / mask for mask in masks or (0x7C00, 0x03E0, 0x001F))
                return tuple(int(channel + 0.5) for channel in channels)

            self.assertEqual(self.converted(bmp(5, -3, 16, bmp_rows(numbers, 16), compression, masks)),
                             device([[pixel(number) for number in row] for row in numbers]))
        rows = drawn(4, 2, lambda x, y: motley(x, y) + (x * 60,))
        numbers = [[int.from_bytes(bytes(p), 'little') for p in row] for row in rows]
        masks = (0xFF, 0xFF00, 0xFF0000, 0xFF000000)
        self.assertEqual(self.converted(bmp(4, -2, 32, bmp_rows(numbers, 32), 6, masks)), device(rows))

    def test_reads_the_3_byte_palette_of_the_os2_header(self):
        picture = struct.pack('<2s4I4H', b'BM', 40, 0, 32, 12, 3, 2, 1, 1) + bytes((10, 20, 30, 200, 210, 220))
        self.assertEqual(self.converted(picture + bytes((0x40, 0, 0, 0, 0xA0, 0, 0, 0))),
                         device(drawn(3, 2, lambda x, y: (30, 20, 10) if (x + y) % 2 else (220, 210, 200))))

    def test_run_length_data_may_jump_end_early_and_exceed_the_row(self):
        half_bytes = bytes((5, 0x12, 3, 0x44, 0, 0,                      # 12121, 444
                            0, 5, 0x34, 0x56, 0x70, 0, 0, 0,             # five literal pixels; the rest is omitted
                            1, 0x90, 0, 2, 2, 2, 2, 0xAB, 0, 1))         # one, then two to the right and two rows up
        whole_bytes = bytes((8, 6, 0, 0,                                 # three more than fit into the row
                             0, 3, 1, 2, 3, 0, 0, 4, 9, 8, 7, 6, 0, 0,   # an odd number, then more than fit
                             0, 2, 200, 0, 3, 5, 0, 1))                  # a jump beyond the row
        for picture, rows in ((bmp(8, 5, 4, half_bytes, 2, colours=16), '000ab000 00000000 90000000 34567000 12121444'),
                              (bmp(5, -3, 8, whole_bytes, 1, colours=16), '66666 12398 00000')):
            indices = [[int(digit, 16) for digit in row] for row in rows.split()]
            self.assertEqual(self.converted(picture), device(colours(indices)))

    def test_fills_a_short_palette_with_black(self):
        self.assertEqual(self.converted(bmp(2, 1, 8, b'\1\xc8\0\0', colours=2)), device([[PALETTE[1], (0, 0, 0)]]))

    def test_a_palette_that_overlaps_the_pixels_is_shortened_or_refused(self):
        def with_offset(picture, offset, declared):
            return picture[:10] + struct.pack('<I', offset) + picture[14:46] + struct.pack('<I', declared) + picture[50:]

        row = b'\1\0\0\0'
        full = bmp(2, 1, 8, row, colours=16)                   # 16 colours, the pixels at byte 118
        for declared in (16, 0):                               # 0 means 256, for which there is no room
            self.assertEqual(self.converted(with_offset(full, 118, declared)), device([[PALETTE[1], PALETTE[0]]]))
        short = bmp(2, 1, 8, row, colours=8)
        self.assertEqual(self.converted(with_offset(short, 86, 16)), device([[PALETTE[1], PALETTE[0]]]))
        runs = bytes((2, 1, 0, 1))
        self.assertEqual(self.converted(with_offset(bmp(2, 1, 8, runs, 1, colours=8), 86, 0)), device([[PALETTE[1]] * 2]))
        hint = bmp(1, 1, 24, bytes(8), colours=2)
        for picture, text in ((with_offset(full, 54, 16), b'pixels at byte 54, within the palette of 16 colours'),
                              (with_offset(bmp(2, 1, 8, row, colours=256) + bytes(900), 118, 0), b'of 256 colours, expected'),
                              (with_offset(bmp(2, 1, 8, runs, 1, colours=16), 86, 16), b'pixels at byte 86'),
                              (with_offset(hint, 54, 2), b'expected them at byte 62'),
                              (with_offset(bmp(2, 1, 8, b'\1\x09\0\0', colours=8), 86, 16),
                               b'a pixel has colour 9, but the palette has only 8 colours'),
                              (with_offset(bmp(2, 1, 8, bytes((2, 9, 0, 1)), 1, colours=8), 86, 16), b'colour 9')):
            self.refuses(picture, text)

    def test_refuses_impossible_headers_with_their_values(self):
        row = b'\1\2\3\0'
        early = bytearray(bmp(1, 1, 24, row))
        early[10] = 20
        odd = bytearray(early)
        odd[14] = 13
        for picture, text in ((bmp(0, 1, 24, row), b'picture of 0 x 1 pixels'),
                              (bmp(-1, 1, 24, row), b'-1 pixels wide'),
                              (bmp(1, -2 ** 31, 24, row), b'picture of 1 x 2147483648 pixels'),
                              (bmp(2 ** 31 - 1, 2 ** 31 - 1, 24, row), b'expected at most 64000000'),
                              (bmp(1, 1, 7, row), b'7 bits per pixel and compression 0'),
                              (bmp(1, 1, 24, row, 4), b'compression 4'),
                              (bmp(1, 1, 16, row, 3, (5, 8, 16)), b'bit masks 5, 8, 10, 0'),
                              (early, b'pixels at byte 20'), (odd, b'header of 13 bytes')):
            self.refuses(picture, text)


class Gif(ConverterTest):
    def test_converts_the_first_frame_with_and_without_interlacing(self):
        rows = drawn(19, 17, index)
        other = gif_frame(drawn(19, 17, lambda x, y: 3), transparent=3)
        for interlaced in (False, True):
            self.assertEqual(self.converted(gif(19, 17, gif_frame(rows, interlaced=interlaced), other, other)),
                             device(colours(rows)))
        own = PALETTE[15::-1]
        self.assertEqual(self.converted(gif(19, 17, gif_frame(rows, palette=own))), device(colours(rows, own)))

    def test_the_transparent_colour_and_the_area_outside_the_frame_are_transparent_black(self):
        wanted = [[(0, 0, 0, 0)] * 10 for row in range(9)]
        for y in range(4):
            for x in range(5):
                if index(x, y) != 7:
                    wanted[y + 3][x + 2] = PALETTE[index(x, y)] + (255,)
        self.assertEqual(self.converted(gif(10, 9, gif_frame(drawn(5, 4, index), 2, 3, transparent=7))), device(wanted))

    def test_clips_a_frame_to_the_screen(self):
        self.assertEqual(self.converted(gif(6, 5, gif_frame(drawn(20, 20, index), interlaced=True))),
                         device(colours(drawn(6, 5, index))))
        besides = gif_frame(drawn(3, 3, index), left=6, top=5)
        self.assertEqual(self.converted(gif(6, 5, besides)), device([[(0, 0, 0, 0)] * 6] * 5))

    def test_skips_only_zeros_after_the_last_frame(self):
        rows = drawn(4, 3, index)
        self.assertEqual(self.converted(gif(4, 3, gif_frame(rows) + bytes(3))), device(colours(rows)))
        self.refuses(gif(4, 3, gif_frame(rows) + b'\1'), b'broken gif')
        self.refuses(gif(4, 3, bytes(1) + gif_frame(rows)), b'broken gif')

    def test_refuses_files_without_frame_or_colours_or_with_an_impossible_size(self):
        frame = gif_frame(drawn(2, 2, index))
        self.refuses(gif(6, 5), b'gif without a frame')
        self.refuses(gif(65535, 65535, frame), b'picture of 65535 x 65535 pixels, expected at most 64000000')
        self.refuses(gif(0, 5, frame), b'picture of 0 x 5 pixels, expected at least 1 x 1')
        self.refuses(gif(2, 2, frame, palette=()), b'broken gif: no colour table')


def from_ycc(y, cb, cr):
    colour = (y + 1.402 * (cr - 128), y - 0.344136 * (cb - 128) - 0.714136 * (cr - 128), y + 1.772 * (cb - 128))
    return tuple(min(max(round(value), 0), 255) for value in colour)


class Jpg(ConverterTest):
    WAYS = ((), [(number, 1, 63, 0, 0) for number in (1, 2, 3)])

    def comes_back(self, area, colour, components=3, **options):
        """Compares with the colour that `colour` makes of each area's samples."""
        wanted = drawn(29, 21, lambda x, y: colour(*area(x // 8, y // 8)))
        self.assertEqual(self.converted(jpg(29, 21, area, **options)), device(wanted))

    def test_converts_baseline_and_progressive_colour_and_grey(self):
        for scans in self.WAYS:
            self.comes_back(motley, lambda *samples: from_ycc(*samples), scans=scans)
            self.comes_back(lambda x, y: motley(x, y)[:1], lambda grey: (grey,) * 3, scans=scans[:1])

    def test_converts_cmyk_stored_inverted_or_not(self):
        def area(x, y):
            return motley(x, y) + (255 - x * 50,)

        def times(colour, light):
            return tuple((part * light + 127) // 255 for part in colour)

        self.comes_back(area, lambda *inks: times(inks[:3], inks[3]), adobe=0)
        self.comes_back(area, lambda *inks: times([255 - part for part in from_ycc(*inks[:3])], inks[3]), adobe=2)
        self.comes_back(area, lambda *inks: times([255 - ink for ink in inks[:3]], 255 - inks[3]))

    def test_refuses_damaged_pixels_and_skips_stray_bytes_before_them(self):
        whole = jpg(64, 64, motley)
        end = 4 + int.from_bytes(whole[4:6], 'big')  # the end of the first segment
        self.assertEqual(self.converted(whole[:end] + b'\0\0' + whole[end:]), self.converted(whole))
        self.refuses(whole[:-90] + whole[-40:], b'broken jpg: Corrupt JPEG data')

    def test_refuses_impossible_sizes(self):
        whole = jpg(29, 21, motley)
        sizes = struct.pack('>2H', 21, 29)
        self.refuses(whole.replace(sizes, b'\x80' * 4), b'picture of 32896 x 32896 pixels, expected at most 64000000')
        self.refuses(whole.replace(sizes, b'\0\x15\0\0'), b'broken jpg')

    def test_refuses_more_than_256_scans(self):
        scans = [(1, number, number, high, low) for number in range(1, 64)
                 for high, low in ((0, 4), (4, 3), (3, 2), (2, 1), (1, 0))]
        self.comes_back(lambda x, y: (x * 9,), lambda grey: (grey,) * 3, scans=scans[:255])
        self.refuses(jpg(29, 21, lambda x, y: (x,), scans=scans[:256]), b'broken jpg: more than 256 scans')


class AllKinds(ConverterTest):
    def test_refuses_every_truncation_of_every_kind(self):
        frame = gif_frame(drawn(4, 3, lambda x, y: x))
        kinds = {'png': png(drawn(4, 3, motley), RGB, piece=8),
                 'interlaced png': png(samples(4, 8), RGB_ALPHA, interlaced=True),
                 'jpg': jpg(8, 8, lambda x, y: (77,)),
                 'progressive jpg': jpg(8, 8, lambda x, y: (77,), scans=[(1, 1, 63, 0, 0)]),
                 'gif': gif(4, 3, frame),
                 'animated gif': gif(4, 3, frame, frame),
                 'bmp of 1 bit': bmp(3, 2, 1, bytes(8), colours=2),
                 'bmp of 24 bits': bmp(1, 2, 24, bytes(8)),
                 'bmp with masks': bmp(1, 1, 16, bytes(4), 3, (1, 2, 4)),
                 'bmp with runs': bmp(3, 2, 8, bytes((3, 1, 0, 0, 0, 3, 1, 0, 1, 0, 0, 0, 0, 1)), 1, colours=2)}
        for name, whole in kinds.items():
            self.converted(whole)
            for size in range(len(whole)):
                with self.subTest(name, size=size):
                    self.refuses(whole[:size])

    def test_writes_the_examples_of_the_documentation(self):
        document = pathlib.Path(__file__).parents[2].joinpath('docs/image-format.md').read_text()
        blocks = re.findall('```example.*?\n(.*?)```', document, re.S)
        examples = [bytes.fromhex(re.sub('#.*', '', block)) for block in blocks]
        grey = (128,) * 3
        opaque = [[(255, 0, 0), (0, 255, 0), (0, 0, 255)], [(255,) * 3, grey, (0,) * 3]]
        transparent = [[(255, 128, 0, 255), (16, 32, 48, 64)]]
        self.assertEqual([self.converted(png(opaque, RGB)), self.converted(png(transparent, RGB_ALPHA))], examples)


if __name__ == '__main__':
    main()
