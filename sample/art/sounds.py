#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Synthesises the sounds of the weather clock into ../res/sound: 16 bit, mono, 8 kHz. They are committed."""

import math
import pathlib
import struct
import wave

OUT = pathlib.Path(__file__).resolve().parent.parent / "res" / "sound"
RATE = 8000


def bell(frequency, seconds, level):
    """A struck bar: partials that aren't in tune with each other, the high ones dying first."""
    partials = ((1.0, 1.0, 3.5), (2.76, .35, 7.0), (5.40, .12, 13.0))
    samples = []
    for n in range(int(RATE * seconds)):
        t = n / RATE
        attack = min(1.0, t / .004)
        samples.append(level * attack * sum(
            strength * math.exp(-decay * t) * math.sin(2 * math.pi * frequency * ratio * t)
            for ratio, strength, decay in partials if frequency * ratio < RATE / 2))
    return samples


def beep(frequency, seconds, level):
    """A tone with soft edges of 6 ms."""
    count = int(RATE * seconds)
    edge = RATE * .006
    return [level * min(1.0, n / edge, (count - 1 - n) / edge)
            * (math.sin(2 * math.pi * frequency * n / RATE) + .25 * math.sin(6 * math.pi * frequency * n / RATE))
            for n in range(count)]


def mix(length, *parts):
    """Lays parts, each a start in seconds and its samples, over one another; the last 20 ms fade to silence."""
    track = [0.0] * int(RATE * length)
    for start, samples in parts:
        first = int(RATE * start)
        for n, value in enumerate(samples[:len(track) - first]):
            track[first + n] += value
    fade = RATE // 50
    for n in range(fade):
        track[-1 - n] *= n / fade
    return track


def save(name, samples):
    OUT.mkdir(parents=True, exist_ok=True)
    with wave.open(str(OUT / name), "wb") as sound:
        sound.setnchannels(1)
        sound.setsampwidth(2)
        sound.setframerate(RATE)
        sound.writeframes(b"".join(struct.pack("<h", round(32000 * max(-1.0, min(1.0, v)))) for v in samples))


save("chime.wav", mix(1.2, (0, bell(783.99, 1.2, .38)), (.28, bell(659.26, .9, .34)), (.56, bell(1046.5, .64, .30))))
save("alarm.wav", mix(.8, *[(start, beep(1318.5, .09, .5)) for start in (0, .14, .28)], (.42, beep(1568.0, .2, .5))))
save("tick.wav", mix(.06, (0, bell(2093.0, .06, .4))))
save("thunder_push.wav", mix(.9, (0, beep(440.0, .25, .45)), (.3, beep(349.23, .25, .45)), (.6, beep(440.0, .28, .45))))
