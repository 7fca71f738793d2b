#include "measure/tone_meter.h"

#include "measure/spectrum_lines.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double ToneBelowStrongest = 1e-3, TonesInSound = 0.01; ///< powers
constexpr double HarmonicBins = 0.05;                            ///< by which a harmonic may be off
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

std::vector<SpectrumLine> FindTones(const std::vector<SpectrumLine>& lines, double hzPerBin) {
    std::vector<SpectrumLine> strong, tones;
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(strong),
                 [&](const SpectrumLine& each) { return each.power >= ToneBelowStrongest * lines[0].power; });
    const auto isLower = [](const SpectrumLine& a, const SpectrumLine& b) { return a.hz < b.hz; };
    std::sort(strong.begin(), strong.end(), isLower);
    for (const SpectrumLine& each : strong)
        if (MakeLine(each, tones, hzPerBin).tone < 0)
            tones.push_back(each);
    std::sort(tones.begin(), tones.end(),
              [](const SpectrumLine& a, const SpectrumLine& b) { return a.power > b.power; });
    tones.resize(std::min(tones.size(), MostTones));
    std::sort(tones.begin(), tones.end(), isLower);
    return tones;
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

/// Whether lines are what the sound is made of.
bool HasTones(const SpectrumLines& found) {
    double ofLines = 0, rest = 0;
    for (const SpectrumLine& each : found.lines)
        ofLines += each.power;
    for (const double each : found.rest)
        rest += std::max(each, 0.0);
    return ofLines > 0 && ofLines >= TonesInSound * (ofLines + rest);
}

void SetRatios(ToneFigures& figures, const std::vector<ToneLine>& lines, double noise, double hzPerBin) {
    double tones = 0, harmonics = 0, left = noise, tone = 0, spur = 0;
    for (const ToneLine& each : lines) {
        if (!IsInBand(each.hz, hzPerBin))
            continue;
        double& strongest = each.harmonic == 1 ? tone : spur;
        strongest = std::max(strongest, each.amplitude);
        (each.harmonic == 0   ? left
         : each.harmonic == 1 ? tones
                              : harmonics) += each.amplitude * each.amplitude / 2;
    }
    if (tones == 0)
        return;
    figures.thd = std::sqrt(harmonics / tones);
    figures.thdPlusNoise = std::sqrt((harmonics + left) / (tones + harmonics + left));
    figures.signalToNoise = left > 0 ? std::sqrt(tones / left) : 0;
    figures.spurFreeRange = spur > 0 ? tone / spur : 0;
}

} // namespace

ToneFigures MeasureTones(const Spectrum& spectrum, std::size_t channel) {
    const SpectrumLines found(spectrum, channel);
    const double hzPerBin = spectrum.GetHzPerBin();
    std::vector<SpectrumLine> tones;
    if (HasTones(found))
        tones = FindTones(found.lines, hzPerBin);

    ToneFigures figures;
    figures.variation = GetVariation(tones);
    figures.isSteady = figures.variation <= MostVariation;
    if (!figures.isSteady)
        tones.clear();
    figures.tones.resize(tones.size());
    std::vector<ToneLine> lines;
    for (const SpectrumLine& each : found.lines) {
        lines.push_back(MakeLine(each, tones, hzPerBin));
        if (lines.back().harmonic == 1)
            figures.tones[static_cast<std::size_t>(lines.back().tone)] = lines.back();
    }
    SetRatios(figures, lines, GetNoise(found.rest, hzPerBin), hzPerBin);
    lines.resize(std::min(lines.size(), MostStrongest));
    figures.strongest = lines;
    return figures;
}
