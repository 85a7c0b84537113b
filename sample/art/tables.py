#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Works out the binary tables of the weather clock into ../res/data. They are committed.

weather_codes.bin   "WXC1", count (16 bits), then for each code of a weather report (WMO 4677) two bytes: code, condition
sun_times.bin       "SUN1", first latitude (signed byte), step, number of latitudes, number of months (a byte each), then for
                    each latitude and month two 16-bit numbers: sunrise and sunset in minutes of the local solar day; both 0
                    where the sun doesn't rise or doesn't set in the middle of that month
All numbers little-endian. A condition is an index: 0 clear, 1 partly cloudy, 2 cloudy, 3 fog, 4 rain, 5 snow, 6 storm.
"""

import math
import pathlib
import struct

OUT = pathlib.Path(__file__).resolve().parent.parent / "res" / "data"

CODES = {0: 0, 1: 0, 2: 1, 3: 2, 45: 3, 48: 3, 51: 4, 53: 4, 55: 4, 56: 4, 57: 4, 61: 4, 63: 4, 65: 4, 66: 4, 67: 4, 71: 5,
         73: 5, 75: 5, 77: 5, 80: 4, 81: 4, 82: 4, 85: 5, 86: 5, 95: 6, 96: 6, 99: 6}
LATITUDES = range(-60, 75, 15)
MID_MONTH = (15, 46, 74, 105, 135, 166, 196, 227, 258, 288, 319, 349)


def sun_times(latitude, day):
    """Minutes of sunrise and sunset, with 50 minutes of arc for refraction and the sun's radius."""
    tilt = math.radians(23.44) * math.sin(2 * math.pi * (day - 81) / 365)
    phi = math.radians(latitude)
    cosine = (math.sin(math.radians(-5 / 6)) - math.sin(phi) * math.sin(tilt)) / (math.cos(phi) * math.cos(tilt))
    if not -1 < cosine < 1:
        return 0, 0
    half = math.degrees(math.acos(cosine)) * 4
    return round(720 - half), round(720 + half)


OUT.mkdir(parents=True, exist_ok=True)
(OUT / "weather_codes.bin").write_bytes(
    b"WXC1" + struct.pack("<H", len(CODES)) + b"".join(struct.pack("BB", *pair) for pair in sorted(CODES.items())))
(OUT / "sun_times.bin").write_bytes(
    b"SUN1" + struct.pack("<bBBB", LATITUDES[0], LATITUDES.step, len(LATITUDES), len(MID_MONTH))
    + b"".join(struct.pack("<HH", *sun_times(latitude, day)) for latitude in LATITUDES for day in MID_MONTH))
