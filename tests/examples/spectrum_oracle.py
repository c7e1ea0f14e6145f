#!/usr/bin/env python3
"""What the example spectrum should print and draw, from a Fourier transform of its own in double precision.

    spectrum_oracle.py make FOLDER                   recordings for spectrum_test.sh
    spectrum_oracle.py check WAV ORDER STEP REPORT SCRIPT PICTURE
                                                     compares the printed report, what gnuplot was told to draw, and the
                                                     size of its picture; frames begin STEP samples apart
"""
import cmath
import math
import pathlib
import random
import re
import struct
import sys

from convert_oracle import FLOAT, PCM, floats, integers, pivot, read, write

LOWEST = -200  # dB
DRAWN = 120  # dB below the highest level; no peak is further down


def make(folder):
    rng = random.Random(1)

    def tones(count, *amplitudes_and_turns, noise=0.001):
        """Sines of so many turns a sample, and noise."""
        return [sum(a * math.sin(2 * math.pi * turns * i + 1) for a, turns in amplitudes_and_turns)
                + rng.uniform(-noise, noise) for i in range(count)]

    def pcm(samples, bits):
        return integers([round(x * (2 ** (bits - 1) - 1)) for x in samples], bits)

    def interleaved(*channels):
        return [x for frame in zip(*channels) for x in frame]

    # 0.025 turns a sample are 102.4 in a frame of 4096.
    five = tones(20001, (0.3, 0.025), (0.1, 0.1), (0.05, 0.2), (0.04, 0.33), (0.02, 0.41), (0.01, 0.47))
    write(folder / "five.wav", PCM, 16, pcm(five, 16))
    left, right = tones(9000, (0.5, 0.01), noise=0.2), tones(9000, (0.2, 0.3), (0.25, 0.06))
    write(folder / "stereo24.wav", PCM, 24, pcm(interleaved(left, right), 24), rate=44100, channels=2)
    three = [tones(4100, (a, turns), noise=0.3) for a, turns in ((2, 0.11), (0.7, 0.22), (0, 0))]
    write(folder / "beyond.wav", FLOAT, 32, floats(interleaved(*three)), rate=96000, channels=3)
    write(folder / "frame.wav", PCM, 16, pcm(tones(4096, (0.5, 0.01)), 16))
    write(folder / "short.wav", PCM, 16, pcm(tones(4095, (0.5, 0.1), (0.1, 0.3)), 16), rate=8000)
    # Known without any transform: a sine of half of full scale at the 100th frequency of 2048, and a constant.
    half = [0.5 * math.sin(2 * math.pi * 100 / 4096 * i) for i in range(8192)]
    write(folder / "half.wav", FLOAT, 32, floats(half), rate=40960)
    write(folder / "constant.wav", FLOAT, 32, floats([0.5] * 4096))
    write(folder / "silence.wav", PCM, 16, bytes(2 * 5000))
    write(folder / "empty.wav", PCM, 16, b"")
    (folder / "text.wav").write_text("no recording\n")


# ---- What spectrum should do


