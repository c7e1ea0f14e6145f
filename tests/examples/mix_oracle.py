#!/usr/bin/env python3
"""What the example mix should write, from exact rational arithmetic.

    mix_oracle.py make FOLDER                             recordings for mix_test.sh
    mix_oracle.py check MIX FIRST SECOND DB1 DB2 <REPORT  compares the file MIX and the printed report
"""
import array
import pathlib
import random
import re
import sys
import wave
from fractions import Fraction


def write(path, samples, rate=48000, channels=1, width=2):
    """Little-endian PCM; samples are integers of the given width in bytes."""
    with wave.open(str(path), "wb") as file:
        file.setnchannels(channels)
        file.setsampwidth(width)
        file.setframerate(rate)
        file.writeframes(b"".join(x.to_bytes(width, "little", signed=width > 1) for x in samples))


def make(folder):
    rng = random.Random(1)

    def noise(count):  # one sample in four is an extreme
        return [rng.choice([-32768, 32767, rng.randint(-32768, 32767), rng.randint(-999, 999)]) for _ in range(count)]

    write(folder / "long.wav", noise(20001))
    write(folder / "short.wav", noise(12345))
    write(folder / "block.wav", noise(4096))
    write(folder / "one.wav", [-32768])
    write(folder / "stereo1.wav", noise(2 * 5000), channels=2)
    write(folder / "stereo2.wav", noise(2 * 4097), channels=2)
    write(folder / "rate.wav", noise(100), rate=44100)
    write(folder / "8bit.wav", [128] * 100, width=1)
    write(folder / "24bit.wav", [-(2**23)] * 100, width=3)
    write(folder / "empty.wav", [])
    (folder / "text.wav").write_text("no recording\n")


def read(path):
    with wave.open(str(path), "rb") as file:
        if file.getsampwidth() != 2:
            sys.exit(f"{path} is not 16-bit")
        samples = array.array("h", file.readframes(file.getnframes()))
        return samples, (file.getframerate(), file.getnchannels())


def limit(x):
    return min(max(x, -32768), 32767)


def scaled(samples, decibels, length):
    """sample * gain, the gain a multiple of 2^-14, rounded to nearest, ties to even; silence at the end."""
    gain = round(10 ** (decibels / 20) * 2**14)
    return [round(Fraction(x * gain, 2**14)) for x in samples] + [0] * (length - len(samples))


def check(mix_path, first_path, second_path, decibels1, decibels2, report):
    first, layout = read(first_path)
    second, _ = read(second_path)
    length = max(len(first), len(second))
    a = scaled(first, decibels1, length)
    b = scaled(second, decibels2, length)
    expected = [limit(limit(x) + limit(y)) for x, y in zip(a, b)]
    clipped = sum(x + y != m for x, y, m in zip(a, b, expected))
    peak = max(abs(m) for m in expected)

    mix, mix_layout = read(mix_path)
    if mix_layout != layout:
        sys.exit(f"rate and channels are {mix_layout}, expected {layout}")
    if len(mix) != length:
        sys.exit(f"{len(mix)} samples, expected {length}")
    for i in range(length):
        if mix[i] != expected[i]:
            sys.exit(f"sample {i} is {mix[i]}, expected {expected[i]}")
    for name, value in (("peak", f"{peak} "), ("clipped samples", f"{clipped} +of {length}\n")):
        if not re.search(f"^{name} +{value}", report, re.MULTILINE):
            sys.exit(f"the report should say: {name} {value}\n{report}")
    print(f"{length} samples, peak {peak}, {clipped} clipped")


def main(arguments):
    match arguments:
        case ["make", folder]:
            make(pathlib.Path(folder))
        case ["check", mix, first, second, decibels1, decibels2]:
            check(mix, first, second, float(decibels1), float(decibels2), sys.stdin.read())
        case _:
            sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
