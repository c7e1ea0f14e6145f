#!/usr/bin/env python3
"""What the example filter should write, print and draw, from sums and a Fourier transform in double precision.

    filter_oracle.py make FOLDER                    recordings and taps for filter_test.sh
    filter_oracle.py check FOLDER ARGUMENT...       compares filtered.wav, before.wav, report, script and filter.png in
                                                    FOLDER with what the arguments of the program ask for
    filter_oracle.py progress PROGRAM ARGUMENT...   runs the program with its standard error on a terminal and checks
                                                    what it shows there
"""
import argparse
import math
import operator
import os
import pathlib
import random
import re
import struct
import subprocess
import sys

from convert_oracle import ALAW, FLOAT, PCM, floats, integers, pivot, read, write
from spectrum_oracle import block, decibels, require, transform

BLOCK = 512
FRAME = 4096
SOUNDS = "/usr/share/sounds/alsa/"


def make(folder):
    rng = random.Random(1)

    def pcm(bits, count):  # loud noise, a sine, and an extreme now and then
        top = 2 ** (bits - 1) - 1
        return integers([rng.choice([~top, top]) if rng.random() < 0.001 else
                         round(top * (0.3 * math.sin(0.02 * i) + rng.uniform(-0.5, 0.5))) for i in range(count)], bits)

    write(folder / "mono16.wav", PCM, 16, pcm(16, 5000))
    write(folder / "stereo16.wav", PCM, 16, pcm(16, 2 * 9000), rate=44100, channels=2)
    write(folder / "mono24.wav", PCM, 24, pcm(24, 4500))
    write(folder / "stereo24.wav", PCM, 24, pcm(24, 2 * 6000), rate=96000, channels=2)
    write(folder / "beyond.wav", FLOAT, 32, floats([rng.uniform(-2, 2) for _ in range(3 * 2100)]), channels=3)
    write(folder / "stereofloat.wav", FLOAT, 32, floats([rng.uniform(-0.9, 0.9) for _ in range(2 * 4097)]), channels=2)
    write(folder / "8bit.wav", PCM, 8, pcm(8, 1000), rate=8000)
    write(folder / "alaw.wav", ALAW, 8, rng.randbytes(1000), rate=8000)
    write(folder / "32bit.wav", PCM, 32, pcm(32, 1000), rate=11025)
    for count in (1, BLOCK - 1, BLOCK, BLOCK + 1, FRAME, FRAME + FRAME // 2):
        write(folder / f"{count}.wav", PCM, 16, pcm(16, count))
    write(folder / "silence.wav", PCM, 16, bytes(2 * 3000))
    write(folder / "minute.wav", PCM, 16, pcm(16, 1000) * 488, rate=8000)  # 61 s
    write(folder / "empty.wav", PCM, 16, b"")
    (folder / "text.wav").write_text("no recording\n")

    def taps(name, values):
        (folder / name).write_text("".join(f"{x!r}\n" for x in values))

    half = [rng.uniform(-0.1, 0.1) for _ in range(40)]
    taps("any.txt", [rng.uniform(-0.1, 0.1) for _ in range(77)])
    taps("even.txt", half + half[::-1])
    taps("odd.txt", half + [0.0] + [-x for x in half[::-1]])
    (folder / "written.txt").write_bytes(b"\n 0.25\r\n+5e-1  \n\n.25")
    (folder / "none.txt").write_text("\n\n")
    (folder / "word.txt").write_text("0.5\n0.5 0.5\n")
    (folder / "huge.txt").write_text("1e39\n")


# ---- What filter should do


def parse(arguments):
    parser = argparse.ArgumentParser()
    parser.add_argument("recording", nargs="?")
    for option in ("--bandpass", "--lowpass", "--taps", "--taps-file", "--noise"):
        parser.add_argument(option)
    parser.add_argument("--length", type=int, default=511)
    parser.add_argument("--stop", type=float, default=60)
    parser.add_argument("--noise-gain", type=float, default=-12)
    parser.add_argument("--keep-delay", action="store_true")
    options = parser.parse_args(arguments)
    if not options.recording:
        options.recording = SOUNDS + "Front_Center.wav"
        options.noise = options.noise or SOUNDS + "Noise.wav"
    return options


def single(values):
    """Rounded to 32-bit floats."""
    return list(struct.unpack(f"<{len(values)}f", floats(values)))


INVERSE_SQUARES = [math.factorial(k) ** -2.0 for k in range(60)]


def bessel(x):
    return sum((x * x / 4) ** k * inverse for k, inverse in enumerate(INVERSE_SQUARES))


def kaiser(stop, half):
    beta = 0.1102 * (stop - 8.7) if stop > 50 else 0.5842 * (stop - 21) ** 0.4 + 0.07886 * (stop - 21)
    right = [bessel(beta * math.sqrt(1 - (k / half) ** 2)) / bessel(beta) for k in range(half + 1)]
    return right[:0:-1] + right


def taps_of(options, rate):
    if options.taps_file:
        return single([float(line) for line in pathlib.Path(options.taps_file).read_text().split()])
    if options.taps:
        return single([float(tap) for tap in options.taps.split(",")])
    low, high = 0, 0
    if options.lowpass:
        high = float(options.lowpass) / rate
    else:
        low, high = (float(edge) / rate for edge in (options.bandpass or "300,3400").split(","))

    def sinc(edge, k):
        return 2 * edge if k == 0 else math.sin(2 * math.pi * edge * k) / (math.pi * k)

    half = options.length // 2
    taps = [(sinc(high, k) - sinc(low, k)) * w for k, w in enumerate(kaiser(options.stop, half), -half)]
    middle = (low + high) / 2 if low else 0
    gain = sum(tap * math.cos(2 * math.pi * middle * (k - half)) for k, tap in enumerate(taps))
    return single([tap / gain for tap in taps])


def delay_of(taps):
    symmetric = taps == taps[::-1] or taps == [-tap for tap in taps[::-1]]
    return (len(taps) - 1) // 2 if symmetric else 0


def limited(x, bits):
    top = 2 ** (bits - 1) - 1
    return min(max(x, ~top), top)


def mixed(options, samples, is_short):
    if not options.noise:
        return samples
    gain = single([10 ** (options.noise_gain / 20)])[0]
    noise = single([x * gain for x in pivot(options.noise)])[: len(samples)]
    noise += [0.0] * (len(samples) - len(noise))
    if not is_short:
        return single([x + y for x, y in zip(samples, noise)])
    return [limited(round(x * 2**15) + limited(round(y * 2**15), 16), 16) / 2**15 for x, y in zip(samples, noise)]


def convolved(x, taps, delay):
    """Output n + delay of the filter, for every n of the recording."""
    padded = [0.0] * (len(taps) - 1) + x + [0.0] * delay
    reverse = taps[::-1]
    return [sum(map(operator.mul, padded[n + delay : n + delay + len(taps)], reverse)) for n in range(len(x))]


def mean_powers(before, after):
    """Of both, at FRAME / 2 + 1 frequencies, in units of a sine of full scale; frames overlap by half."""
    hann = [0.5 - 0.5 * math.cos(2 * math.pi * i / FRAME) for i in range(FRAME)]
    unit = 2 / (3 / 8 * FRAME * FRAME)
    powers = [0.0] * (FRAME // 2 + 1), [0.0] * (FRAME // 2 + 1)
    count = len(before[0])
    starts = range(0, max(1, count - FRAME // 2), FRAME // 2)
    for x, y in zip(before, after):
        for start in starts:
            frame = [w * complex(*z) for w, *z in zip(hann, x[start : start + FRAME], y[start : start + FRAME])]
            z = transform(frame + [0j] * (FRAME - len(frame)))  # one transform for two real signals
            for k in range(FRAME // 2 + 1):
                mirror = z[-k].conjugate()
                paired = 1 if k in (0, FRAME // 2) else 2
                powers[0][k] += abs((z[k] + mirror) / 2) ** 2 * paired * unit / len(starts) / len(before)
                powers[1][k] += abs((z[k] - mirror) / 2) ** 2 * paired * unit / len(starts) / len(before)
    return powers


def bands_of(powers, rate):
    edges = [0.0, 125.0]
    while edges[-1] < rate / 2:
        edges.append(edges[-1] * 2)
    edges[-1] = rate / 2
    place = [k * rate / FRAME for k in range(len(powers[0]))]
    place[-1] = math.nextafter(rate / 2, 0)  # the last frequency belongs to the last band
    return [(low, high, *(sum(p for p, f in zip(side, place) if low <= f < high) for side in powers))
            for low, high in zip(edges, edges[1:])]


# ---- What it did


def close(level, power, most):
    """Rounding to floats leaves an error of about 2^-24 of the strongest sine."""
    right = math.sqrt(power)
    return abs(10 ** (level / 20) - right) <= 0.007 * right + 2**-21 * math.sqrt(most) + 1e-10


def written(x, bits):
    """A sample, rounded and limited as a file of so many bits holds it; 32 stands for floats."""
    return x if bits == 32 else limited(round(x * 2 ** (bits - 1)), bits) / 2 ** (bits - 1)


def check_samples(found, expected, bits, allowed):
    """allowed: error of the sums; rounding them comes on top. Without error, nothing is allowed."""
    allowed += 2.0**-bits if allowed and bits < 32 else 0
    for n, (y, right) in enumerate(zip(found, expected)):
        nearest = written(right, bits)
        right = nearest if not allowed or abs(nearest) > 1 - 2 ** (2 - bits) else right  # limited, perhaps
        require(abs(y - right) <= allowed, f"sample {n} is {y!r}, expected {right!r}")


def check(folder, arguments):
    options = parse(arguments)
    tag, bits, rate, width, _ = read(options.recording)
    kept = tag == PCM and bits in (16, 24)
    layout = [tag, bits, rate, width] if kept else [FLOAT, 32, rate, width]
    mix = mixed(options, list(pivot(options.recording)), kept and bits == 16)
    taps = taps_of(options, rate)
    delay = delay_of(taps)

    found = {}
    for name in ("before", "filtered"):
        *got, _ = read(folder / f"{name}.wav")
        found[name] = list(pivot(folder / f"{name}.wav"))
        require(got == layout, f"{name}.wav: format tag, bits, rate, channels are {got}, expected {layout}")
        require(len(found[name]) == len(mix), f"{name}.wav: {len(found[name])} samples, expected {len(mix)}")
    require(found["before"] == [written(x, layout[1]) for x in mix], "before.wav is not what goes into the filter")
    error = 0 if taps == [1.0] else 2**-21 * sum(map(abs, taps)) * max(map(abs, mix))
    before, after = [mix[c::width] for c in range(width)], []
    for x, y in zip(before, [found["filtered"][c::width] for c in range(width)]):
        right = convolved(x, taps, 0 if options.keep_delay else delay)
        check_samples(y, right, layout[1], error)
        after.append(y if layout[1] == 16 else right)  # only sums of 16 bits are limited before their spectrum is taken

    powers = mean_powers(before, after)
    most = max(map(max, powers))
    drawn = block((folder / "script").read_text(), "spectra")
    require(len(drawn) == FRAME // 2 + 1, f"{len(drawn)} levels are drawn")
    for k, (frequency, *levels) in enumerate(drawn):
        require(abs(frequency - k * rate / FRAME) < 1e-4, f"level {k} is drawn at {frequency} Hz")
        for level, side in zip(levels, powers):
            require(close(level, side[k], most), f"at {frequency} Hz {level} dB is drawn, not {decibels(side[k])}")

    report = (folder / "report").read_text()
    table = re.findall(r"^ *([\d.]+) to +([\d.]+) Hz +(-?[\d.]+) dB +(-?[\d.]+) dB +([+-][\d.]+) dB$", report, re.M)
    bands = bands_of(powers, rate)
    require(len(table) == len(bands), f"{len(table)} bands, expected {len(bands)}:\n{report}")
    for row, (low, high, *sides) in zip(table, bands):
        low_printed, high_printed, *levels, change = map(float, row)
        require(abs(low_printed - low) <= 1e-5 * low and abs(high_printed - high) <= 1e-5 * high
                and all(close(level, power, most) for level, power in zip(levels, sides))
                and abs(levels[1] - levels[0] - change) < 0.11,
                f"band {row}, expected {low} to {high} Hz, {decibels(sides[0])} dB, {decibels(sides[1])} dB")

    top = 1 - 2.0 ** (1 - bits) if kept else 1
    at_limit = sum(not -1 < y < top for y in found["filtered"])
    blocks = -(-(len(before[0]) + (0 if options.keep_delay else delay)) // BLOCK) * width
    lines = [rf"recording +{len(before[0]) / rate:.3f} s +\S+ .*\({rate} Hz, {width} channels?\)",
             rf"filter +{len(taps)} taps?\b.*",
             rf"speed +\d+ times real time: {blocks} calls of "
             + ("orvsFIR32f_16s_Sfs" if kept and bits == 16 else "orvsFIR_32f") + rf" for {BLOCK} samples each .*"]
    fate = "kept" if options.keep_delay else "taken back"
    absent = []
    (lines if delay else absent).append(rf"delay +{delay} samples, {1000 * delay / rate:.2f} ms, {fate}")
    (lines if at_limit else absent).append(rf"full scale +reached by {at_limit} of {len(mix)} samples")
    (lines if options.noise else absent).append(rf"noise +[+]?{options.noise_gain:.2f} dB  {options.noise}")
    for line in lines:
        require(re.search(f"^{line}$", report, re.M), f"the report should say: {line}\n{report}")
    for line in absent:
        word = line.split(" +")[0]
        require(not re.search(f"^{word} ", report, re.M), f"the report should not speak of {word}\n{report}")

    head = struct.unpack(">8s4x4sII", (folder / "filter.png").read_bytes()[:24])
    require(head == (b"\x89PNG\r\n\x1a\n", b"IHDR", 1200, 600), f"the picture begins with {head}")
    print(f"{len(mix)} samples, {len(taps)} taps, {at_limit} at full scale")


def progress(command):
    controller, terminal = os.openpty()
    with subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=terminal) as process:
        os.close(terminal)
        shown = b""
        try:
            while piece := os.read(controller, 4096):
                shown += piece
        except OSError:  # the program has closed its end
            pass
    require(process.returncode == 0, f"exit code {process.returncode}")
    steps = [int(percent) for percent in re.findall(rb"\rfiltering +(\d+) %", shown)]
    require(steps == sorted(set(steps)) and len(steps) > 50 and steps[-1] < 100, f"shown: {shown}")
    require(re.search(rb"%\r +\r$", shown), f"the line is left on the terminal: {shown[-40:]}")
    print(f"{len(steps)} steps")


def main(arguments):
    match arguments:
        case ["make", folder]:
            make(pathlib.Path(folder))
        case ["check", folder, *rest]:
            check(pathlib.Path(folder), rest)
        case ["progress", *command] if command:
            progress(command)
        case _:
            sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
