#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Draws every picture of the weather clock into ../res.

The drawings are SVG texts put together below; rsvg-convert turns them into pixels, Pillow into png, bmp, gif and jpg.
Needs the packages librsvg2-bin, python3-pil and fonts-dejavu-extra. The pictures are committed, so a build doesn't need
this script; `draw.py --sheet FILE.png` also makes one sheet of all of them to look at.
"""

import argparse
import io
import pathlib
import subprocess

from PIL import Image

ART = pathlib.Path(__file__).resolve().parent
RES = ART.parent / "res"

# Size of the screen: size of a weather icon, height of a digit.
SCREENS = {(240, 320): (72, 64), (320, 240): (64, 64), (480, 272): (96, 88)}

GRADIENTS = """
<radialGradient id="sun" cx=".4" cy=".35" r=".75"><stop offset="0" stop-color="#ffe27a"/>
  <stop offset=".6" stop-color="#ffc02e"/><stop offset="1" stop-color="#f79410"/></radialGradient>
<linearGradient id="moon" x1="0" y1="0" x2="1" y2="1"><stop offset="0" stop-color="#fffbe6"/>
  <stop offset="1" stop-color="#d9cf9b"/></linearGradient>
<linearGradient id="light" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#ffffff"/>
  <stop offset="1" stop-color="#cfdcea"/></linearGradient>
<linearGradient id="grey" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#dfe7ef"/>
  <stop offset="1" stop-color="#93a7bb"/></linearGradient>
<linearGradient id="dark" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#9aa8b8"/>
  <stop offset="1" stop-color="#56667a"/></linearGradient>
<linearGradient id="drop" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#8fd0ff"/>
  <stop offset="1" stop-color="#2b8be0"/></linearGradient>
<linearGradient id="bolt" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#ffe45c"/>
  <stop offset="1" stop-color="#ff9d0a"/></linearGradient>
