#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws docs/pictures/run.png: the sample is packed and run, beside the preview of its start screen.

Run by window.sh from the top of the tree, after ./run.sh. Needs librsvg2-bin, python3-pil, fonts-dejavu-core,
fonts-wqy-microhei, fonts-lohit-deva, qemu-user.
"""

import base64
import io
import subprocess
import xml.sax.saxutils

from PIL import Image

from palette import reduce_colours

WIDTH, LINE, LEFT, TOP = 1060, 18, 24, 68


def output(*command):
    return subprocess.run(command, check=True, capture_output=True).stdout.decode().rstrip('\n').split('\n')


def picture(path, x, y, size):
    data = io.BytesIO()
    Image.open(path).convert('RGBA').save(data, 'PNG')
    return '<image x="%d" y="%d" width="%d" height="%d" href="data:image/png;base64,%s"/>' % (
        x, y, size[0], size[1], base64.b64encode(data.getvalue()).decode())


def text(x, y, words, colour='#d8dee9', weight='normal'):
    return '<text x="%d" y="%d" fill="%s" font-weight="%s" xml:space="preserve">%s</text>' % (
        x, y, colour, weight, xml.sax.saxutils.escape(words))


def table(line, y):
    """Draws a row of the table of strings. Its columns are two blanks or more apart, since scripts differ in width."""
    columns = [column for column in line.strip().split('  ') if column.strip()]
    places = (0, 200, 258, 378, 582, 654, 784, 870)
    return ''.join(text(LEFT + place, y, column.strip()) for place, column in zip(places, columns))


def main():
    shown = output('qemu-arm', 'build/sample/weatherclock.packed.axf')
    strings = next(i for i, line in enumerate(shown) if line.startswith('Strings:'))
    body, y = [picture('docs/pictures/window/layout-preview.png', WIDTH - 260 - 8, 44, (260, 340))], TOP

    def say(lines, colour='#d8dee9', weight='normal'):
        nonlocal y
        for line in lines:
            body.append(text(LEFT, y, line, colour, weight))
            y += LINE

    say(['$ morvanite-cli pack weatherclock.vcproj --input weatherclock.axf \\',
         '      --output weatherclock.packed.axf --resolution 240x320 --target axf --convert-images 1',
         '$ qemu-arm weatherclock.packed.axf'], '#a3be8c')
    say(shown[:strings])
    say([shown[strings]], '#88c0d0', 'bold')
    for line in shown[strings + 2:strings + 10]:
        body.append(table(line.replace('   ', '  '), y))
        y += LINE
    write('Morvanite: the weather clock and its resources', WIDTH, y, body)


def write(title, width, height, body):
    """A picture of a terminal."""
    svg = ('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" font-size="12.5" '
           'font-family="DejaVu Sans Mono, Lohit Devanagari, DejaVu Sans, WenQuanYi Micro Hei, monospace">'
           '<rect width="100%%" height="100%%" fill="#2b303b"/>'
           '<rect width="100%%" height="36" fill="#3b4252"/>'
           '<circle cx="20" cy="18" r="6" fill="#bf616a"/><circle cx="40" cy="18" r="6" fill="#ebcb8b"/>'
           '<circle cx="60" cy="18" r="6" fill="#a3be8c"/>'
           '<text x="%d" y="23" fill="#d8dee9" text-anchor="middle">%s</text>%s</svg>'
           % (width, height, width // 2, title, ''.join(body)))
    drawn = subprocess.run(['rsvg-convert'], input=svg.encode(), check=True, capture_output=True).stdout
    reduce_colours(Image.open(io.BytesIO(drawn))).save('docs/pictures/run.png', optimize=True)


if __name__ == '__main__':
    main()
