#!/usr/bin/env python3
"""A second implementation of the sound path, in plain integers and exact decimals, for expected values.

usage: model.py              prints a line per case: the CRC-32 of its samples and its name
       model.py --samples    with its first and last samples
       model.py --check      compares the lines with those of hashes.txt, which the tests read

The samples are hashed as little-endian 32-bit integers. Nothing of the program's own code went into these numbers.
"""
import decimal
import math
import pathlib
import random
import struct
import sys
import zlib
from decimal import Decimal as D

decimal.getcontext().prec = 60
PI = D("3.14159265358979323846264338327950288419716939937510582097494")
RATE = 44100


def i32(x):
    return (x + 2**31) % 2**32 - 2**31


def trunc_div(a, b):
    return int(math.copysign(1, a) * math.copysign(1, b)) * (abs(a) // abs(b))


def trunc_mod(a, b):
    return a - b * trunc_div(a, b)


def dsin(x):
    x = x % (2 * PI)
    term = total = x
    k = 1
    while abs(term) > D(10) ** -45:
        term = -term * x * x / ((k + 1) * (k + 2))
        total += term
        k += 2
    return total


# --- tones ---------------------------------------------------------------------------------------------------------


def wave_table(waveform):
    n = 32768
    if waveform == 0:
        return [int(dsin(i * D("0.00019174759848570515")) * D("131070.8844")) for i in range(n)]
    if waveform == 1:
        return [92682] * (n // 2) + [-92682] * (n // 2)
    k = D("20.238549279785158")
    if waveform == 2:
        up = [int(i * k) for i in range(8192)] + [int((8192 - j) * k) for j in range(8192)]
        return up + [-v for v in up]
    if waveform == 3:
        up = [int(i * k / 2) for i in range(16385)]
        return up + [-up[16383 - j] for j in range(16383)]
    return [0] * n


def split(t, g):
    th, tl, gh, gl = t >> 12, t & 4095, g >> 12, g & 4095
    return th * gh + ((gh * tl) >> 12) + ((th * gl) >> 12)


def gain(db):
    if db <= -127:
        return 0
    return int(D(10) ** (D(db) / 20) * 2**24 + D("0.5"))


class Oscillator:
    K = 97391.54866213152

    def __init__(self, start, end, db, impulse, log):
        self.start = self.now = int(start * self.K) % 2**32
        self.sweep = (end / start if start else 0.0) if log else end * self.K - self.start
        self.phase, self.gain, self.impulse, self.log = 0, gain(db), impulse, log

    def next(self, table):
        old, self.phase = self.phase, (self.phase + self.now) % 2**32
        if self.impulse:
            return 185364 if self.phase < old else 0
        return split(table[self.phase >> 17], self.gain)

    def move(self, fraction):
        if self.log:
            self.now = int(self.start * math.pow(self.sweep, fraction)) % 2**32
        else:
            self.now = (int(fraction * self.sweep) + self.start) % 2**32


TABLES = {}


def tone(frames, waveform=0, left=(1000.0,), right=None, end=None, end_right=None, db=None, ms=0, log=False):
    table = TABLES.setdefault(waveform, wave_table(waveform))
    length = ms // 1000 * RATE + ms % 1000 * RATE // 1000
    db = db or [0] * len(left)
    sides = [[Oscillator(f, (end or left)[i], db[i], waveform == 4, log) for i, f in enumerate(left)]]
    if right:
        sides.append([Oscillator(f, (end_right or right)[i], db[i], waveform == 4, log) for i, f in enumerate(right)])
    out = []
    for n in range(frames):
        out += [i32(sum(o.next(table) for o in side)) for side in sides]
        if end and length and n % 32 == 31:
            for side in sides:
                for o in side:
                    o.move(n / length)
    return out


# --- stages: each is fed by a list of interleaved samples, behind which lies silence -------------------------------


class Feed:
    def __init__(self, samples, channels):
        self.samples, self.channels, self.position = samples, channels, 0

    def read(self, frames):
        a, count = self.position * self.channels, frames * self.channels
        self.position += frames
        before = [0] * min(count, max(0, -a))
        got = before + self.samples[max(0, a) : max(0, a + count)]
        return got + [0] * (count - len(got))


def limited(feed, rate, limit, frames):
    c = feed.channels
    block = min(8192, max(16, rate // 35))

    def load():
        samples = feed.read(block)
        peak = max(map(abs, samples))
        level = 2**24 if limit >= peak else (limit * 512) // ((peak + 64) >> 6) * 512
        return samples, level

    cur, nxt, after = load(), load(), load()
    prev = g = cur[1]
    out = []
    while len(out) < frames * c:
        target = min(cur[1], nxt[1], (prev + cur[1] + nxt[1] + after[1]) >> 2)
        step = trunc_div(target - g, block)
        g += trunc_mod(target - g, block)
        for i in range(block):
            out += [split(s, g) for s in cur[0][i * c : i * c + c]]
            g += step
        prev, cur, nxt, after = cur[1], nxt, after, load()
    return out[: frames * c]


def bessel(x):
    total = term = D(1)
    for k in range(1, 7):
        term = term * x * x / (4 * k * k)
        total += term
    return total


def fraction(inrate, outrate):
    ratio, best, n_best = D(inrate) / outrate, D(inrate) / outrate, 1
    for n in range(1, 256):
        m = int(ratio * n + D("0.5"))
        err = abs(ratio - D(m) / n)
        if err < best:
            best, n_best = err, n
            if err < D("0.001"):
                break
    return n_best, max(1, int(ratio * n_best + D("0.5")))


def coefficients(inrate, outrate, wide):
    n, m = fraction(inrate, outrate)
    if inrate < outrate:
        cutoff, beta = D("0.975"), D("2.12")
    else:
        cutoff, beta = D(outrate) / inrate - (D("0.09375") if wide else D("0.046875")), D("4.538")
    g = cutoff * 65536 / bessel(beta)
    rows = []
    for p in range(n):
        row = []
        for t in range(63):
            x = t - 31 - D(p) / n
            if x == 0:
                row.append(int(cutoff * 65536 + D("0.5")))
                continue
            a = PI * cutoff * x
            v = g * dsin(a) / a * bessel(beta * (1 - x * x / 1024).sqrt())
            row.append(int(v + D("0.5")) if v >= 0 else int(v - D("0.5")))
        rows.append(row)
    return n, m, rows


def converted(feed, inrate, outrate, frames, wide=False, start=None):
    """As one stage, sought to `start` first. The buffer holds everything that was read; only the reach of a refill is
    rescaled."""
    c = feed.channels
    n, m, rows = coefficients(inrate, outrate, wide)
    buffer = [[0] * c for _ in range(63)]
    span, fill, acc, shift = 32, 0, 0, 0
    if start is not None:
        feed.position = trunc_div(start, n) * m + trunc_div(m * trunc_mod(start, n), n) - 31
        acc = trunc_mod(trunc_mod(start, n) * m, n) % n
        got = feed.read(31)
        buffer[32:] = [got[i * c : i * c + c] for i in range(31)]
    out = []
    for _ in range(frames):
        span += acc // n
        acc %= n
        while span >= fill:
            for f in buffer[fill : fill + 63]:
                f[:] = [i32(x << shift) for x in f]
            count = min(8192, 32768 - fill % 32768)
            got = feed.read(count)
            buffer += [got[i * c : i * c + c] for i in range(count)]
            reach = buffer[fill : fill + 63 + count]
            peak = max(abs(x) for f in reach for x in f)
            shift = 0
            while peak >> shift >= 32768:
                shift += 1
            if shift:
                for f in reach:
                    f[:] = [i32(x + (1 << shift - 1)) >> shift for x in f]
            fill += count
        row = rows[acc]
        for ch in range(c):
            a = sum(row[t] * buffer[span + t][ch] for t in range(32))
            b = sum(row[t] * buffer[span + t][ch] for t in range(32, 63))
            s, rounding = (15 - shift, (1 << 15 - shift) >> 1) if shift <= 15 else (31, 0)
            out.append(i32(((a >> 1) + (b >> 1) + rounding) >> s))
        acc += m
    return out


# --- noise: the 31 upper bits of a Mersenne Twister (MT19937) of a known seed ---------------------------------------


def twister(seed):
    state = [seed]
    for i in range(1, 624):
        state.append((1812433253 * (state[-1] ^ state[-1] >> 30) + i) % 2**32)
    generator = random.Random()
    generator.setstate((3, tuple(state + [624]), None))
    while True:
        yield generator.getrandbits(32) >> 1


def white(seed, frames):
    draw = twister(seed)
    table = []
    for _ in range(32768):
        v = int(next(draw) * 0.00012207031255684342)
        table.append(-v if v & 0x200 else v)
    out = list(table)
    counter = 0
    while len(out) < frames:
        e = table[counter % 32768]
        counter += 1
        out += [x ^ e for x in table[e & 0x7FFF :]]
    return out[:frames]


def pink(seed, frames):
    draw = twister(seed)
    table = []
    for _ in range(32768):
        odd = next(draw) & 1
        table.append(next(draw) * (8.54492187897904e-6 if odd else -8.54492187897904e-6))
    poles = (0.99886, 0.99332, 0.969, 0.8665, 0.55, -0.7616)
    gains = (0.0555179, 0.0750759, 0.153852, 0.3104856, 0.5329522, -0.016898)
    b, b6, counter, index, end, out = [0.0] * 6, 0.0, 0, 0, 32768, []
    while len(out) < frames:
        if index >= end:
            index = int(table[counter] * 10.0) & 0x3FFF
            end = (int(table[counter + 1] * 10.0) & 0x3FFF) + 16384
            counter = (counter + 2) % 32768
        w = table[index]
        index += 1
        b = [p * x + g * w for p, g, x in zip(poles, gains, b)]
        out.append(int(b[0] + b[1] + b[2] + b[3] + b[4] + b[5] + b6 + 0.5362 * w))
        b6 = 0.115926 * w
    return out


# --- cases ---------------------------------------------------------------------------------------------------------


def noise(count, peak):
    """A signal with loud and quiet stretches, from the generator that every C library documents."""
    x, out = 1, []
    for i in range(count):
        x = (x * 1103515245 + 12345) % 2**31
        out.append(((x >> 8) % (2 * peak + 1) - peak) >> (i // 3000 % 5))
    return out


STEPS = [100.0 * (i + 1) for i in range(16)]


def cases():
    yield "sine 1000", tone(10000)
    yield "square 441.5", tone(10000, 1, [441.5])
    yield "triangular 60", tone(10000, 2, [60.0])
    yield "saw 7000.25", tone(10000, 3, [7000.25])
    yield "impulse 441", tone(10000, 4, [441.0])
    yield "negative -440", tone(10000, 0, [-440.0])
    yield "levels", tone(10000, 0, [440.0, 1000.0, 3000.0], db=[-6, -20, -127])
    yield "stereo", tone(10000, 0, [440.0, 880.0], right=[443.0, 660.0])
    yield "stereo levels", tone(10000, 0, [440.0, 1000.0, 700.0], right=[443.0, 660.0, 900.0], db=[-6, 0, -9])
    yield "linear sweep", tone(44100, 0, [100.0], end=[1000.0], ms=1000)
    yield "log sweep", tone(44100, 0, [100.0], end=[1000.0], ms=1000, log=True)
    yield "stereo log sweep", tone(20000, 3, [20.0, 50.0], [30.0, 9000.0], [20000.0, 60.0], [300.0, 90.0], ms=700, log=True)
    yield "white noise, seed 7", white(7, 200000)
    yield "pink noise, seed 7", pink(7, 200000)
    loud = tone(40000, 0, STEPS)
    yield "16 components", loud
    yield "limited", limited(Feed(loud, 1), 44100, 524272, 30000)
    yield "limited stereo 8000", limited(Feed(noise(60000, 900000), 2), 8000, 524272, 20000)
    yield "limited by 3 at 8000", limited(Feed(noise(60000, 900000), 3), 8000, 524272, 20000)
    for inrate, outrate in (8000, 44100), (44100, 48000), (48000, 44100), (22050, 44100), (96000, 44100):
        yield "mono %d to %d" % (inrate, outrate), converted(Feed(noise(60000, 524272), 1), inrate, outrate, 60000)
    yield "stereo 48000 to 44100", converted(Feed(noise(60000, 2000000), 2), 48000, 44100, 20000)
    yield "sine 18000 from 44100 to 48000", converted(Feed(tone(30000, 0, [18000.0]), 1), 44100, 48000, 30000)
    stereo = noise(60000, 524272)
    mixed = [a + b for a, b in zip(stereo[::2], stereo[1::2])]
    yield "mixed 48000 to 44100", converted(Feed(mixed, 1), 48000, 44100, 20000)
    yield "mono 88200 to 22050", converted(Feed(noise(60000, 524272), 1), 88200, 22050, 4000)
    for inrate in 88204, 192000:
        halfway = converted(Feed(noise(60000, 524272), 1), inrate, 44100, 13000, wide=True)
        yield "%d to 22050 by 44100" % inrate, converted(Feed(halfway, 1), 44100, 22050, 4000)
    yield "mono 88204 to 44100", converted(Feed(noise(60000, 524272), 1), 88204, 44100, 4000)
    yield "largest from 44100 to 48000", converted(Feed([2**31 - 1] * 6000, 1), 44100, 48000, 6000)
    for start in 1000, -1000:
        sought = converted(Feed(noise(60000, 524272), 1), 48000, 44100, 4000, start=start)
        yield "48000 to 44100 from %d" % start, sought


def main():
    lines = []
    for name, samples in cases():
        lines.append("%08X %s" % (zlib.crc32(struct.pack("<%di" % len(samples), *samples)), name))
        print(lines[-1], flush=True)
        if "--samples" in sys.argv:
            print("        ", samples[:4], "...", samples[-2:])
    if "--check" in sys.argv:
        held = pathlib.Path(__file__).with_name("hashes.txt").read_text().splitlines()
        sys.exit(lines != held and "hashes.txt differs: " + ", ".join(sorted(set(lines) ^ set(held))))


if __name__ == "__main__":
    main()