"""


def svg(width, height, body, box=None):
    box = box or f"0 0 {width} {height}"
    return (f'<svg xmlns="http://www.w3.org/2000/svg" width="{width}" height="{height}" viewBox="{box}">'
            f"<defs>{GRADIENTS}</defs>{body}</svg>")


def rasterise(text):
    png = subprocess.run(["rsvg-convert", "-f", "png"], input=text.encode(), capture_output=True, check=True).stdout
    return Image.open(io.BytesIO(png)).convert("RGBA")


# Parts of the icons, on a field of 64 by 64.

def cloud(fill, move="0,0", scale=1.0):
    path = "M17 46 a11 11 0 0 1 -1.5 -21.9 a15.5 15.5 0 0 1 29.6 -2.6 a12.3 12.3 0 0 1 2.4 24.5 z"
    return f'<g transform="translate({move}) scale({scale})"><path d="{path}" fill="url(#{fill})"/></g>'


def sun(x, y, radius):
    rays = "".join(
        f'<line x1="0" y1="{-radius * 1.38:.2f}" x2="0" y2="{-radius * 1.86:.2f}" transform="rotate({angle})"/>'
        for angle in range(0, 360, 45))
    return (f'<g transform="translate({x},{y})"><g stroke="#ffb41f" stroke-width="{radius * .27:.2f}" '
            f'stroke-linecap="round">{rays}</g><circle r="{radius}" fill="url(#sun)"/></g>')


def drop(x, y, size=1.0):
    return (f'<path transform="translate({x},{y}) scale({size})" fill="url(#drop)" '
            'd="M0 -6.5 C2.4 -2.6 4 -.6 4 1.9 A4 4 0 0 1 -4 1.9 C-4 -.6 -2.4 -2.6 0 -6.5 z"/>')


def flake(x, y, radius):
    arm = (f'<path d="M0 0 V{-radius} M{-radius * .32:.2f} {-radius * .86:.2f} L0 {-radius * .54:.2f} '
           f'L{radius * .32:.2f} {-radius * .86:.2f}"/>')
    arms = "".join(f'<g transform="rotate({angle})">{arm}</g>' for angle in range(0, 360, 60))
    return (f'<g transform="translate({x},{y})" stroke="#7cc4f5" stroke-width="1.7" stroke-linecap="round" '
            f'stroke-linejoin="round" fill="none">{arms}</g>')


def star(x, y, size):
    return (f'<path transform="translate({x},{y}) scale({size})" fill="#fff3b8" '
            'd="M0 -4 Q.6 -.6 4 0 Q.6 .6 0 4 Q-.6 .6 -4 0 Q-.6 -.6 0 -4 z"/>')


def haze(y, left, right, colour):
    return f'<line x1="{left}" y1="{y}" x2="{right}" y2="{y}" stroke="{colour}" stroke-width="4.4" stroke-linecap="round"/>'


MOON = '<path d="M35 10 A22.5 22.5 0 1 0 54.5 40.5 A19 19 0 0 1 35 10 z" fill="url(#moon)"/>'

ICONS = {
    "sun": sun(32, 32, 14),
    "moon": MOON + star(46, 17, 1.25) + star(55, 28, .8),
    "partly": sun(40, 22, 10.5) + cloud("light", "0,10"),
    "cloud": cloud("grey", "20,2", .68) + cloud("light", "-1,11"),
    "rain": cloud("grey", "1,-4") + drop(20, 52.5) + drop(32.5, 57) + drop(45, 52.5),
    "snow": cloud("light", "1,-4") + flake(17.5, 52, 6.2) + flake(32.5, 56.5, 6.2) + flake(47.5, 52, 6.2),
    "storm": cloud("dark", "1,-4") + drop(17, 51.5, .85) + drop(48, 51.5, .85)
             + '<path d="M36 36 L24.5 50 H31.5 L27.5 62 L41.5 46 H34 L39 36 z" fill="url(#bolt)" '
               'stroke="#fff6d0" stroke-width=".8" stroke-linejoin="round"/>',
    "fog": cloud("grey", "1,-7") + haze(46, 10, 50, "#b9c7d6") + haze(53, 17, 55, "#9fb1c4") + haze(60, 12, 44, "#b9c7d6"),
}


def background(width, height):
    """A dusk sky over three rows of hills."""
    w, h = width, height

    def hills(base, rise, colour, shift):
        step = w / 2.6
        x, path = -step * shift, f"M{-step * shift:.1f} {h} V{base:.1f}"
        up = True
        while x < w:
            path += f" q{step / 2:.1f} {-rise if up else rise * .6:.1f} {step:.1f} 0"
            x, up = x + step, not up
        return f'<path d="{path} V{h} z" fill="{colour}"/>'

    body = f"""<defs><linearGradient id="sky" x1="0" y1="0" x2="0" y2="1">
      <stop offset="0" stop-color="#12244f"/><stop offset=".45" stop-color="#2f5a98"/>
      <stop offset=".72" stop-color="#86a7cf"/><stop offset=".86" stop-color="#f6c79a"/></linearGradient>
    <radialGradient id="glow"><stop offset="0" stop-color="#ffe9bd" stop-opacity=".95"/>
      <stop offset="1" stop-color="#ffd9a0" stop-opacity="0"/></radialGradient></defs>
    <rect width="{w}" height="{h}" fill="url(#sky)"/>
    <circle cx="{w * .7:.1f}" cy="{h * .8:.1f}" r="{h * .34:.1f}" fill="url(#glow)"/>
    {hills(h * .83, w * .07, '#6d86a8', .3)}{hills(h * .89, w * .06, '#435f83', .8)}{hills(h * .95, w * .05, '#223a5c', .1)}"""
    return svg(w, h, body)


GLYPHS = "0123456789:"


def digits(height):
    """One strip of eleven cells of the same width: the ten digits and the colon."""
    cell = round(height * .66)
    body = "".join(
        f'<text x="{(i + .5) * cell:.1f}" y="{height * .9:.1f}" text-anchor="middle" font-family="DejaVu Sans" '
        f'font-weight="200" font-size="{height * 1.12:.1f}" fill="#ffffff">{glyph}</text>'
        for i, glyph in enumerate(GLYPHS))
    return svg(cell * len(GLYPHS), height, body)


LOGO = f"""<defs><linearGradient id="tile" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#3a7bd5"/>
  <stop offset="1" stop-color="#1b3f86"/></linearGradient></defs>
