#include "measure/tone_meter.h"

#include "measure/spectrum_lines.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double ToneBelowStrongest = 1e-3, TonesInSound = 0.01; ///< powers
constexpr double HarmonicBins = 0.05;                            ///< by which a harmonic may be off
constexpr double AsStrong = 0.98;                                ///< powers
constexpr std::size_t MostTones = 16, MostStrongest = 10;
constexpr double MostVariation = 0.1;
constexpr double LowestHz = ToneFigures::LowestHz, HighestHz = ToneFigures::HighestHz;

bool IsInBand(double hz, double hzPerBin) {
    return hz >= LowestHz - hzPerBin / 2 && hz <= HighestHz + hzPerBin / 2;
}

/// Which multiple a frequency is of another; 0: none.
int GetHarmonic(double hz, double ofHz, double hzPerBin) {
    const double times = std::round(hz / ofHz);
    return std::abs(hz - times * ofHz) <= HarmonicBins * hzPerBin ? static_cast<int>(times) : 0;
}

ToneLine MakeLine(const SpectrumLine& line, const std::vector<SpectrumLine>& tones, double hzPerBin) {
    for (std::size_t i = 0; i < tones.size(); ++i)
        if (const int harmonic = GetHarmonic(line.hz, tones[i].hz, hzPerBin); harmonic > 0)
            return {line.hz, std::sqrt(2 * line.power), static_cast<int>(i), harmonic};
    return {line.hz, std::sqrt(2 * line.power)};
}

/// The lowest of those that are as strong as the strongest one.
const SpectrumLine& GetStrongest(const std::vector<SpectrumLine>& lines) {
    const auto end = std::find_if(lines.begin(), lines.end(), [&](const SpectrumLine& each) {
        return each.power < AsStrong * lines[0].power;
    });
    return *std::min_element(lines.begin(), end,
                             [](const SpectrumLine& a, const SpectrumLine& b) { return a.hz < b.hz; });
}

/// The main one, and what is no harmonic of a stronger one.
std::vector<SpectrumLine> FindTones(const std::vector<SpectrumLine>& lines, double hzPerBin) {
    std::vector<SpectrumLine> tones{GetStrongest(lines)};
    for (const SpectrumLine& each : lines)
        if (tones.size() < MostTones && each.power >= ToneBelowStrongest * lines[0].power &&
            MakeLine(each, tones, hzPerBin).tone < 0)
            tones.push_back(each);
    return tones;
}

/// By frequency.
std::vector<int> GetPlaces(const std::vector<SpectrumLine>& tones) {
    std::vector<int> places;
    places.reserve(tones.size());
    for (const SpectrumLine& tone : tones)
        places.push_back(static_cast<int>(std::count_if(
            tones.begin(), tones.end(), [&](const SpectrumLine& each) { return each.hz < tone.hz; })));
    return places;
}

double GetVariation(const std::vector<SpectrumLine>& tones) {
    double most = 0;
    for (const SpectrumLine& each : tones)
        most = std::max(most, each.variation);
    return most;
}

/// In the band, as if the lines had never been.
double GetNoise(const std::vector<double>& rest, double hzPerBin) {
    double sum = 0;
    std::size_t inBand = 0, counted = 0;
    for (std::size_t i = 0; i < rest.size(); ++i) {
        if (!IsInBand(static_cast<double>(i) * hzPerBin, hzPerBin))
            continue;
        ++inBand;
        counted += rest[i] >= 0;
        sum += std::max(rest[i], 0.0);
    }
    return counted == 0 ? 0 : sum * static_cast<double>(inBand) / static_cast<double>(counted);
}

double GetPower(const SpectrumLines& found) {
    double sum = 0;
    for (const SpectrumLine& each : found.lines)
        sum += each.power;
    return sum;
}

/// Whether lines are what the sound is made of.
bool HasTones(const SpectrumLines& found) {
    double rest = 0;
    for (const double each : found.rest)
        rest += std::max(each, 0.0);
    const double ofLines = GetPower(found);
    return ofLines > 0 && ofLines >= TonesInSound * (ofLines + rest);
}

/// Of powers, in the band.
struct Shares {
    double tone = 0, otherTones = 0, harmonics = 0, others = 0, spur = 0;

    Shares(const std::vector<ToneLine>& lines, const ToneLine& main, double hzPerBin) {
        for (const ToneLine& each : lines) {
            if (!IsInBand(each.hz, hzPerBin))
                continue;
            const double power = each.amplitude * each.amplitude / 2;
            if (each.hz == main.hz) {
                tone = power;
                continue;
            }
            spur = std::max(spur, power);
            (each.harmonic == 1                            ? otherTones
             : GetHarmonic(each.hz, main.hz, hzPerBin) > 0 ? harmonics
                                                           : others) += power;
        }
    }
};

void SetRatios(ToneFigures& figures, const Shares& shares, double noise) {
    const auto beside = [](double part, double whole) { return whole > 0 ? std::sqrt(part / whole) : 0; };
    const double spurs = shares.harmonics + shares.others + noise, rest = spurs + shares.otherTones;
    if (shares.tone == 0)
        return;
    figures.thd = beside(shares.harmonics, shares.tone);
    figures.thdPlusNoise = beside(rest, shares.tone + rest);
    figures.residual = beside(spurs, shares.tone + rest);
    figures.signalToNoise = beside(shares.tone, shares.otherTones + shares.others + noise);
    figures.spurFreeRange = beside(shares.tone, shares.spur);
}

} // namespace

ToneFigures MeasureTones(const Spectrum& spectrum, std::size_t channel) {
    const SpectrumLines found(spectrum, channel);
    const double hzPerBin = spectrum.GetHzPerBin();
    ToneFigures figures;
    figures.isWithinReach = found.hidden <= GetPower(found);
    if (!figures.isWithinReach)
        return figures;
    std::vector<SpectrumLine> tones;
    if (HasTones(found))
        tones = FindTones(found.lines, hzPerBin);
    figures.variation = GetVariation(tones);
    figures.isSteady =
        figures.variation <= MostVariation &&
        std::all_of(tones.begin(), tones.end(), [](const SpectrumLine& each) { return each.isResolved; });
    if (!figures.isSteady)
        tones.clear();

    std::vector<ToneLine> lines;
    const std::vector<int> places = GetPlaces(tones);
    figures.tones.resize(tones.size());
    for (const SpectrumLine& each : found.lines) {
        lines.push_back(MakeLine(each, tones, hzPerBin));
        ToneLine& line = lines.back();
        line.tone = line.tone < 0 ? -1 : places[static_cast<std::size_t>(line.tone)];
        if (line.harmonic == 1)
            figures.tones[static_cast<std::size_t>(line.tone)] = line;
    }
    if (!tones.empty()) {
        figures.main = static_cast<std::size_t>(places[0]);
        SetRatios(figures, Shares(lines, figures.tones[figures.main], hzPerBin),
                  GetNoise(found.rest, hzPerBin));
    }
    lines.resize(std::min(lines.size(), MostStrongest));
    figures.strongest = lines;
    return figures;
}
