#!/usr/bin/env python3
"""Writes the program's two sounds: short decaying tones, 44.1 kHz, 16 bit, mono."""
import math
import pathlib
import struct
import wave

RATE = 44100


def tone(seconds, partials, decay, attack=0.002):
    """Samples of `partials` (frequency in Hz at the start and the end, loudness), fading by `decay` per second."""
    samples = []
    phases = [0.0] * len(partials)
    for i in range(int(seconds * RATE)):
        t = i / RATE
        value = 0.0
        for k, (start, end, loudness) in enumerate(partials):
            phases[k] += 2 * math.pi * (start + (end - start) * t / seconds) / RATE
            value += loudness * math.sin(phases[k])
        release = min(1.0, (seconds - t) / 0.01)
        samples.append(value * math.exp(-decay * t) * min(1.0, t / attack) * release)
    return samples


def write(name, samples):
    path = pathlib.Path(__file__).with_name(name + ".wav")
    with wave.open(str(path), "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(b"".join(struct.pack("<h", int(32767 * max(-1.0, min(1.0, s)))) for s in samples))


write("Pop", tone(0.11, [(420, 760, 0.5), (840, 1520, 0.12)], decay=28))
write("Tink", tone(0.32, [(2090, 2090, 0.28), (4180, 4180, 0.12), (6290, 6290, 0.05)], decay=14))
