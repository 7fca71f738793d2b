// How good the high-resolution engine is: figures of its samples, each beside what is wanted. Exit status 1
// where one falls short. bench/hires_figures.py measures rendered files by other methods.

#include "hires/quantizer.h"
#include "hires/tone_source.h"
#include "spurs.h"
#include "third_octaves.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdio>
#include <functional>
#include <numbers>
#include <string>
#include <unsupported/Eigen/FFT>

namespace {

using Samples = std::vector<double>;

constexpr int Rates[] = {44100, 48000, 96000, 192000};

/// What is measured at each rate; it has to be as small as what is wanted, or smaller.
struct Row {
    std::string what;
    double wanted;
    const char* unit;
    std::vector<double> measured;
};
std::vector<Row> table;

void Report(const std::string& what, double wanted, const char* unit, double measured) {
    const auto row =
        std::find_if(table.begin(), table.end(), [&](const Row& each) { return each.what == what; });
    if (row != table.end())
        row->measured.push_back(measured);
    else
        table.push_back({what, wanted, unit, {measured}});
}

bool IsMissed(const Row& row) {
    return std::any_of(row.measured.begin(), row.measured.end(),
                       [&](double each) { return !(each <= row.wanted); });
}

void Print(const Row& row) {
    std::printf("%-56s %7.4g", row.what.c_str(), row.wanted);
    for (const double each : row.measured)
        std::printf(" %9.3g", each);
    std::printf(" %s%s\n", row.unit, IsMissed(row) ? "  MISSED" : "");
}

double ToDb(double factor) {
    return 20 * std::log10(factor);
}

SonvireData ToneOf(int waveform, double hz, double seconds) {
    SonvireData tone;
    tone.waveform = static_cast<std::uint8_t>(waveform);
    tone.startLeftHz[0] = hz;
    tone.SetDuration(static_cast<std::uint32_t>(seconds * 1000));
    return tone;
}

/// The next frames of a source with one channel, rounded to so many bits as files have them.
Samples Read(HiresSource& source, std::int64_t frames, int bits) {
    std::vector<std::int32_t> read(static_cast<std::size_t>(frames));
    source.Read(read.data(), static_cast<int>(frames));
    HiresQuantizer(bits, bits == 16, 1).Quantize(read.data(), read.data(), static_cast<int>(frames));
    Samples samples;
    for (const std::int32_t each : read)
        samples.push_back(each * 0x1p-31);
    return samples;
}

Samples Render(const SonvireData& tone, int rate, double level, int bits) {
    const HiresTone opened = OpenHiresTone(tone, {.rate = rate, .level = level});
    return Read(*opened.source, opened.source->GetLength(), bits);
}

/// Long enough for a spectrum at every rate.
constexpr double SpectrumSeconds = 6;

void MeasureSine(int rate, int bits, double spur, double distortion) {
    constexpr double hz = 997, level = -0.1;
    const LineSpectrum spectrum(Render(ToneOf(ToneSine, hz, SpectrumSeconds), rate, level, bits), rate);
    const std::string name = "997 Hz at -0.1 dBFS, " + std::to_string(bits) + " bits, ";
    Report(name + "strongest spur", spur, "dBc",
           ToDb(spectrum.FindStrongestBeside(std::array{hz}).amplitude) - level);
    Report(name + "THD+N 20 Hz to 20 kHz", distortion, "dB",
           10 * std::log10(2 * spectrum.GetPowerBeside(std::array{hz})) - level);
}

void MeasureQuietSine(int rate) {
    constexpr double hz = 997;
    const Samples samples = Render(ToneOf(ToneSine, hz, SpectrumSeconds), rate, -60, 24);
    Report("997 Hz at -60 dBFS, 24 bits, level off by", 0.001, "dB",
           std::fabs(ToDb(std::abs(MeasureLine(samples, hz, rate))) + 60));
    Report("997 Hz at -60 dBFS, 24 bits, strongest spur", -150, "dBFS",
           ToDb(LineSpectrum(samples, rate).FindStrongestBeside(std::array{hz}).amplitude));
}

/// By how much the phase has moved after 100 s.
void MeasureFrequency(int rate) {
    constexpr double hz = 997, seconds = 100;
    const Samples samples = Render(ToneOf(ToneSine, hz, seconds + SpectrumSeconds), rate, -1, 24);
    const auto later = static_cast<std::size_t>(seconds * rate);
    const double moved = std::arg(MeasureLine(samples, hz, rate, later) / MeasureLine(samples, hz, rate)) /
                         2 / std::numbers::pi;
    Report("997 Hz, frequency off by, of itself", 1e-9, "", std::fabs(moved) / seconds / hz);
}

void MeasureAliases(int waveform, int rate, double hz) {
    const SonvireData tone = ToneOf(waveform, hz, SpectrumSeconds);
    const Samples samples = Render(tone, rate, -12.04, 32);
    std::vector<double> harmonics;
    for (int i = waveform == ToneImpulse ? 0 : 1; i * hz < rate / 2.0; ++i)
        harmonics.push_back(i * hz);
    const double strongest = LineSpectrum(samples, rate).FindStrongestBeside(harmonics).amplitude;
    Report(tone.GetToneName() + std::string(" of ") + std::to_string(static_cast<int>(hz)) +
               " Hz, 32 bits, strongest alias",
           -120, "dBc", ToDb(strongest / std::abs(MeasureLine(samples, hz, rate))));
}

void MeasureNoise(int waveform, int rate) {
    const SonvireData tone = ToneOf(waveform, 0, 600);
    const HiresTone opened = OpenHiresTone(tone, {.rate = rate});
    ThirdOctaves thirds(rate);
    for (int second = 0; second < 600; ++second)
        thirds.Add(Read(*opened.source, rate, 24));
    double low = 0, high = 0;
    for (const auto& [hz, deviation] : thirds.GetDeviations(waveform == TonePinkNoise ? -1 : 0)) {
        double& worst = hz < 49 ? low : high;
        worst = std::max(worst, std::fabs(deviation));
    }
    Report(tone.GetToneName() + std::string(", 600 s, third octaves 50 Hz to 20 kHz"), 0.2, "dB", high);
    Report(tone.GetToneName() + std::string(", 600 s, third octaves 20 to 40 Hz"), 0.35, "dB", low);
}

/// A logarithmic sweep from 20 Hz to 20 kHz.
struct LogSweep {
    static constexpr double from = 20, to = 20000, seconds = 10, level = -1;

