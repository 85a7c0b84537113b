#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws docs/pictures/run.png: what the packed sample prints, and the pictures that it contains. Also draws
start-screen.png: the preview of its start screen beside what the program on the device reads of it.

Run from the top of the tree after ./run.sh and docs/pictures/window.sh. Needs librsvg2-bin, python3-pil, fonts-dejavu, fonts-wqy-microhei, fonts-noto-core.
"""

import base64
import io
import subprocess
import xml.sax.saxutils

from PIL import Image

WIDTH, LINE, LEFT, TOP = 1180, 21, 28, 76
PICTURES = ['sun', 'moon', 'partly', 'cloud', 'fog', 'rain', 'snow', 'storm']


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
    places = (0, 225, 290, 424, 652, 732, 872, 972)
    return ''.join(text(LEFT + place, y, column.strip()) for place, column in zip(places, columns))


def main():
    shown = output('qemu-arm', 'build/sample/weatherclock.packed.axf')
    start = next(i for i, line in enumerate(shown) if line.startswith('Strings:'))
    body, y = [], TOP

    def say(line, colour='#d8dee9', weight='normal'):
        nonlocal y
        body.append(text(LEFT, y, line, colour, weight))
        y += LINE

    say('$ morvanite-cli pack sample/weatherclock.vcproj --input weatherclock.axf --output weatherclock.packed.axf \\', '#a3be8c')
    say('      --resolution 240x320 --target axf --convert-images 1', '#a3be8c')
    say('$ qemu-arm weatherclock.packed.axf', '#a3be8c')
    top = y
    for line in shown[:start]:
        say(line)
    for i, name in enumerate(PICTURES):
        body.append(picture('sample/res/240x320/%s.png' % name, 620 + i % 4 * 92, top + i // 4 * 92 - 8, (76, 76)))
    body.append(picture('sample/res/preview/day.png', 1010, top - 8, (126, 168)))
    say(shown[start], '#88c0d0', 'bold')
    for line in shown[start + 2:start + 14]:
        body.append(table(line.replace('   ', '  '), y))
        y += LINE
    write('run', 'Morvanite: the weather clock and its resources', WIDTH, y + 14, body)


def write(name, title, width, height, body):
    """Returns a picture of a terminal."""
    svg = ('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" font-size="14.5" '
           'font-family="DejaVu Sans Mono, Noto Sans Devanagari, Noto Sans Arabic, WenQuanYi Micro Hei, monospace">'
           '<rect width="100%%" height="100%%" rx="10" fill="#2b303b"/>'
           '<rect width="100%%" height="40" rx="10" fill="#3b4252"/><rect y="20" width="100%%" height="20" fill="#3b4252"/>'
           '<circle cx="24" cy="20" r="7" fill="#bf616a"/><circle cx="48" cy="20" r="7" fill="#ebcb8b"/>'
           '<circle cx="72" cy="20" r="7" fill="#a3be8c"/>'
           '<text x="%d" y="26" fill="#d8dee9" text-anchor="middle">%s</text>%s</svg>'
           % (width, height, width // 2, title, ''.join(body)))
    subprocess.run(['rsvg-convert', '--zoom', '1', '-o', 'docs/pictures/%s.png' % name], input=svg.encode(), check=True)


def draw_start_screen():
    shown = output('qemu-arm', 'build/sample/weatherclock.packed.axf')
    start = next(i for i, line in enumerate(shown) if line.startswith('Start screen:'))
    body = [picture('docs/pictures/preview.png', LEFT, TOP - 18, (260, 340))]
    left, y = LEFT + 284, TOP
    for line in ['$ qemu-arm weatherclock.packed.axf'] + shown[start:shown.index('', start)]:
        body.append(text(left, y, line, '#a3be8c' if line.startswith('$') else '#d8dee9'))
        y += LINE
    write('start-screen', 'The start screen in the preview, and as the device reads it', WIDTH + 20, TOP + 342, body)


if __name__ == '__main__':
    main()
    draw_start_screen()
