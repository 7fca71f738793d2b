#!/usr/bin/env python3
"""How exact the figures of `sonvire-cli measure` are: those of sounds of all kinds, beside what numpy finds in them.

usage: bench/measured_figures.py [sonvire-cli] [FILE ...]      the release build's, and all files, without any

Levels are sums over the samples. What is a tone is known, so its frequency, level and phase are fitted to the samples
by least squares, as are its harmonics; the rest is noise, of which a spectrum without a window tells what lies
between 20 Hz and 20 kHz. Wanted are 0.01 dB and 1e-7 of a frequency, but 1e-5 where a tone comes and goes. Noise is a
matter of chance: windows weigh its samples otherwise, by which its level may differ by the standard deviation of the
mean square of as many, and a frequency in it by three of those that no method gets below (the bound of Cramer and
Rao). Exit status 1 where a figure is further off. Needs numpy.
"""
import json
import pathlib
import subprocess
import sys
import tempfile

import numpy as np

ROOT = pathlib.Path(__file__).resolve().parent.parent
CLI = sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release/cli/sonvire-cli"
FULL = {8: 2**7, 16: 2**15, 24: 2**23, 32: 2**31}
dice = np.random.default_rng(1)
missed = []


def db(factor):
    return 20 * np.log10(factor) if factor > 0 else None


def quantize(samples, bits):
    """What a file of so many bits holds, with dither; too loud ones wrap."""
    if bits == 0:
        return samples.astype("<f4").astype(float)
    dither = dice.random(samples.shape) - dice.random(samples.shape) if bits < 32 else 0
    full = FULL[bits]
    return (np.rint(samples * full + dither).astype("int64") + full) % (2 * full) / full - 1


def write(path, samples, rate, bits):
    if bits == 0:
        data, kind, width = samples.astype("<f4").tobytes(), 3, 4
    else:
        kind, width = 1, bits // 8
        words = np.rint(samples * FULL[bits]).astype("<i4") + (128 if bits == 8 else 0)
        data = words.reshape(-1, 1).view("u1")[:, :width].tobytes()
    channels = samples.shape[1]
    form = np.array([kind | channels << 16, rate, rate * channels * width, channels * width | width * 8 << 16], "<u4")
    head = b"WAVEfmt \x10\0\0\0" + form.tobytes() + b"data" + len(data).to_bytes(4, "little")
    path.write_bytes(b"RIFF" + (len(head) + len(data)).to_bytes(4, "little") + head + data)


def fit(samples, rate, tones, harmonics, rounds=4):
    """Frequencies and amplitudes of the tones and of harmonics of the first one, and what is left of the samples
    without DC and tones, and without all of them."""
    count, kept = len(samples), len(tones)
    place = np.linspace(-1, 1, count)
    owners = np.append(np.arange(kept), np.zeros(len(harmonics))).astype(int)
    orders = np.append(np.ones(kept), harmonics)
    shares = (owners[:, None] == np.arange(kept)) * orders[:, None]  # by which a line moves with each tone
    tones = np.array(tones, float)
    found = None

    def blocks():
        """The waves of a stretch, and how the sound moves there with each tone's frequency."""
        for start in range(0, count, 1 << 15):
            at = slice(start, min(start + (1 << 15), count))
            turns = np.exp(2j * np.pi * (np.outer(np.arange(at.start, at.stop), tones[owners] * orders) / rate % 1))
            waves = np.hstack([turns.real, turns.imag, np.ones((len(turns), 1))])
            slopes = 0 if found is None else (turns * amplitudes).imag * place[at, None] @ shares
            yield at, waves, slopes

    def solve(columns):
        squares, products = 0, 0
        for at, waves, slopes in blocks():
            known = columns(waves, slopes)
            squares, products = squares + known.T @ known, products + known.T @ samples[at]
        return np.linalg.solve(squares, products)

    for i in range(rounds + 1):
        found = solve(lambda waves, slopes: waves)
        amplitudes = found[:len(orders)] - 1j * found[len(orders):-1]
        if i < rounds:
            tones -= solve(lambda waves, slopes: np.hstack([waves, slopes]))[len(found):] / (np.pi * (count - 1) / rate)
    without_tones, without_all = samples.copy(), samples.copy()
    of_tones = found * np.append(np.tile(np.arange(len(orders)) < kept, 2), True)
    for at, waves, _ in blocks():
        without_tones[at] -= waves @ of_tones
        without_all[at] -= waves @ found
    return tones[owners] * orders, np.abs(amplitudes), without_tones, without_all


