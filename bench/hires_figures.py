#!/usr/bin/env python3
"""How good files of high resolution are: figures of what sonvire-cli renders, each beside what is wanted.

usage: bench/hires_figures.py [sonvire-cli]      the release build's without it

Reads the samples itself and measures by other methods than bench/hires_figures.cpp: what is known of a sound is fitted
to it and taken away, or lies on the bins of a spectrum. Exit status 1 where a figure falls short. Needs numpy.
"""
import decimal
import pathlib
import subprocess
import sys

import numpy as np

ROOT = pathlib.Path(__file__).resolve().parent.parent
CLI = sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/release/cli/sonvire-cli"
RATES = 44100, 48000, 96000, 192000
WAVEFORMS = "sine", "square", "triangular", "saw", "impulse"
missed = []


def run(options):
    return subprocess.run([CLI, "render", "--quiet"] + options.split(), check=True, capture_output=True).stdout


def high(rate, tone, bits=24):
    """The samples, full scale being 1."""
    written = run("--quality high --raw --rate %d --bits %d %s -" % (rate, bits, tone))
    if bits != 24:
        return np.frombuffer(written, "<i%d" % (bits // 8)) / 2.0**(bits - 1)
    words = np.zeros((len(written) // 3, 4), np.uint8)
    words[:, 1:] = np.frombuffer(written, np.uint8).reshape(-1, 3)
    return words.view("<i4")[:, 0] / 2.0**31


def standard(tone):
    return np.frombuffer(run(tone + " -")[46:], "<i2") / 2.0**15


def db(factor):
    return 20 * np.log10(factor)


def rms(samples):
    return np.sqrt(np.mean(samples**2))


def row(what, wanted, unit, measure, rates=RATES):
    """What `measure` finds at each rate may be as large as what is wanted."""
    found = [measure(rate) for rate in rates]
    short = not all(each <= wanted for each in found)
    missed.extend([what] * short)
    print("%-56s %7.4g %s %s%s" % (what, wanted, " ".join("%9.3g" % each for each in found), unit, "  MISSED" * short),
          flush=True)


def cycles(rate, frames, hz):
    """Phases of a steady tone, of which the whole cycles are left out."""
    return np.arange(frames) * hz % rate / rate


def fit_sine(samples, rate, hz):
    """Its amplitude and phase by least squares, and what else is there."""
    turns = 2 * np.pi * cycles(rate, len(samples), hz)
    known = np.stack([np.sin(turns), np.cos(turns)], axis=1)
    found = np.linalg.lstsq(known, samples, rcond=None)[0]
    return np.hypot(*found), np.arctan2(*found[::-1]), samples - known @ found


def strongest_line(samples):
    """Through a window with side lobes below -200 dB."""
    window = np.kaiser(len(samples), 26)
    return np.abs(np.fft.rfft(samples * window)).max() * 2 / window.sum()


def hearable(samples, rate):
    """The root mean square from 20 Hz to 20 kHz."""
    lines = np.fft.rfft(samples)
    hz = np.fft.rfftfreq(len(samples), 1 / rate)
    return np.sqrt(2 * np.sum(np.abs(lines[(hz >= 20) & (hz <= 20000)])**2)) / len(samples)


def sine(rate, level, bits):
    return fit_sine(high(rate, "--frequency 997 --duration 8s --level %g" % level, bits), rate, 997)


def spur(rate, level, bits):
    return db(strongest_line(sine(rate, level, bits)[2]))


def distortion(rate, bits):
    amplitude, _, rest = sine(rate, -0.1, bits)
    return db(hearable(rest, rate) / amplitude * np.sqrt(2))


def frequency(rate):
    """By the phases of a tone's first and last second."""
    seconds = 60
    samples = high(rate, "--frequency 997 --duration %ds" % seconds)
    moved = fit_sine(samples[-rate:], rate, 997)[1] - fit_sine(samples[:rate], rate, 997)[1]
    return abs(moved) / (2 * np.pi * (seconds - 1) * 997)


def alias(rate, waveform, hz):
    """In a whole second all lines of a whole frequency are bins."""
    lines = np.abs(np.fft.rfft(high(rate, "--waveform %s --frequency %d --duration 1s" % (waveform, hz), 32)))
    fundamental = lines[hz]
    lines[::hz] = 0
    return db(lines.max() / fundamental)


def third_octaves(rate, waveform, first, last):
    """The largest deviation from the mean of all from 20 Hz to 20 kHz, of which these are looked at."""
    samples = high(rate, "--waveform %s --duration 600s" % waveform)
    window = np.hanning(4 * rate)  # a bin each 0.25 Hz
    power = sum(np.abs(np.fft.rfft(samples[i:i + 4 * rate] * window))**2
                for i in range(0, len(samples) - 4 * rate + 1, 2 * rate))
    below = np.append(0, np.cumsum(power * (np.arange(len(power)) if waveform == "pink" else 1)))
    up_to = lambda hz: np.interp(np.minimum(hz, 0.49 * rate) * 4 + 0.5, np.arange(len(below)), below)
    middles, edge = 1000 * 10**(np.arange(-17, 14) / 10), 10**0.05
    width = np.minimum(middles * edge, 0.49 * rate) - middles / edge
    bands = (up_to(middles * edge) - up_to(middles / edge)) / width
    return np.abs(10 * np.log10(bands / np.mean(bands)))[first + 17:last + 18].max()


def sweep_cycles(rate, seconds, start, end):
    growth = np.log(np.longdouble(end) / start) / (seconds * rate)
    return start / np.longdouble(rate) * np.expm1(growth * np.arange(seconds * rate)) / growth


def impulse_of_sweep(rate):
    """The sweep and an ideal one, each convolved with the ideal one's inverse: how far they differ, beside the peak."""
    seconds, start, end = 10, 20, 20000
    ideal = 10**(-1 / 20) * np.sin(2 * np.pi * (sweep_cycles(rate, seconds, start, end) % 1).astype(float))
    ours = high(rate, "--frequency 20 --end 20k --sweep log --level -1 --duration %ds" % seconds)
    inverse = ideal[::-1] * (start / end)**(np.arange(len(ideal)) / len(ideal))
    size = 1 << (2 * len(ideal)).bit_length()
    spectrum = np.fft.rfft(inverse, size)
    off, peak = (np.abs(np.fft.irfft(np.fft.rfft(sound, size) * spectrum)).max() for sound in (ours - ideal, ideal))
    return db(off / peak)


def end_of_sweep(rate):
    """How far the phase is off after 60 s, in cycles, by numbers of 50 digits."""
    decimal.getcontext().prec = 50
    start, end, frames = decimal.Decimal(20), decimal.Decimal(15000), 60 * rate
    growth = (end / start).ln() / frames
    phases = [start / rate * ((growth * i).exp() - 1) / growth % 1 for i in range(frames - 64, frames)]
    turns = 2 * np.pi * np.array(phases, float)
    known = np.stack([np.sin(turns), np.cos(turns)], axis=1)
    samples = high(rate, "--frequency 20 --end 15k --sweep log --level -1 --duration 60s")[-64:]
    found = np.linalg.lstsq(known, samples, rcond=None)[0]
    return abs(np.arctan2(found[1], found[0])) / (2 * np.pi)




def aliases_of_sweep(rate, waveform):
    """What is below 0.75 of half the rate besides the harmonics of a sweep, which may fade from 0.9 on; as a peak."""
    seconds, start, end, half = 5, 200, 20000, rate / 2
    phases = sweep_cycles(rate, seconds, start, end)
    hz = start * (end / start)**(np.arange(len(phases)) / len(phases))
    tone = "--waveform %s --sweep log --frequency %d --end %d --duration %ds" % (waveform, start, end, seconds)
    rest = high(rate, tone)
    lowest = fit_sine(high(rate, "--waveform %s --frequency 100 --duration 1s" % waveform), rate, 100)[0]
    for harmonic in range(1, int(half / start) + 1, 2 if waveform == "square" else 1):
        sounds = hz * harmonic < half
        fade = (1 + np.cos(np.pi * np.clip((hz[sounds] * harmonic / half - 0.9) / 0.1, 0, 1))) / 2
        sign = -1 if waveform == "saw" and harmonic % 2 == 0 else 1
        turns = 2 * np.pi * (phases[sounds] * harmonic % 1).astype(float)
        rest[sounds] -= sign * lowest / harmonic * fade * np.sin(turns)
    lines = np.fft.rfft(rest * np.kaiser(len(rest), 20))  # without the edges, which are not the sweep's
    lines[int(len(lines) * 0.75):] = 0
    return db(np.abs(np.fft.irfft(lines)).max() / lowest)


def level(rate, waveform):
    """The lowest line beside the standard quality's."""
    tone = "--frequency 100 --duration 10s --waveform " + waveform
    return abs(db(fit_sine(high(rate, tone), rate, 100)[0] / fit_sine(standard(tone), 44100, 100)[0]))


def noise_level(rate, waveform):
    """From 20 Hz to 20 kHz, beside the standard quality's."""
    tone = "--seed 1 --duration 600s --waveform " + waveform
    return abs(db(hearable(high(rate, tone), rate) / hearable(standard(tone), 44100)))


def fade(rate):
    """Beside an ideal sine that is faded by ideal raised cosines, as a peak."""
    samples = high(rate, "--frequency 997 --level 0 --fade 10,20 --duration 1s")
    ramp = lambda frames: (1 - np.cos(np.pi * np.arange(frames) / frames)) / 2
    gain = np.ones(rate)
    gain[:rate // 100] = ramp(rate // 100)
    gain[1 - rate // 50:] = ramp(rate // 50)[:0:-1]
    return db(np.abs(samples - gain * np.sin(2 * np.pi * cycles(rate, rate, 997))).max())


def crosstalk(rate):
    """Of a channel with a tone into one whose tone can't be heard."""
    return np.abs(high(rate, "--frequency 997 --right 0 --duration 1s")[1::2]).max()


def main():
    print("%-56s %7s %s" % ("", "wanted", " ".join("%6d Hz" % rate for rate in RATES)))
    row("997 Hz at -0.1 dBFS, 24 bits, strongest spur", -150, "dBFS", lambda rate: spur(rate, -0.1, 24))
    row("997 Hz at -0.1 dBFS, 24 bits, THD+N 20 Hz to 20 kHz", -140, "dB", lambda rate: distortion(rate, 24))
    row("997 Hz at -0.1 dBFS, 16 bits, strongest spur", -120, "dBFS", lambda rate: spur(rate, -0.1, 16))
    row("997 Hz at -0.1 dBFS, 16 bits, THD+N 20 Hz to 20 kHz", -93, "dB", lambda rate: distortion(rate, 16))
    row("997 Hz at -60 dBFS, 24 bits, level off by", 0.001, "dB", lambda rate: abs(db(sine(rate, -60, 24)[0]) + 60))
    row("997 Hz at -60 dBFS, 24 bits, strongest spur", -150, "dBFS", lambda rate: spur(rate, -60, 24))
    row("997 Hz, frequency off by, of itself", 1e-9, "", frequency)
    for waveform in WAVEFORMS[1:]:
        for hz in 47, 997, 4999:
            row("%s of %d Hz, 32 bits, strongest alias" % (waveform, hz), -120, "dBc",
                lambda rate: alias(rate, waveform, hz))
    for waveform in "white", "pink":
        row(waveform + ", 600 s, third octaves 50 Hz to 20 kHz", 0.2, "dB",
            lambda rate: third_octaves(rate, waveform, -13, 13))
        row(waveform + ", 600 s, third octaves 20 to 40 Hz", 0.35, "dB",
            lambda rate: third_octaves(rate, waveform, -17, -14))
    row("sweep 20 Hz to 20 kHz, its impulse beside an ideal one's", -120, "dB", impulse_of_sweep)
    row("sweep 20 Hz to 15 kHz, 60 s, phase off at its end by", 1e-6, "cycles", end_of_sweep)
    for waveform in "square", "saw":
        row(waveform + " sweeping from 200 Hz to 20 kHz in 5 s, aliases", -110, "dBc",
            lambda rate: aliases_of_sweep(rate, waveform))
    for waveform in WAVEFORMS[:4]:
        row(waveform + ", level beside the standard quality's", 0.01, "dB", lambda rate: level(rate, waveform))
    # The standard quality's pink noise is by 0.4 dB louder or quieter each time.
    for waveform, wanted in ("white", 0.05), ("pink", 0.4):
        row(waveform + ", level beside the standard quality's", wanted, "dB",
            lambda rate: noise_level(rate, waveform), RATES[:1])
    row("fades beside ideal ones", -135, "dBFS", fade)
    row("crosstalk", 0, "", crosstalk)
    sys.exit(1 if missed else 0)


if __name__ == "__main__":
    main()