def transform(x):
    """The discrete Fourier transform of 2^n values, by halving."""
    n = len(x)
    if n == 1:
        return x
    even, odd = transform(x[::2]), transform(x[1::2])
    turned = [cmath.exp(-2j * cmath.pi * k / n) * odd[k] for k in range(n // 2)]
    return [e + t for e, t in zip(even, turned)] + [e - t for e, t in zip(even, turned)]


def mean_powers(channels, length, step):
    """Of sines at the frequencies 0 to length / 2, in units of a sine of full scale, over all whole frames."""
    powers = [0.0] * (length // 2 + 1)
    starts = range(0, len(channels[0]) - length + 1, step)
    for channel in channels:
        for start in starts:
            spectrum = transform(channel[start : start + length])
            for k in range(length // 2 + 1):
                amplitude = abs(spectrum[k]) / length * (1 if k in (0, length // 2) else 2)
                powers[k] += amplitude**2 / len(starts) / len(channels)
    return powers, len(starts)


def decibels(power):
    return max(LOWEST, 10 * math.log10(power)) if power > 0 else LOWEST


def strongest(levels, spacing):
    """Vertices of parabolas, the highest first."""
    peaks = []
    for k in range(1, len(levels) - 1):
        a, b, c = levels[k - 1 : k + 2]
        if a < b >= c and b > max(levels) - DRAWN:
            vertex = (a - c) / (a - 2 * b + c) / 2
            peaks.append(((k + vertex) * spacing, b - (a - c) * vertex / 4))
    return sorted(peaks, key=lambda peak: -peak[1])[:5]


# ---- What it did


def require(holds, what):
    if not holds:
        sys.exit(what)


def block(script, name):
    """The rows of numbers that the script of gnuplot has under a name."""
    found = re.search(rf"^\${name} << end\n(.*?)^end$", script, re.MULTILINE | re.DOTALL)
    require(found, f"the script has no ${name}")
    return [tuple(map(float, row.split())) for row in found[1].splitlines()]


def check_peaks(found, expected, spacing, what):
    require(len(found) == len(expected), f"{what}: {found}, expected {expected}")
    for (frequency, level), (right_frequency, right_level) in zip(found, expected):
        require(abs(frequency - right_frequency) < 0.005 + spacing / 500 and abs(level - right_level) < 0.006,
                f"{what}: {frequency} Hz {level} dB, expected {right_frequency} Hz {right_level} dB")


def check(recording, order, step, report, script, picture):
    _, _, rate, width, _ = read(recording)
    samples = pivot(recording)
    length = 2**order
    spacing = rate / length
    powers, frames = mean_powers([samples[c::width] for c in range(width)], length, step)
    levels = [decibels(power) for power in powers]
    peaks = strongest(levels, spacing) if max(powers) > 0 else []

    drawn = block(script, "spectrum")
    require(len(drawn) == len(levels), f"{len(drawn)} levels, expected {len(levels)}")
    most = max(powers)
    for k, (frequency, level) in enumerate(drawn):
        require(abs(frequency - k * spacing) < 1e-4, f"level {k} is drawn at {frequency} Hz")
        # Rounding leaves an error of about 2^-24 of the strongest sine.
        error = abs(10 ** (level / 20) - 10 ** (levels[k] / 20))
        require(error <= 1e-4 * 10 ** (levels[k] / 20) + 2**-22 * most**0.5 + 10 ** (LOWEST / 20) / 100,
                f"level {k} is {level} dB, expected {levels[k]}")
    check_peaks(block(script, "peaks"), peaks, spacing, "drawn")

    printed = re.findall(r"^peak +([\d.]+) Hz +(-?[\d.]+) dB of full scale$", report, re.MULTILINE)
    check_peaks([(float(frequency), float(level)) for frequency, level in printed], peaks, spacing, "printed")
    for line in (rf"frames +{frames} +of {length} samples, frequencies {spacing:.2f} Hz apart",
                 r"processing +[\d.]+ us per second of audio") + (() if peaks else ("no peaks",)):
        require(re.search(f"^{line}$", report, re.MULTILINE), f"the report should say: {line}\n{report}")

    head = struct.unpack(">8s4x4sII", picture[:24])
    require(head == (b"\x89PNG\r\n\x1a\n", b"IHDR", 1200, 600), f"the picture begins with {head}")
    print(f"{frames} frames, {len(peaks)} peaks" + (", the highest {:.2f} Hz {:.2f} dB".format(*peaks[0]) if peaks else ""))


def main(arguments):
    match arguments:
        case ["make", folder]:
            make(pathlib.Path(folder))
        case ["check", recording, order, step, report, script, picture]:
            report, script = (pathlib.Path(path).read_text() for path in (report, script))
            check(recording, int(order), int(step), report, script, pathlib.Path(picture).read_bytes())
        case _:
            sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
