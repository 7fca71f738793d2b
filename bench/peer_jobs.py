"""The jobs that bench/peers measures. Each makes its input in a folder, which its programs then run in, and returns their
command lines; those of sonvire-cli and job_limit without the program. All but the last write out.wav."""
import struct
import subprocess

SOX = "sox -n -r 44100 -c 1 -b 16 out.wav "
FFMPEG = "ffmpeg -v error -y -f lavfi -i "

# Processor cycles of what each kind of sound can't do without: a step of one of many oscillators, an output of a
# convolution with 63 coefficients, and a frame of the recurrence behind pink noise.
STEP, OUTPUT, PINK = 1, 3, 7


def tone(path, flags=0x08, waveform=0, ms=1000, start=(1000.0,), end=()):
    """A tone data file (docs/file-formats.md)."""
    sixteen = lambda hz: struct.pack("<16d", *(tuple(hz) + (1000.0,) * 16)[:16])
    record = struct.pack("<HBBI", flags, waveform, len(start), ms) + sixteen(start) + sixteen(end) + sixteen(()) * 2
    path.write_bytes(record + bytes(797 - len(record)))


def limit(samples, lookups=0, cycles=0, files=""):
    """What no program can leave out: samples of 16 bits that are written, look-ups in a wave table, files to read."""
    return "%g %g %g %s" % (2 * samples, lookups, cycles, files)


def tone_list(path, entries):
    """A tone list file: what stands last plays first."""
    path.write_text("".join(entry + "\n" for entry in reversed(entries)))


def wave(path, rate, sound):
    """A WAVE file of one channel for each sine."""
    make = "sox -n -r %d -c %d -b 16 %s synth %s gain -3" % (rate, sound.count("sine"), path, sound)
    subprocess.run(make.split(), check=True, stderr=subprocess.DEVNULL)


def job_a(folder):
    """600 s of one mono 1 kHz sine"""
    tone(folder / "a.tdf", ms=600000)
    return {
        "sonvire": "render a.tdf out.wav",
        "sox": SOX + "synth 600 sine 1000",
        "ffmpeg": FFMPEG + "sine=frequency=1000:duration=600 out.wav",
        "limit": limit(600 * 44100, lookups=600 * 44100, files="a.tdf"),
    }


def job_b(folder):
    """60 s of a mono 16-component linear sweep"""
    starts = [100.0 * (i + 1) for i in range(16)]
    tone(folder / "b.tdf", flags=0x09, ms=60000, start=starts, end=[10 * hz for hz in starts])
    sweeps = ["synth 60 sine %s %g:%g" % ("mix" if hz > starts[0] else "", hz, 10 * hz) for hz in starts]
    # The phase of a linear sweep is the integral of its frequency.
    terms = "+".join("sin(2*PI*%g*t*(1+4.5*t/60))" % hz for hz in starts)
    return {
        "sonvire": "render b.tdf out.wav",
        "sox": SOX + " ".join(sweeps),
        "ffmpeg": FFMPEG + "aevalsrc=(%s)/16:s=44100:d=60 out.wav" % terms,
        "limit": limit(60 * 44100, cycles=60 * 44100 * 16 * STEP, files="b.tdf"),
    }


def job_c(folder):
    """600 s of a stereo 48 kHz WAVE file to 44.1 kHz"""
    wave(folder / "c.wav", 48000, "600 sine 1000 sine 440")
    return {
        "sonvire": "render --rate 44100 c.wav out.wav",
        "sox": "sox c.wav -r 44100 out.wav",
        "ffmpeg": "ffmpeg -v error -y -i c.wav -ar 44100 out.wav",
        "limit": limit(2 * 600 * 44100, cycles=2 * 600 * 44100 * OUTPUT, files="c.wav"),
    }


def job_d(folder):
    """600 s of pink noise, which is never the same twice"""
    tone(folder / "d.tdf", waveform=6, ms=600000)
    return {
        "sonvire": "render d.tdf out.wav",
        "sox": SOX + "synth 600 pinknoise",
        "ffmpeg": FFMPEG + "anoisesrc=color=pink:duration=600:sample_rate=44100 -c:a pcm_s16le out.wav",
        "limit": limit(600 * 44100, cycles=600 * 44100 * PINK, files="d.tdf"),
    }


def job_e(folder):
    """a list of 1,000 half-second tones with silences between"""
    entries = []
    for i in range(1000):
        tone(folder / ("%d.tdf" % i), ms=500, start=(100.0 + i,))
        entries += ["%d.tdf" % i, "100ms silence."]
    tone_list(folder / "e.tdl", entries[:-1])
    # The same for sox: one synthesis per piece, joined by its own chain of effects.
    pieces = ["synth 0.5 sine %d pad 0 0.1" % (100 + i) for i in range(1000)]
    return {
        "sonvire": "render e.tdl out.wav",
        "sox": SOX + " : ".join(pieces),
        "limit": limit(600 * 44100, lookups=500 * 44100, files="e.tdl " + " ".join(entries[::2])),
    }


