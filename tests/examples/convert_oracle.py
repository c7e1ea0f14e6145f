#!/usr/bin/env python3
"""What the example convert should write, from exact rational arithmetic and the intervals of ITU-T G.711.

    convert_oracle.py make FOLDER                recordings for convert_test.sh
    convert_oracle.py check INPUT FORMAT ...     compares FORMAT.out, made of the WAV file INPUT, and the printed report
                                                 FORMAT.report
"""
import ctypes
import pathlib
import random
import re
import struct
import sys
from bisect import bisect_right
from fractions import Fraction

PCM, FLOAT, ALAW, MULAW = 1, 3, 6, 7  # the format tags of WAV files
FORMATS = {"s16": (PCM, 16), "s24": (PCM, 24), "float": (FLOAT, 32), "alaw": (ALAW, 8), "mulaw": (MULAW, 8)}


# ---- WAV files


def write(path, tag, bits, data, rate=48000, channels=1):
    frame = channels * bits // 8
    chunks = b"fmt " + struct.pack("<IHHIIHH", 16, tag, channels, rate, rate * frame, frame, bits)
    chunks += b"data" + struct.pack("<I", len(data)) + data + b"\0" * (len(data) % 2)
    path.write_bytes(b"RIFF" + struct.pack("<I", 4 + len(chunks)) + b"WAVE" + chunks)


