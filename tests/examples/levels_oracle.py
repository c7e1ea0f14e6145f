#!/usr/bin/env python3
"""What the example levels should print, from sums that are rounded once.

    levels_oracle.py make FOLDER                recordings for levels_test.sh
    levels_oracle.py check RECORDING <REPORT    compares the printed report
"""
import math
import pathlib
import random
import re
import sys

from convert_oracle import FLOAT, PCM, floats, integers, pivot, read, write


def make(folder):
    rng = random.Random(1)

    def interleaved(*channels):
        return [x for frame in zip(*channels) for x in frame]

    def noise(count, bits):
        top = 2 ** (bits - 1) - 1
        return [rng.randint(~top // 2, top // 2) for _ in range(count)]

    def sine(count, amplitude, turns):
        return [round(amplitude * math.sin(2 * math.pi * turns * i)) for i in range(count)]

    write(folder / "mono16.wav", PCM, 16, integers(noise(20001, 16), 16))
    write(folder / "stereo24.wav", PCM, 24, integers(interleaved(noise(9000, 24), noise(9000, 24)), 24), rate=44100,
          channels=2)
    write(folder / "mono8.wav", PCM, 8, integers(noise(4096, 8), 8), rate=8000)
    loud = [rng.uniform(-3, 3) + 0.5 for _ in range(3 * 4100)]
    write(folder / "beyond.wav", FLOAT, 32, floats(loud), rate=96000, channels=3)

    left = sine(8192, 30000, 1 / 64)
    write(folder / "mono.wav", PCM, 16, integers(interleaved(left, [x // 2 for x in left]), 16), channels=2)
    write(folder / "opposed.wav", PCM, 16, integers(interleaved(left, [-x for x in left]), 16), channels=2)
    write(folder / "one_sided.wav", PCM, 16, integers(interleaved(left, [0] * len(left)), 16), channels=2)
    write(folder / "offset.wav", PCM, 16, integers([x // 100 + 20000 for x in left], 16))
    write(folder / "silence.wav", PCM, 16, bytes(2 * 5000))
    # Two peaks of one magnitude, of which the first counts.
    write(folder / "tie1.wav", PCM, 16, integers([0, -16384, 16384, -16384, 9], 16))
    write(folder / "tie2.wav", PCM, 16, integers([0, 16384, 3, -16384, 16384, 9], 16))
    write(folder / "lowest.wav", PCM, 16, integers([32767, -32768], 16))
    write(folder / "single.wav", PCM, 16, integers([1], 16))
    write(folder / "empty.wav", PCM, 16, b"")
    (folder / "text.wav").write_text("no recording\n")


# ---- What it should print


def decibels(ratio):
    return 20 * math.log10(ratio) if ratio > 0 else -math.inf


def levels(x, rate):
    """The numbers of a line; the products of two floats are exact."""
    n = len(x)
    peak = max(map(abs, x))
    at = next(i for i in range(n) if abs(x[i]) == peak)
    mean = math.fsum(x) / n
    rms = math.sqrt(math.fsum(a * a for a in x) / n)
    deviation = math.sqrt(math.fsum((a - mean) ** 2 for a in x) / (n - 1))
    crest = decibels(peak / rms) if rms > 0 else None
    return [decibels(peak), at / rate, mean, decibels(rms), crest, deviation]


def correlation(a, b):
    scale = math.sqrt(math.fsum(x * x for x in a) * math.fsum(y * y for y in b))
    return math.fsum(x * y for x, y in zip(a, b)) / scale if scale > 0 else None


# ---- What it did


def require(holds, what):
    if not holds:
        sys.exit(what)


def agrees(text, value, digits):
    """With one unit of the last digit for a value near the middle of two."""
    if value is None:
        return text == "-"
    if not re.fullmatch(rf"[-+]?(inf|\d+\.\d{{{digits}}})", text):
        return False
    return float(text) == value or abs(float(text) - value) < 0.5001 * 10**-digits


def check(recording, report):
    _, _, rate, width, _ = read(recording)
    samples = pivot(recording)
    channels = [samples[c::width] for c in range(width)]
    length = len(channels[0])

    head = rf"recording +{length / rate:.3f} s  .*\({rate} Hz, {width} channel{'s' if width > 1 else ''}\)"
    require(re.search(f"^{head}$", report, re.MULTILINE), f"the report should begin with: {head}\n{report}")
    lines = re.findall(r"^(\d+) +(\S+) dB +(\S+) s +(\S+) +(\S+) dB +(\S+)(?: dB)? +(\S+)$", report, re.MULTILINE)
    require([int(line[0]) for line in lines] == list(range(1, width + 1)), f"wrong lines of channels\n{report}")
    for line, channel in zip(lines, channels):
        for text, value, digits in zip(line[1:], levels(channel, rate), (2, 4, 6, 2, 2, 6)):
            require(agrees(text, value, digits), f"channel {line[0]}: {text}, expected {value}\n{report}")
    found = re.findall(r"^correlation (\S+)$", report, re.MULTILINE)
    require(len(found) == (width == 2), f"wrong number of correlations\n{report}")
    if width == 2:
        require(agrees(found[0], correlation(*channels), 4), f"correlation {found[0]}, expected {correlation(*channels)}")
    print(f"{width} channels of {length} samples, peak {lines[0][1]} dB" + (f", correlation {found[0]}" if found else ""))


def main(arguments):
    match arguments:
        case ["make", folder]:
            make(pathlib.Path(folder))
        case ["check", recording]:
            check(recording, sys.stdin.read())
        case _:
            sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
