#include "app/window/spectrum_bins.h"

#include "measure/kaiser.h"

#include <algorithm>
#include <cmath>

/// The width of the spectrum's lines, as that of a rectangle of their height.
static double GetLineBins() {
    double sum = 0, squares = 0;
    constexpr std::size_t Count = 1024;
    for (const double value : MakeKaiserWindow(Spectrum::WindowBeta, Count)) {
        sum += value;
        squares += value * value;
    }
    return Count * squares / (sum * sum);
}

/// A parabola through a bin and its neighbours finds the line between them.
std::vector<LShownSound::Bin> MakeBins(const Spectrum& spectrum, std::size_t channel) {
    static const double lineBins = GetLineBins();
    std::vector<LShownSound::Bin> bins;
    for (const double power : spectrum.channels[channel].power)
        bins.push_back(
            {std::max(LShownSound::NoLevel, static_cast<float>(10 * std::log10(2 * lineBins * power)))});
    const std::vector<LShownSound::Bin> raw = bins;
    for (std::size_t i = 1; i + 1 < raw.size(); ++i) {
        const float below = raw[i - 1].dbfs, here = raw[i].dbfs, above = raw[i + 1].dbfs;
        if (here < below || here <= above)
            continue;
        const float shift = 0.5F * (below - above) / (below - 2 * here + above);
        bins[i] = {here - 0.25F * (below - above) * shift, shift};
    }
    return bins;
}