<rect x="2" y="2" width="60" height="60" rx="14" fill="url(#tile)"/>
<circle cx="32" cy="32" r="22.5" fill="#f7faff"/>
<g stroke="#9db4d3" stroke-width="2" stroke-linecap="round">
{"".join(f'<line x1="32" y1="12.6" x2="32" y2="15.4" transform="rotate({a} 32 32)"/>' for a in range(0, 360, 30))}</g>
<g transform="translate(19.5,25.5) scale(.46)">{sun(40, 18, 10.5)}{cloud("grey", "0,6")}</g>
<g stroke="#17305f" stroke-linecap="round"><line x1="32" y1="32" x2="32" y2="18.5" stroke-width="2.6"/>
<line x1="32" y1="32" x2="23.5" y2="27" stroke-width="3.4"/></g><circle cx="32" cy="32" r="2.6" fill="#e8502f"/>"""

ALARM = """<g stroke="#24406f" stroke-width="4" stroke-linecap="round"><line x1="19" y1="52" x2="15" y2="57"/>
<line x1="45" y1="52" x2="49" y2="57"/></g>
<path d="M9 24 A10 10 0 0 1 23 11 z M55 24 A10 10 0 0 0 41 11 z" fill="#e8502f"/>
<circle cx="32" cy="35" r="21" fill="#24406f"/><circle cx="32" cy="35" r="16.5" fill="#f7faff"/>
<path d="M32 25 V35 L39 39.5" fill="none" stroke="#24406f" stroke-width="3.4" stroke-linecap="round" stroke-linejoin="round"/>"""

COMPASS = f"""<circle cx="32" cy="32" r="28" fill="#24406f"/><circle cx="32" cy="32" r="24" fill="#f7faff"/>
<g stroke="#9db4d3" stroke-width="2" stroke-linecap="round">
{"".join(f'<line x1="32" y1="11" x2="32" y2="{15 if a % 90 == 0 else 13}" transform="rotate({a} 32 32)"/>' for a in range(0, 360, 30))}</g>
<g transform="rotate(30 32 32)"><path d="M32 13 L38 32 H26 z" fill="#e8502f"/><path d="M32 51 L26 32 H38 z" fill="#8fa3bf"/></g>
<circle cx="32" cy="32" r="3" fill="#f7faff"/>"""

BATTERY = """<rect width="40" height="20" fill="#12244f"/><rect x="3" y="3.5" width="31" height="13" rx="3" fill="none" stroke="#dfe7ef" stroke-width="2"/>
<rect x="35.5" y="7.5" width="2.6" height="5" rx="1.2" fill="#dfe7ef"/><rect x="6" y="6.5" width="18" height="7" rx="1.4" fill="#57c26b"/>"""

WARNING = """<defs><linearGradient id="sign" x1="0" y1="0" x2="0" y2="1"><stop offset="0" stop-color="#ffd84d"/>
<stop offset="1" stop-color="#f79410"/></linearGradient></defs>
<path d="M32 8 L58 54 H6 z" fill="url(#sign)" stroke="#7a3b00" stroke-width="4" stroke-linejoin="round"/>
<path d="M34.5 19 L25 35.5 H31 L28 48 L40 31.5 H33.5 L37.5 19 z" fill="#3a2200"/>"""

SPLASH = svg(96, 96, f'<rect width="96" height="96" fill="#12244f"/><g transform="translate(16,16)">{LOGO}</g>')


def save(picture, name, **options):
    path = RES / name
    path.parent.mkdir(parents=True, exist_ok=True)
    picture.save(path, **options)


def flat(picture):
    """Without transparency, for the formats that have none."""
    field = Image.new("RGB", picture.size, "#12244f")
    field.paste(picture, mask=picture.getchannel("A"))
    return field


def gif(picture, name):
    """128 colours and one transparent index; a half transparent pixel becomes one or the other."""
    alpha = picture.getchannel("A")
    indexed = flat(picture).quantize(128, dither=Image.Dither.NONE)
    indexed.paste(255, mask=alpha.point(lambda value: 255 if value < 170 else 0))
    save(indexed, name, transparency=255, optimize=False)


def time_line(screen, text, height):
    strip = rasterise(digits(height))
    cell = strip.width // len(GLYPHS)
    left = (screen.width - cell * len(text)) // 2
    for place, glyph in enumerate(text):
        index = GLYPHS.index(glyph)
        screen.alpha_composite(strip.crop((index * cell, 0, (index + 1) * cell, height)), (left + place * cell, 26))


def preview(text, icon, row):
    """The clock's screen, half the size: what a shop shows of the application."""
    screen = rasterise(background(240, 320))
    time_line(screen, text, 62)
    screen.alpha_composite(rasterise(svg(104, 104, ICONS[icon], "0 0 64 64")), (68, 116))
    for place, name in enumerate(row):
        screen.alpha_composite(rasterise(svg(44, 44, ICONS[name], "0 0 64 64")), (16 + place * 55, 256))
    return flat(screen.resize((120, 160), Image.Resampling.LANCZOS))