def in_band(samples, rate):
    """The mean square from 20 Hz to 20 kHz."""
    powers = np.abs(np.fft.rfft(samples))**2
    hz = np.fft.rfftfreq(len(samples), 1 / rate)
    powers[1:(len(samples) + 1) // 2] *= 2
    return powers[(hz >= 20) & (hz <= 20000)].sum() / len(samples)**2


class File:
    def __init__(self, rate, bits, seconds, waves, tones=(), harmonics=(), spurs=(), noisy=False, steady=True,
                 delay=None):
        """`waves` are functions of the time and `tones` their frequencies, for each channel; None for what may count as
        many. The ratios of what is noisy count, and the levels of what is steady."""
        self.rate, self.bits, self.noisy, self.steady, self.delay = rate, bits, noisy, steady, delay
        self.tones, self.harmonics, self.spurs = tones, harmonics, spurs
        time = np.arange(int(rate * seconds)) / rate
        self.samples = quantize(np.stack([wave(time) for wave in waves], axis=1), bits)

    def expected(self, channel):
        """By field: the value and by how much it may be off."""
        x = self.samples[:, channel]
        peak, rms = np.abs(x).max(), np.sqrt(np.mean(x**2))
        yield "peakDbfs", db(peak), 1e-6
        yield "rmsDbfs", db(rms), 1e-6
        yield "crestDb", db(peak / rms) if rms > 0 else None, 1e-6
        yield "dcPercent", 100 * np.mean(x), 1e-9
        if self.tones is None:
            return
        if not self.tones:
            yield "toneCount", 0, 0
            return
        tones, harmonics = [hz for hz in self.tones[channel]], self.harmonics
        hz, lines, left, noise = fit(x, self.rate, tones, harmonics)
        count = len(tones)
        squares = lines**2 / 2
        of_noise = np.mean(noise**2)
        yield "toneCount", count, 0
        for each, line in zip(hz[:count], lines):
            bound = np.sqrt(6 * of_noise / (line**2 / 2 * len(x))) / np.pi * self.rate / len(x)
            yield ("frequencyHz", each), each, max((1e-7 if self.steady else 1e-5) * each, 3 * bound)
            if self.steady:
                yield ("levelDbfs", each), db(line), 0.01
        audible = self.rate / 2 if self.rate < 40000 else 20000
        spurs = fit(left, self.rate, self.spurs, ())[1] if self.spurs else np.array([])
        in_ear = [i for i in range(count, len(hz)) if 20 <= hz[i] <= 20000]
        main = np.argmax(squares[:count] > 0.98 * squares[:count].max())
        tone_power, of_harmonics = squares[main], squares[in_ear].sum()
        of_others = sum(squares[i] for i in range(count) if i != main)
        if len(in_ear):
            yield "thdDb", db(np.sqrt(of_harmonics / tone_power)), 0.01
        others = np.concatenate([np.delete(lines[:count], main), lines[in_ear], spurs])
        if len(others):
            yield "spurFreeRangeDb", db(lines[main] / max(others)), 0.01
        if self.noisy:
            all_left, noise = in_band(left, self.rate) + of_others, in_band(noise, self.rate) + of_others
            chance = 4.34 / np.sqrt(audible * len(x) / self.rate)
            share = chance * noise / all_left
            yield "thdPlusNoiseDb", db(np.sqrt(all_left / (tone_power + all_left))), max(0.01, share)
            yield "signalToNoiseDb", db(np.sqrt(tone_power / noise)), max(0.01, chance)

    def expected_of_both(self):
        left, right = self.samples.T
        powers = np.mean(left**2), np.mean(right**2)
        yield "levelDifferenceDb", db(np.sqrt(powers[1] / powers[0])), 1e-6
        yield "correlation", np.mean(left * right) / np.sqrt(powers[0] * powers[1]), 1e-9
        if self.delay is not None:
            yield "delayFrames", self.delay, 0.001


def sine(hz, level, phase=0.1):
    return lambda time: 10**(level / 20) * np.sin(2 * np.pi * (hz * time + phase))


def add(*waves):
    return lambda time: sum(wave(time) for wave in waves)


def white(level):
    return lambda time: 10**(level / 20) * dice.standard_normal(len(time))


def pink(level):
    def wave(time):
        lines = np.fft.rfft(dice.standard_normal(len(time)))
        lines /= np.sqrt(np.maximum(1, np.arange(len(lines))))
        samples = np.fft.irfft(lines, len(time))
        return 10**(level / 20) * samples / np.sqrt(np.mean(samples**2))
    return wave


def distorted(hz, orders, first, step=0, level=-3):
    """A tone with harmonics, the first of them `first` dB below it, each next one by `step` further."""
    return add(sine(hz, level), *(sine(hz * order, level + first + step * i, 0.31 * i)
                                  for i, order in enumerate(orders)))


def limited(hz, rate, kind, level):
    """A square or a saw without what exceeds half the rate, and its harmonics."""
    orders = range(1, int(rate / 2 / hz), 2 if kind == "square" else 1)
    return add(*(sine(hz * order, level - 20 * np.log10(order), 0) for order in orders)), orders[1:]


def cut(wave, limit):
    return lambda time: np.clip(wave(time), -limit, limit)


def gated(wave, gain):
    return lambda time: wave(time) * gain(time)


def late(wave, seconds):
    return lambda time: wave(time - seconds)


def shared(wave, rate, frames, both):
    """Noise, and the same so many frames later."""
    made = wave(np.arange(both * rate + frames))
    return [lambda time: made[frames:frames + len(time)], lambda time: made[:len(time)]]


def files():
    many = [100 * 1.37**i for i in range(16)]
    few = [317.3, 1234.5, 5678.9, 9876.5]
    saw, of_saw = limited(220.5, 44100, "saw", -8)
    square, of_square = limited(997, 48000, "square", -6)
    several = add(*(sine(hz, -20, 0.13 * i) for i, hz in enumerate(few)))
    one = lambda hz: [[hz]]
    yield "sine, 16 bits", File(44100, 16, 10, [sine(997, -0.1)], one(997), noisy=True)
    yield "sine, 24 bits", File(48000, 24, 10, [sine(997, -1)], one(997), noisy=True)
    yield "sine, float", File(96000, 0, 6, [sine(1000.1, -6.1)], one(1000.1))
    yield "sine, 32 bits", File(192000, 32, 5, [sine(440.123, -20)], one(440.123))
    yield "sine, 8 bits", File(8000, 8, 20, [sine(1000, -3)], one(1000), noisy=True)
    yield "sine, quiet", File(44100, 16, 10, [sine(5000, -80)], one(5000), noisy=True)
    yield "sine, 20.3 Hz", File(44100, 16, 20, [sine(20.3, -6)], one(20.3), noisy=True)
    yield "sine, 19.9 kHz", File(44100, 16, 10, [sine(19900, -6)], one(19900), noisy=True)
    yield "sine, 3.99 kHz of 8", File(8000, 24, 10, [sine(3990, -6)], one(3990))
    yield "sine, 22 kHz", File(44100, 16, 10, [sine(22000, -6)], one(22000))
    yield "two tones", File(48000, 24, 10, [add(sine(60, -4), sine(7000, -16))], [[60, 7000]], noisy=True)
    yield "hum, -25 dB", File(44100, 16, 10, [add(sine(997, -6), sine(50.3, -31))], [[50.3, 997]], noisy=True)
    yield "12 Hz", File(44100, 16, 2, [sine(12, -6)], one(12))
    yield "50 Hz, half a second", File(48000, 24, 0.5, [sine(50, -6)], one(50))
    yield "16 tones", File(44100, 16, 10, [add(*(sine(hz, -26, 0.17 * i) for i, hz in enumerate(many)))], [many],
                           noisy=True)
    yield "tones of products", File(44100, 24, 10, [add(sine(7000, -9), sine(8000.5, -9), sine(6000, -75),
                                                        sine(9000.5, -80))], [[7000, 8000.5]], spurs=[6000, 9000.5],
                                    noisy=True)
    yield "square, plain", File(48000, 16, 10, [lambda time: np.where(np.rint(48000 * time) % 480 < 240, 0.5, -0.5)],
                                one(100), range(3, 200, 2))
    yield "square, limited", File(48000, 24, 10, [square], one(997), of_square)
    yield "saw, limited", File(44100, 16, 10, [saw], one(220.5), of_saw)
    yield "white noise", File(44100, 16, 10, [white(-20)])
    yield "pink noise", File(96000, 24, 10, [pink(-20)])
    yield "60 dB above noise", File(44100, 16, 30, [add(sine(1000, -6), white(-69))], one(1000), noisy=True)
    yield "20 dB above noise", File(44100, 16, 30, [add(sine(1000, -6), white(-29))], one(1000), noisy=True)
    for level in -40, -60, -80, -100:
        yield "harmonics, %d dB" % level, File(96000, 24, 10, [distorted(997, (2, 3, 5), level, -6)], one(997),
                                               (2, 3, 5), noisy=True)
    yield "harmonics, -120 dB", File(44100, 32, 10, [distorted(997, (2, 3), -120, -3)], one(997), (2, 3))
    yield "delay and level", File(44100, 24, 10, [several, late(add(several), 3.25 / 44100)], [few, few], delay=3.25)
    yield "half as loud", File(44100, 16, 10, [sine(997, -6), sine(997, -12.02, 0.08)], [[997]] * 2,
                               delay=0.02 / 997 * 44100)
    yield "noise, 100 frames", File(44100, 16, 10, shared(white(-20), 44100, 100, 10), delay=100)
    yield "50 ms", File(44100, 16, 0.05, [sine(1000, -6)], one(1000), noisy=True)
    yield "50 ms, to the 20th", File(48000, 24, 0.05, [distorted(997, range(2, 21), -40, -1)], one(997), range(2, 21))
    yield "DC of 0.01%", File(44100, 16, 10, [add(sine(997, -6), lambda time: 1e-4)], one(997), noisy=True)
    yield "clipped by 0.1%", File(44100, 16, 10, [cut(sine(100, 0.008686), 32767 / 32768)], one(100))
    yield "wrapped", File(44100, 24, 10, [sine(997, 0.01)], None)
    fades = lambda time: np.minimum(1, 10 * np.minimum(time, 10 - time))
    yield "fades", File(44100, 16, 10, [gated(sine(997, -6), fades)], one(997), steady=False)
    yield "silences between", File(44100, 16, 10, [gated(sine(440, -6), lambda time: time * 2 % 3 < 2)])
    yield "silence", File(44100, 16, 2, [lambda time: 0 * time])
    yield "200 s", File(44100, 16, 200, [sine(3150, -10), sine(3150.1, -10)], [[3150], [3150.1]], noisy=True)


def compare(name, field, ours, theirs, tolerance):
    """A row of the table; `ours` may be null."""
    if ours is None or theirs is None:
        off, isMissed = "", ours is not theirs
    else:
        off = "%.2g" % abs(ours - theirs)
        isMissed = bool(abs(ours - theirs) > tolerance)
    show = lambda value: "none" if value is None else "%.9g" % value
    print("%-20s %-18s %14s %14s %9s of %-8.2g%s" % (name, field, show(ours), show(theirs), off, tolerance,
                                                     "  MISSED" * isMissed), flush=True)
    missed.extend([name] * isMissed)


def pick(figures, field):
    """A figure of a channel; of tones, that of the nearest one."""
    if isinstance(field, str):
        return figures[field]
    name, hz = field
    tone = min(figures["tones"], key=lambda each: abs(each["frequencyHz"] - hz), default={})
    return tone.get(name)


def main():
    wanted = sys.argv[2:]
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "measured.wav"
        for name, each in files():
            if wanted and name not in wanted:
                continue
            write(path, each.samples, each.rate, each.bits)
            told = json.loads(subprocess.run([CLI, "measure", "--json", path], check=True, capture_output=True).stdout)
            for channel, figures in enumerate(told["channels"]):
                for field, value, tolerance in each.expected(channel):
                    shown = field if isinstance(field, str) else field[0]
                    compare(name, shown, pick(figures, field), value, tolerance)
            if len(told["channels"]) == 2:
                for field, value, tolerance in each.expected_of_both():
                    compare(name, field, told["whole"][field], value, tolerance)
    print("missed: %d" % len(missed))
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