    explicit LogSweep(int framesPerSecond) : rate(framesPerSecond) {}

    Samples MakeIdeal() const {
        Samples samples;
        const long double growth = std::log(static_cast<long double>(to / from)) / (seconds * rate);
        for (int i = 0; i < seconds * rate; ++i) {
            const long double cycles = from / rate * std::expm1(growth * i) / growth;
            const auto part = static_cast<double>(cycles - std::floor(cycles));
            samples.push_back(std::pow(10, level / 20) * std::sin(2 * std::numbers::pi * part));
        }
        return samples;
    }
    Samples MakeOurs() const {
        SonvireData tone = ToneOf(ToneSine, from, seconds);
        tone.flags |= ToneFlagSweep | ToneFlagLogSweep;
        tone.endLeftHz[0] = to;
        return Render(tone, rate, level, 24);
    }
    /// The ideal sweep backwards, 6 dB quieter with each octave that it falls.
    Samples MakeInverse() const {
        Samples samples = MakeIdeal();
        std::reverse(samples.begin(), samples.end());
        for (std::size_t i = 0; i < samples.size(); ++i)
            samples[i] *= std::pow(to / from, -static_cast<double>(i) / static_cast<double>(samples.size()));
        return samples;
    }

    int rate;
};

Samples Convolve(Samples a, Samples b) {
    const std::size_t size = std::bit_ceil(a.size() + b.size());
    a.resize(size);
    b.resize(size);
    Eigen::FFT<double> fft;
    std::vector<std::complex<double>> first, second;
    fft.fwd(first, a);
    fft.fwd(second, b);
    for (std::size_t i = 0; i < size; ++i)
        first[i] *= second[i];
    fft.inv(a, first);
    return a;
}

double GetPeak(const Samples& samples) {
    return std::fabs(*std::max_element(samples.begin(), samples.end(),
                                       [](double a, double b) { return std::fabs(a) < std::fabs(b); }));
}

void MeasureSweep(int rate) {
    const LogSweep sweep(rate);
    const Samples inverse = sweep.MakeInverse();
    const Samples ideal = Convolve(sweep.MakeIdeal(), inverse);
    Samples off = Convolve(sweep.MakeOurs(), inverse);
    std::transform(off.begin(), off.end(), ideal.begin(), off.begin(), std::minus());
    Report("sweep 20 Hz to 20 kHz, its impulse beside an ideal one's", -120, "dB",
           ToDb(GetPeak(off) / GetPeak(ideal)));
}

} // namespace

int main() {
    std::printf("%-56s %7s", "", "wanted");
    for (const int rate : Rates) {
        std::printf(" %6d Hz", rate);
        std::fflush(stdout);
        MeasureSine(rate, 24, -150, -140);
        MeasureSine(rate, 16, -120, -93);
        MeasureQuietSine(rate);
        MeasureFrequency(rate);
        for (const int waveform : {ToneSquare, ToneTriangular, ToneSawTooth, ToneImpulse})
            for (const double hz : {47, 997, 4999})
                MeasureAliases(waveform, rate, hz);
        MeasureSweep(rate);
        for (const int waveform : {ToneWhiteNoise, TonePinkNoise})
            MeasureNoise(waveform, rate);
    }
    std::printf("\n");
    std::for_each(table.begin(), table.end(), Print);
    return std::any_of(table.begin(), table.end(), IsMissed) ? 1 : 0;
}