def draw():
    for (width, height), (icon, digit) in SCREENS.items():
        folder = f"{width}x{height}"
        save(flat(rasterise(background(width, height))), f"{folder}/background.jpg", quality=82, optimize=True)
        save(rasterise(digits(digit)).convert("LA"), f"{folder}/digits.png", optimize=True)
        for name, body in ICONS.items():
            save(rasterise(svg(icon, icon, body, "0 0 64 64")), f"{folder}/{name}.png", optimize=True)
    gif(rasterise(svg(48, 48, LOGO, "0 0 64 64")), "common/logo.gif")
    save(rasterise(svg(32, 32, ALARM, "0 0 64 64")), "common/alarm.png", optimize=True)
    save(rasterise(svg(40, 40, COMPASS, "0 0 64 64")), "common/compass.png", optimize=True)
    save(flat(rasterise(svg(40, 20, BATTERY))).quantize(16, dither=Image.Dither.NONE), "common/battery.bmp")
    save(rasterise(svg(48, 48, WARNING, "0 0 64 64")), "common/warning.png", optimize=True)
    save(preview("10:08", "partly", ["sun", "cloud", "rain", "storm"]), "preview/day.png", optimize=True)
    save(preview("22:41", "moon", ["fog", "snow", "partly", "sun"]), "preview/night.jpg", quality=88, optimize=True)
    save(flat(rasterise(SPLASH)), "v1/splash.bmp")
    rasterise(svg(48, 48, LOGO, "0 0 64 64")).save(ART / "AppLogo.png", optimize=True)


def sheet(path):
    """Every picture twice its size or as it is, on one field."""
    pictures = [p for p in sorted(RES.rglob("*")) + [ART / "AppLogo.png"] if p.suffix in (".png", ".jpg", ".gif", ".bmp")]
    field = Image.new("RGBA", (1560, 1500), "#5b6b80")
    x = y = row = 8
    for source in pictures:
        picture = Image.open(source).convert("RGBA")
        if x + picture.width > field.width:
            x, y, row = 8, y + row + 8, 0
        field.alpha_composite(picture, (x, y))
        x, row = x + picture.width + 8, max(row, picture.height)
    field.crop((0, 0, field.width, min(field.height, y + row + 8))).save(path)


def main():
    arguments = argparse.ArgumentParser(description="Draws the pictures of the weather clock.")
    arguments.add_argument("--sheet", metavar="FILE.png", help="also make one sheet of all pictures")
    options = arguments.parse_args()
    draw()
    if options.sheet:
        sheet(options.sheet)


if __name__ == "__main__":
    main()
