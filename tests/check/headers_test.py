# SPDX-License-Identifier: MIT
"""What the check says of pictures, compared with ImageMagick. Usage: headers_test.py MORVANITE-CLI"""

import json
import pathlib
import random
import re
import shutil
import struct
import subprocess
import sys
import unittest
import zlib

sys.path[:0] = [str(pathlib.Path(__file__).parents[1] / folder) for folder in ('cli', 'tools')]
from demo import DemoProject  # noqa: E402
from pictures import chunk  # noqa: E402

# What ImageMagick makes of a gradient: the options, and the file with the prefix for the form.
FORMS = [('-type TrueColor', 'png24:a.png'), ('-type Palette -colors 7', 'png8:b.png'), ('', 'png32:c.png'),
         ('', 'png48:d.png'), ('-interlace PNG', 'png:e.png'), ('-colorspace gray -depth 1', 'png:f.png'),
         ('-transparent black -type PaletteAlpha', 'png:g.png'), ('', 'gif:h.gif'), ('-interlace GIF', 'gif:i.gif'),
         ('-transparent black', 'gif:j.gif'), ('', 'gif87:k.gif'), ('', 'bmp2:l.bmp'), ('', 'bmp3:m.bmp'),
         ('-alpha on -channel A -evaluate set 50%', 'bmp:n.bmp'), ('-monochrome', 'bmp3:o.bmp'),
         ('-compress RLE -colors 16', 'bmp3:p.bmp'), ('', 'jpg:q.jpg'), ('-interlace JPEG', 'jpg:r.jpg'),
         ('-colorspace gray', 'jpg:s.jpg'), ('-colorspace CMYK', 'jpg:t.jpg'), ('-set comment %s' % ('x' * 65000), 'jpg:u.jpg'),
         ('-set comment %s' % ('x' * 65000), 'png:v.png'), ('-set comment %s' % ('x' * 65000), 'gif:w.gif')]
SIZES = [(2, 1), (37, 91), (700, 3)]