def read(path):
    """Format tag, bits, rate, channels and bytes of the samples; every number of the header has to agree."""

    def require(holds, what):
        if not holds:
            sys.exit(f"{path}: wrong {what}")

    content = pathlib.Path(path).read_bytes()
    riff, size, wave = struct.unpack("<4sI4s", content[:12])
    require(riff == b"RIFF" and wave == b"WAVE" and size == len(content) - 8, "RIFF header")
    chunks = {}
    at = 12
    while at < len(content):
        name, size = struct.unpack("<4sI", content[at : at + 8])
        require(name not in chunks and at + 8 + size <= len(content), f"chunk {name}")
        chunks[name] = content[at + 8 : at + 8 + size]
        at += 8 + size + size % 2
    require(at == len(content), "padding")
    tag, channels, rate, byte_rate, frame, bits = struct.unpack("<HHIIHH", chunks[b"fmt "][:16])
    data = chunks[b"data"]
    require(frame == channels * bits // 8 and byte_rate == rate * frame and len(data) % frame == 0, "fmt chunk")
    if b"fact" in chunks:
        require(struct.unpack("<I", chunks[b"fact"])[0] == len(data) // frame, "fact chunk")
    return tag, bits, rate, channels, data


def integers(values, bits):
    if bits == 8:  # has no sign
        return bytes(x + 128 for x in values)
    return b"".join(x.to_bytes(bits // 8, "little", signed=True) for x in values)


def floats(values):
    return struct.pack(f"<{len(values)}f", *values)


# ---- G.711: a code is a sign and the number of an interval of magnitudes, some of its bits inverted


class Law:
    def __init__(self, dropped_bits, inverted, widths):
        self.dropped_bits = dropped_bits  # of a 16-bit sample
        self.inverted = inverted
        self.decision = [0]
        for width in widths:
            self.decision.append(self.decision[-1] + width)

    def decode(self, code):
        interval = (code ^ self.inverted) & 127
        # The middle of the interval; one of width 1 has its value at its start.
        value = (self.decision[interval] + self.decision[interval + 1]) // 2 << self.dropped_bits
        return Fraction(value if code & 128 else -value, 2**15)

    def encode(self, sample):
        magnitude = (~sample if sample < 0 else sample) >> self.dropped_bits
        interval = min(bisect_right(self.decision, magnitude) - 1, 127)
        return (interval ^ self.inverted) | (0 if sample < 0 else 128)


LAWS = {
    ALAW: Law(3, 0x55, [2] * 32 + [2**segment for segment in range(2, 8) for _ in range(16)]),
    MULAW: Law(2, 0x7F, [1] + [2] * 15 + [2**segment for segment in range(2, 9) for _ in range(16)]),
}


# ---- Recordings


def make(folder):
    rng = random.Random(1)

    def pcm(bits, count):  # one sample in three is an extreme
        top = 2 ** (bits - 1) - 1
        return [rng.choice([~top, top, rng.randint(~top, top), rng.randint(~top, top), rng.randint(-99, 99), 0])
                for _ in range(count)]

    def wide(count):  # 32 bits, around the values between two floats
        def between():
            return rng.choice([-1, 1]) * (rng.randint(2**23, 2**24 - 1) * 128 + 64 + rng.choice([-1, 0, 0, 1]))

        return [between() >> rng.choice([0, 0, 1, 2, 9]) for _ in range(count)] + pcm(32, count)

    def real(count):  # between two integers of 16 and 24 bits, small, large, and beyond full scale
        def value():
            return rng.choice([
                rng.uniform(-1.2, 1.2), rng.uniform(-1.2, 1.2), rng.uniform(-0.01, 0.01),
                (rng.randint(-32770, 32770) + 0.5) / 2**15, (rng.randint(-(2**22), 2**22) + 0.5) / 2**23,
                rng.choice([-1.0, 1.0, 0.0, -0.0, 1 - 2**-24, -1 - 2**-23, 1e-40, 3e38, -3e38, 32767.5 / 32768]),
            ])

        return [value() for _ in range(count)]

    def codes(count):
        return bytes(i % 256 if i < 256 else rng.randrange(256) for i in range(count))

    write(folder / "8bit.wav", PCM, 8, integers(pcm(8, 4096), 8))
    write(folder / "16bit.wav", PCM, 16, integers(pcm(16, 4097), 16))
    write(folder / "24bit.wav", PCM, 24, integers(pcm(24, 8192), 24), rate=44100)
    write(folder / "32bit.wav", PCM, 32, integers(wide(2500), 32))
    write(folder / "float.wav", FLOAT, 32, floats(real(9001)), rate=96000)
    write(folder / "double.wav", FLOAT, 64, struct.pack("<4095d", *real(4095)))
    write(folder / "alaw.wav", ALAW, 8, codes(4097), rate=8000)
    write(folder / "mulaw.wav", MULAW, 8, codes(4095), rate=8000)
    write(folder / "stereo16.wav", PCM, 16, integers(pcm(16, 2 * 4097), 16), channels=2)
    write(folder / "stereo_alaw.wav", ALAW, 8, codes(2 * 4096), channels=2)
    write(folder / "surround.wav", FLOAT, 32, floats(real(6 * 4097)), channels=6)
    write(folder / "one.wav", PCM, 16, integers([-32768], 16))
    write(folder / "one_mulaw.wav", MULAW, 8, b"\x12", rate=8000)
    write(folder / "three.wav", PCM, 24, integers([-1] * 3, 24), channels=3)
    write(folder / "silence.wav", PCM, 16, bytes(200))
    write(folder / "empty.wav", PCM, 16, b"")
    (folder / "text.wav").write_text("no recording\n")
    for law, encoding in (("alaw", 27), ("mulaw", 1)):  # the same codes in another kind of file
        data = read(folder / f"{law}.wav")[-1]
        (folder / f"{law}.au").write_bytes(struct.pack(">4s5I", b".snd", 24, len(data), encoding, 8000, 1) + data)
    make_flac(folder, ["8bit", "16bit", "24bit"])


def make_flac(folder, names):
    """The same samples as FLAC files, if this machine's libsndfile can write them."""
    SF_FORMAT_FLAC, SFM_WRITE = 0x170000, 0x20
    SUBTYPE = {8: 1, 16: 2, 24: 3}

    class Info(ctypes.Structure):
        _fields_ = [("frames", ctypes.c_int64), ("rate", ctypes.c_int), ("channels", ctypes.c_int),
                    ("format", ctypes.c_int), ("sections", ctypes.c_int), ("seekable", ctypes.c_int)]

    library = ctypes.CDLL("libsndfile.so.1")
    library.sf_open.restype = ctypes.c_void_p
    library.sf_write_int.restype = ctypes.c_int64
    library.sf_write_int.argtypes = [ctypes.c_void_p, ctypes.POINTER(ctypes.c_int), ctypes.c_int64]
    library.sf_close.argtypes = [ctypes.c_void_p]
    for name in names:
        _, bits, rate, channels, _ = read(folder / f"{name}.wav")
        values = [int(x * 2**31) for x in pivot(folder / f"{name}.wav")]
        path = folder / f"{name}.flac"
        info = Info(0, rate, channels, SF_FORMAT_FLAC | SUBTYPE[bits], 0, 0)
        file = library.sf_open(str(path).encode(), SFM_WRITE, ctypes.byref(info))
        if not file:
            path.unlink(missing_ok=True)
            return
        written = library.sf_write_int(file, (ctypes.c_int * len(values))(*values), len(values))
        if library.sf_close(file) != 0 or written != len(values):
            sys.exit(f"cannot write {path}")


# ---- What convert should do


def pivot(path):
    """The samples in [-1, 1), rounded to the values of 32-bit floats, to nearest with ties to even."""
    tag, bits, _, _, data = read(path)
    if tag in LAWS:
        return [LAWS[tag].decode(code) for code in data]
    if tag == FLOAT:
        values = struct.unpack(f"<{len(data) * 8 // bits}{'f' if bits == 32 else 'd'}", data)
    elif bits == 8:
        values = [Fraction(x - 128, 2**7) for x in data]
    else:
        size = bits // 8
        values = [Fraction(int.from_bytes(data[i : i + size], "little", signed=True), 2 ** (bits - 1))
                  for i in range(0, len(data), size)]
    return struct.unpack(f"<{len(values)}f", floats(values))


def expected_bytes(samples, tag, bits):
    if tag == FLOAT:
        return floats(samples)

    def integer(x, bits):
        top = 2 ** (bits - 1) - 1
        return min(max(round(x * 2 ** (bits - 1)), ~top), top)  # ties to even; a power of two keeps floats exact

    if tag == PCM:
        return integers([integer(x, bits) for x in samples], bits)
    return bytes(LAWS[tag].encode(integer(x, 16)) for x in samples)


def check(input_path, name):
    _, _, rate, channels, _ = read(input_path)
    samples = pivot(input_path)
    tag, bits = FORMATS[name]
    expected = expected_bytes(samples, tag, bits)
    peak = max(abs(x) for x in samples)
    beyond = sum(not -1 <= x < 1 for x in samples)

    *layout, data = read(f"{name}.out")
    if layout != [tag, bits, rate, channels]:
        sys.exit(f"{name}: format tag, bits, rate, channels are {layout}, expected {[tag, bits, rate, channels]}")
    if len(data) != len(expected):
        sys.exit(f"{name}: {len(data)} bytes, expected {len(expected)}")
    size = bits // 8
    for i in range(len(samples)):
        got, want = (x[i * size : (i + 1) * size] for x in (data, expected))
        if got != want:
            sys.exit(f"{name}: sample {i}, {float(samples[i])!r}, is {got.hex()}, expected {want.hex()}")
    report = pathlib.Path(f"{name}.report").read_text()
    fate = "kept" if tag == FLOAT else "clipped"
    for line in (rf"peak +{float(peak):.6f} ", rf"beyond full scale +{beyond} +of {len(samples)}, {fate}\n"):
        if not re.search("^" + line, report, re.MULTILINE):
            sys.exit(f"{name}: the report should say: {line}\n{report}")
    return f"{len(samples)} samples, peak {float(peak):g}, {beyond} beyond full scale"


def main(arguments):
    match arguments:
        case ["make", folder]:
            make(pathlib.Path(folder))
        case ["check", recording, *names] if names:
            print({check(recording, name) for name in names}.pop())
        case _:
            sys.exit(__doc__)


if __name__ == "__main__":
    main(sys.argv[1:])