def job_f(folder):
    """60 s of a mono sine of 0 dB to 48 kHz"""
    tone(folder / "f.tdf", ms=60000, start=(997.0,))  # unlike those of 1 kHz, its samples meet the very crest
    return {
        "sonvire": "render --rate 48000 f.tdf out.wav",
        "sox": "sox -n -r 44100 -c 1 -b 16 -r 48000 out.wav synth 60 sine 997 rate 48000",
        "ffmpeg": FFMPEG + "sine=frequency=997:duration=60 -ar 48000 out.wav",
        "limit": limit(60 * 48000, lookups=60 * 44100, cycles=60 * 48000 * OUTPUT, files="f.tdf"),
    }


def job_g(folder):
    """a list of one 48 kHz WAVE file and 1,000 tones of 20 ms, which are converted one by one"""
    wave(folder / "g.wav", 48000, "1 sine 1000")
    entries = ["g.wav"] + ["%d.tdf" % i for i in range(1000)]
    for i in range(1000):
        tone(folder / ("%d.tdf" % i), ms=20, start=(100.0 + i,))
    tone_list(folder / "g.tdl", entries)
    return {
        "sonvire": "render g.tdl out.wav",
        "limit": limit(21 * 48000, lookups=20 * 44100, cycles=20 * 48000 * OUTPUT, files="g.tdl " + " ".join(entries)),
    }


def job_h(folder):
    """lists of two lists each, 15 levels deep, down to 65,536 tones of 1 ms"""
    lists = ["%d.tdl" % level for level in range(15)]
    tone(folder / "h.tdf", ms=1)
    tone_list(folder / lists[0], ["h.tdf"] * 4)
    for inner, outer in zip(lists, lists[1:]):
        tone_list(folder / outer, [inner] * 2)
    return {
        "sonvire": "render 14.tdl out.wav",
        "limit": limit(65536 * 44, lookups=65536 * 44, files="h.tdf " + " ".join(lists)),
    }


def job_i(folder):
    """1 ms of a mono sine, which is the start of the program"""
    tone(folder / "i.tdf", ms=1)
    return {
        "sonvire": "render i.tdf out.wav",
        "sox": SOX + "synth 0.001 sine 1000",
        "ffmpeg": FFMPEG + "sine=frequency=1000:duration=0.001 out.wav",
        "limit": limit(44, lookups=44, files="i.tdf"),
    }


HIGH = "render --quality high --rate 96000 --duration 600s "
SOX_HIGH = "sox -n -r 96000 -c 1 -b 24 out.wav "
HIGH_FRAMES = 600 * 96000


def high_limit(lookups=0, cycles=0):
    return limit(1.5 * HIGH_FRAMES, lookups, cycles)  # 24 bits


def job_j(folder):
    """600 s of a mono 1 kHz sine in high quality, 96 kHz, 24 bits"""
    return {
        "sonvire": HIGH + "--frequency 1000 out.wav",
        "sox": SOX_HIGH + "synth 600 sine 1000",
        "limit": high_limit(lookups=HIGH_FRAMES),
    }


def job_k(folder):
    """600 s of a mono 1 kHz square in high quality, 96 kHz, 24 bits"""
    return {
        "sonvire": HIGH + "--waveform square --frequency 1000 out.wav",
        "sox": SOX_HIGH + "synth 600 square 1000",
        "limit": high_limit(lookups=HIGH_FRAMES),
    }


def job_l(folder):
    """600 s of pink noise in high quality, 96 kHz, 24 bits"""
    return {
        "sonvire": HIGH + "--waveform pink out.wav",
        "sox": SOX_HIGH + "synth 600 pinknoise",
        "limit": high_limit(cycles=HIGH_FRAMES * PINK),
    }


def job_m(folder):
    """600 s of a mono 16-component sine in high quality, 96 kHz, 24 bits"""
    tones = [100 * (i + 1) for i in range(16)]
    return {
        "sonvire": HIGH + "--level -30 --frequency %s out.wav" % ",".join(map(str, tones)),
        "sox": SOX_HIGH + " ".join("synth 600 sine %s %d" % ("mix" if hz > 100 else "", hz) for hz in tones),
        "limit": high_limit(cycles=HIGH_FRAMES * 16 * STEP),
    }


def job_n(folder):
    """600 s of a stereo WAVE file measured: levels, true peak, spectrum, tones; the others' levels alone"""
    wave(folder / "n.wav", 44100, "600 sine 997 sine 1500")
    return {
        "sonvire": "measure n.wav",
        "sox": "sox n.wav -n stats",
        "ffmpeg": "ffmpeg -nostdin -hide_banner -i n.wav -af astats -f null -",
        "limit": limit(0, files="n.wav"),
    }


JOBS = {name[-1].upper(): job for name, job in globals().items() if name.startswith("job_")}