def predicted(kind, left, above, corner):
    """What a filter of PNG subtracts from a byte."""
    nearest = min((left, above, corner), key=lambda value: abs(left + above - corner - value))
    return (0, left, above, (left + above) // 2, nearest)[kind]


def png(rows, channels, filter_of_row):
    """A PNG of rows of pixels, each a tuple of as many bytes as there are channels."""
    data, above = b'', bytes(len(rows[0]) * channels)
    for y, pixels in enumerate(rows):
        row, kind = bytes(value for pixel in pixels for value in pixel), filter_of_row(y)
        left, corner = bytes(channels) + row, bytes(channels) + above
        data += bytes([kind]) + bytes((value - predicted(kind, left[x], above[x], corner[x])) & 255
                                      for x, value in enumerate(row))
        above = row
    header = struct.pack('>IIBBBBB', len(rows[0]), len(rows), 8, {2: 4, 4: 6}[channels], 0, 0, 0)
    return (b'\x89PNG\r\n\x1a\n' + chunk(b'IHDR', header) + chunk(b'IDAT', zlib.compress(data)) +
            chunk(b'IEND', b''))


class CheckedPictures(DemoProject):
    def findings(self, elements, *rules):
        """The texts of the findings by ID, on a screen of one pixel."""
        (self.dir / 'bin').mkdir(exist_ok=True)
        (self.dir / 'bin/Morvanite.ini').write_text('[Path]\nreso_set=sizes.ini\n')
        (self.dir / 'bin/sizes.ini').write_text('[Resolution]\n1x1\n')
        self.env['MORVANITE_PROGRAM_DIR'] = str(self.dir / 'bin')
        (self.dir / 'res/demo.res.xml').write_text('<APP>\n' + '\n'.join(elements) + '\n</APP>\n')
        status, out, err = self.run_cli('check', self.project, '--format', 'json', '--fail-on', 'never',
                                        *(f'--rule={rule}' for rule in rules))
        self.assertEqual((status, err), (0, ''))
        return {finding.get('id'): finding['text'] for finding in json.loads(out)['findings']}

    def make(self, *arguments):
        subprocess.run(['convert', *arguments], cwd=self.dir, check=True, timeout=60)

    @unittest.skipUnless(shutil.which('convert') and shutil.which('identify'), 'needs ImageMagick')
    def test_formats_and_sizes_are_those_of_identify(self):
        images, files, names = [], [], {}
        for number, (options, target) in enumerate(FORMS):
            for width, height in SIZES:
                prefix, name = target.split(':')
                name = f'{width}x{height}{name}'
                self.make('-size', f'{width}x{height}', 'gradient:red-blue', *options.split(), f'{prefix}:{name}')
                shutil.copy(self.dir / name, self.dir / (name + '.ogg'))
                resource = f'ID_{width}_{number}'
                names[name] = resource
                images.append(f'<IMAGE id="{resource}">{name}</IMAGE>')
                files.append(f'<FILE id="{resource}_F">{name}.ogg</FILE>')
        seen = subprocess.run(['identify', '-format', '%f %m %w %h\n', *names], cwd=self.dir, check=True,
                              stdout=subprocess.PIPE).stdout.decode().split()
        wanted = {names[name]: (re.sub(r'(BMP|GIF)\d+', r'\1', kind), int(width), int(height))
                  for name, kind, width, height in zip(*[iter(seen)] * 4)}
        sized = self.findings(['<RESOLUTION width="1" height="1" class="image">', *images, '</RESOLUTION>'],
                              'image-too-large', 'image-unreadable')
        typed = self.findings(files, 'file-type')
        found = {}
        for resource in wanted:
            width, height = re.search(r' (\d+) x (\d+) pixels', sized.get(resource, ' 0 x 0 pixels')).groups()
            kind = typed.get(resource + '_F', '?').split()[-1]
            found[resource] = (kind, int(width), int(height))
        self.assertEqual(found, wanted)
        self.assertEqual(len(found), len(FORMS) * len(SIZES))

    @unittest.skipUnless(shutil.which('convert'), 'needs ImageMagick')
    def test_pictures_of_which_few_pixels_are_transparent(self):
        def picture(name, transparent=0, *options):
            dots = [word for x in range(transparent) for word in ('-draw', f'color {x},4 point')]
            self.make('-size', '20x20', 'xc:red', '-alpha', 'on', '-fill', 'none', *dots, *options, name)

        picture('png32:one.png', 1)
        picture('png32:four.png', 4)
        picture('png32:five.png', 5)
        picture('png32:opaque.png')
        picture('png32:slight.png', 0, '-channel', 'A', '-evaluate', 'set', '99%')
        picture('png32:half.png', 0, '-channel', 'A', '-evaluate', 'set', '50%')
        picture('one.gif', 1)
        names = ['one.png', 'four.png', 'five.png', 'opaque.png', 'slight.png', 'half.png', 'one.gif']
        found = self.findings([f'<IMAGE id="ID_{number}">{name}</IMAGE>' for number, name in enumerate(names)],
                              'image-alpha-few')
        text = "%d of the 400 pixels of %s aren't opaque, and the lowest alpha is %d; an opaque image needs 800 bytes less"
        self.assertEqual(found, {'ID_0': text % (1, 'one.png', 0), 'ID_1': text % (4, 'four.png', 0),
                                 'ID_4': text % (400, 'slight.png', 252), 'ID_6': text % (1, 'one.gif', 0)})

    def test_alpha_is_read_right_with_every_filter(self):
        rng = random.Random(20)
        elements, wanted = [], {}
        for number, (channels, kind) in enumerate((channels, kind) for channels in (2, 4) for kind in (0, 1, 2, 3, 4, None)):
            width, height = (23, 19) if channels == 2 else (61, 59)  # the larger one needs more than the first 4 KiB
            pixels = width * height
            alphas = rng.choices(range(250, 256), k=pixels)
            if kind == 2:  # few are transparent, and only behind the first rows
                alphas = [255] * (pixels - 3) + [0] * 3
            rows = [[tuple(rng.choices(range(256), k=channels - 1)) + (alphas[width * y + x],) for x in range(width)] for y in range(height)]
            (self.dir / f'{number}.png').write_bytes(png(rows, channels, lambda y: y % 5 if kind is None else kind))
            elements.append(f'<IMAGE id="ID_{number}">{number}.png</IMAGE>')
            wanted[f'ID_{number}'] = f"{pixels - alphas.count(255)} of the {pixels} pixels of {number}.png aren't opaque, and the lowest alpha is {min(alphas)}"
        found = self.findings(elements, 'image-alpha-few')
        self.assertEqual({id_: text.split(';')[0] for id_, text in found.items()}, wanted)


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1])
