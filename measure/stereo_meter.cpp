#include "measure/stereo_meter.h"

#include "measure/real_transform.h"
#include "measure/spectrum_lines.h"
#include "measure/tone_meter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double LeastCorrelation = 0.5;
constexpr double InvertedPhase = 0.99 * std::numbers::pi, InvertedBeyond = 1.01;
constexpr std::size_t StepsPerFrame = 4; ///< of the first look at the delays
constexpr std::size_t FirstBin = Spectrum::LineReach + 1;

/// A frequency that both channels have: delayed by d frames, its phase is d * radians.
struct Shared {
    std::size_t bin;
    double power, phase, radians;
};

Shared GetShared(const Spectrum& spectrum, std::size_t bin, double hz) {
    const std::complex<double> at = spectrum.cross[bin];
    return {bin, std::abs(at), std::arg(at), 2 * std::numbers::pi * hz / spectrum.rate};
}

double GetPower(const Spectrum::Channel& channel) {
    double sum = 0;
    for (std::size_t i = FirstBin; i < channel.power.size(); ++i)
        sum += channel.power[i];
    return sum;
}

/// Lines have their own frequencies, which are not those of bins.
std::vector<Shared> ListLines(const Spectrum& spectrum, const std::vector<SpectrumLine>& lines) {
    std::vector<Shared> shared;
    shared.reserve(lines.size());
    for (const SpectrumLine& each : lines)
        shared.push_back(GetShared(spectrum, each.bin, each.hz));
    return shared;
}

std::vector<Shared> ListBins(const Spectrum& spectrum) {
    std::vector<Shared> shared;
    for (std::size_t i = FirstBin; i < spectrum.cross.size(); ++i)
        shared.push_back(GetShared(spectrum, i, static_cast<double>(i) * spectrum.GetHzPerBin()));
    return shared;
}

/// Whether lines are most of what the first channel has.
bool IsOfLines(const Spectrum& spectrum, const std::vector<SpectrumLine>& lines) {
    double power = 0;
    for (const SpectrumLine& each : lines)
        power += each.power;
    return !lines.empty() && power >= GetPower(spectrum.channels[0]) / 2;
}

std::optional<double> GetDelayOfTone(const Shared& tone) {
    if (std::abs(tone.phase) > InvertedPhase)
        return std::nullopt;
    return tone.phase / tone.radians;
}

/// Where the correlation is largest, to a fraction of a frame; none where it is larger still the other way
/// round, which is an inverted channel. As it is real, the transform of real values
/// has it, that of each delay beside that of its opposite.
std::optional<double> FindDelay(const Spectrum& spectrum) {
    const std::size_t count = StepsPerFrame * spectrum.segmentFrames;
    std::vector<double> products(count);
    for (std::size_t i = FirstBin; i < spectrum.cross.size(); ++i) {
        products[i] = spectrum.cross[i].real() + spectrum.cross[i].imag();
        products[count - i] = spectrum.cross[i].real() - spectrum.cross[i].imag();
    }
    Bins bins;
    RealTransform(count).Transform(bins, products);
    double best = 0, highest = bins[0].real(), lowest = highest;
    for (std::size_t i = 1; i <= count / 4; ++i)
        for (const int sign : {1, -1}) {
            const double correlation = bins[i].real() - sign * bins[i].imag();
            lowest = std::min(lowest, correlation);
            if (correlation > highest) {
                highest = correlation;
                best = sign * static_cast<double>(i);
            }
        }
    if (-lowest > InvertedBeyond * highest)
        return std::nullopt;
    return best / StepsPerFrame;
}

/// The delay nearby at which the frequencies agree best.
double Refine(const std::vector<Shared>& shared, double delay) {
    double step = 1;
    for (int i = 0; i < 8 && std::abs(step) > 1e-9; ++i) {
        double slope = 0, bend = 0;
        for (const Shared& each : shared) {
            const double off = each.phase - each.radians * delay;
            slope += each.power * each.radians * std::sin(off);
            bend += each.power * each.radians * each.radians * std::cos(off);
        }
        if (bend <= 0)
            break;
        step = slope / bend;
        delay += step;
    }
    return delay;
}

/// The correlation at that delay. What bins have of the first channel's power, they would have of the
/// second's.
double GetAgreement(const Spectrum& spectrum, const std::vector<Shared>& shared, double delay) {
    const Spectrum::Channel &left = spectrum.channels[0], &right = spectrum.channels[1];
    double alike = 0, power = 0;
    for (const Shared& each : shared) {
        alike += each.power * std::cos(each.phase - each.radians * delay);
        power += left.power[each.bin];
    }
    const double whole = power * std::sqrt(GetPower(right) / GetPower(left));
    return whole > 0 ? alike / whole : 0;
}

} // namespace

void StereoMeter::Add(ChannelBlock left, ChannelBlock right) {
    constexpr std::size_t Lanes = 4;
    double sums[3][Lanes] = {};
    const auto take = [&](std::size_t i, std::size_t lane) {
        sums[0][lane] += left[i] * left[i];
        sums[1][lane] += right[i] * right[i];
        sums[2][lane] += left[i] * right[i];
    };
    std::size_t i = 0;
    for (; i + Lanes <= left.size(); i += Lanes)
        for (std::size_t lane = 0; lane < Lanes; ++lane)
            take(i + lane, lane);
    for (; i < left.size(); ++i)
        take(i, 0);
    for (std::size_t lane = 0; lane < Lanes; ++lane) {
        lefts += sums[0][lane];
        rights += sums[1][lane];
        products += sums[2][lane];
    }
}

std::optional<double> StereoMeter::GetLevelRatio() const {
    if (lefts > 0 && rights > 0)
        return std::sqrt(rights / lefts);
    return std::nullopt;
}

std::optional<double> StereoMeter::GetCorrelation() const {
    if (lefts > 0 && rights > 0)
        return products / (std::sqrt(lefts) * std::sqrt(rights));
    return std::nullopt;
}

std::optional<double> MeasureDelay(const Spectrum& spectrum) {
    if (spectrum.cross.size() <= 2 * FirstBin)
        return std::nullopt;
    const std::vector<SpectrumLine> lines = SpectrumLines(spectrum, 0).lines;
    const bool isOfLines = IsOfLines(spectrum, lines);
    const std::vector<Shared> shared = isOfLines ? ListLines(spectrum, lines) : ListBins(spectrum);
    const std::optional<double> start = isOfLines && MeasureTones(spectrum, 0).tones.size() == 1
                                            ? GetDelayOfTone(shared[0])
                                            : FindDelay(spectrum);
    if (!start)
        return std::nullopt;
    const double delay = Refine(shared, *start);
    if (GetAgreement(spectrum, shared, delay) >= LeastCorrelation)
        return delay;
    return std::nullopt;
}
