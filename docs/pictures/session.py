#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Makes docs/pictures/first-session.gif: session.py FRAMES. FRAMES is a folder that "app_pictures session" has filled.

Run by window.sh from the top of the tree, after ./run.sh. Needs python3-pil, fonts-dejavu-core, qemu-user.
"""

import subprocess
import sys

from PIL import Image, ImageDraw, ImageFont

from palette import reduce_colours

FONTS = '/usr/share/fonts/truetype/dejavu/'
CAPTION = 30
DARK, LIGHT, GREEN = '#2b303b', '#e5e9f0', '#a3be8c'
# The captions of the frames, with the time in milliseconds for which each is shown.
FRAMES = [('Open a project', 1200), ('The project and its folders', 1800),
          ('The strings: an empty cell is marked', 2200), ('Type the missing translation', 700), ('', 350), ('', 350),
          ('', 900), ('Accept it with Enter', 1500), ('A layout, with its preview', 2200),
          ('Click on a value', 1000), ('and change it', 900), ('The preview follows', 2000),
          ('Save: the IDs are numbered, the headers are written', 2200)]
PACK = ('$ morvanite-cli pack weatherclock.vcproj --input weatherclock.axf \\',
        '      --output weatherclock.packed.axf --resolution 240x320 \\',
        '      --target axf --convert-images 1', '$ qemu-arm weatherclock.packed.axf')


def with_caption(picture, words):
    frame = Image.new('RGB', (picture.width, picture.height + CAPTION), DARK)
    frame.paste(picture, (0, 0))
    place = (picture.width // 2, picture.height + CAPTION // 2)
    ImageDraw.Draw(frame).text(place, words, LIGHT, ImageFont.truetype(FONTS + 'DejaVuSans.ttf', 15), anchor='mm')
    return frame


def terminal(size):
    """The sample is packed and run: the first lines that it prints."""
    shown = subprocess.run(['qemu-arm', 'build/sample/weatherclock.packed.axf'], check=True, capture_output=True)
    picture = Image.new('RGB', size, DARK)
    draw, font = ImageDraw.Draw(picture), ImageFont.truetype(FONTS + 'DejaVuSansMono.ttf', 11)
    lines = list(PACK) + shown.stdout.decode().split('\n')[:24]
    for i, line in enumerate(lines):
        draw.text((16, 12 + 17 * i), line, GREEN if i < len(PACK) else LIGHT, font)
    return picture


def main():
    pictures = [Image.open('%s/%02d.png' % (sys.argv[1], i + 1)).convert('RGB') for i in range(len(FRAMES))]
    captions = []
    for words, _ in FRAMES:
        captions.append(words or captions[-1])
    pictures.append(terminal(pictures[0].size))
    captions.append('Pack everything into the application, and run it')
    frames = [reduce_colours(with_caption(*each)) for each in zip(pictures, captions)]
    frames[0].save('docs/pictures/first-session.gif', save_all=True, append_images=frames[1:], loop=0, optimize=False,
                   duration=[time for _, time in FRAMES] + [4000])


if __name__ == '__main__':
    main()
