#include "gui/shown_sound.h"

#include "gui/format_fixed.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

constexpr double Rounding = 1e-6; // of whole numbers

/// Those of `size` parts, each `width` wide, that lie between two values; one at least.
struct Parts {
    Parts(double from, double to, double width, std::size_t size) {
        const auto last = static_cast<double>(size);
        first = static_cast<std::size_t>(std::clamp(std::floor(from / width + Rounding), 0.0, last - 1));
        end = static_cast<std::size_t>(std::clamp(std::ceil(to / width - Rounding), 0.0, last));
        end = std::max(end, first + 1);
    }
    std::size_t first, end;
};

void Append(std::string& text, const char* format, double value) {
    char number[64];
    std::snprintf(number, sizeof number, format, value);
    text += number;
}

} // namespace

double LShownSound::GetWaveTop() const {
    if (peak <= 0)
        return 1;
    const double power = std::pow(10, std::floor(std::log10(peak)));
    for (const double step : {1.0, 2.0, 5.0})
        if (peak <= step * power * (1 + 1e-9))
            return std::min(1.0, step * power);
    return std::min(1.0, 10 * power);
}

LShownSound::Range LShownSound::GetWave(std::size_t channel, double from, double to) const {
    const Channel& shown = channels[channel];
    if (shown.samples.empty())
        return {0, 0};
    if (HasSamples(to)) {
        const Parts parts(from * rate, to * rate, 1, shown.samples.size());
        const auto [least, most] =
            std::minmax_element(shown.samples.begin() + static_cast<std::ptrdiff_t>(parts.first),
                                shown.samples.begin() + static_cast<std::ptrdiff_t>(parts.end));
        return {*least, *most};
    }
    const Parts parts(from * rate, to * rate, framesPerRange, shown.envelope.size());
    Range all = shown.envelope[parts.first];
    for (std::size_t i = parts.first; i < parts.end; ++i)
        all = {std::min(all.least, shown.envelope[i].least), std::max(all.most, shown.envelope[i].most)};
    return all;
}

bool LShownSound::HasSamples(double end) const {
    return !channels.empty() &&
           (channels[0].envelope.empty() || end * rate <= static_cast<double>(channels[0].samples.size()));
}

std::size_t LShownSound::FindBin(std::size_t channel, double fromHz, double toHz) const {
    const std::vector<Bin>& bins = channels[channel].spectrum;
    const double last = static_cast<double>(bins.size()) - 1;
    const double first = std::ceil(fromHz / hzPerBin), end = std::floor(toHz / hzPerBin);
    if (first > end)
        return static_cast<std::size_t>(
            std::clamp(std::round((fromHz + toHz) / 2 / hzPerBin), 0.0, std::max(last, 0.0)));
    const auto from = static_cast<std::ptrdiff_t>(std::clamp(first, 0.0, last));
    const auto to = static_cast<std::ptrdiff_t>(std::clamp(end, 0.0, last));
    const auto highest = std::max_element(bins.begin() + from, bins.begin() + to + 1,
                                          [](const Bin& a, const Bin& b) { return a.dbfs < b.dbfs; });
    return static_cast<std::size_t>(highest - bins.begin());
}

double LShownSound::GetBinHz(std::size_t channel, std::size_t bin) const {
    return (static_cast<double>(bin) + double{channels[channel].spectrum[bin].shift}) * hzPerBin;
}

double LShownSound::GetHighest(std::size_t channel, double fromHz, double toHz) const {
    const std::vector<Bin>& bins = channels[channel].spectrum;
    if (bins.empty())
        return double{NoLevel};
    if (std::ceil(fromHz / hzPerBin) <= std::floor(toHz / hzPerBin))
        return double{bins[FindBin(channel, fromHz, toHz)].dbfs};
    const double at = std::clamp((fromHz + toHz) / 2 / hzPerBin, 0.0, static_cast<double>(bins.size() - 1));
    const auto below = static_cast<std::size_t>(at);
    const std::size_t above = std::min(below + 1, bins.size() - 1);
    return std::lerp(double{bins[below].dbfs}, double{bins[above].dbfs}, at - static_cast<double>(below));
}

std::string LShownSound::FormatLevel(float dbfs, int places) {
    return dbfs <= NoLevel ? "-inf" : FormatFixed(double{dbfs}, places);
}

std::string LShownSound::NameChannel(std::size_t channel) const {
    return channels.size() < 2 ? "" : channel == 0 ? "left " : "right ";
}

std::string LShownSound::WriteWave(const LAxis& axis) const {
    const bool single = HasSamples(axis.to);
    std::string text = "seconds";
    for (std::size_t c = 0; c < channels.size(); ++c) {
        const std::string name = channels.size() == 2 ? (c == 0 ? ",left" : ",right") : ",sample";
        text += name;
        if (!single)
            text.append("_least").append(name).append("_most");
    }
    text += '\n';
    const double width = single ? 1 : framesPerRange;
    const std::size_t count = channels.empty() ? 0
                              : single         ? channels[0].samples.size()
                                               : channels[0].envelope.size();
    const auto first = static_cast<std::size_t>(std::ceil(axis.from * rate / width - Rounding));
    for (std::size_t at = first; at < count; ++at) {
        const double time = static_cast<double>(at) * width / rate;
        if (time > axis.to)
            break;
        Append(text, "%.9g", time);
        for (const Channel& channel : channels) {
            Append(text, ",%.9g", double{single ? channel.samples[at] : channel.envelope[at].least});
            if (!single)
                Append(text, ",%.9g", double{channel.envelope[at].most});
        }
        text += '\n';
    }
    return text;
}

std::string LShownSound::WriteSpectrum(const LAxis& axis) const {
    std::string text = "hz";
    for (std::size_t c = 0; c < channels.size(); ++c)
        text += channels.size() == 2 ? (c == 0 ? ",left_dbfs" : ",right_dbfs") : ",dbfs";
    text += '\n';
    const std::size_t count = channels.empty() ? 0 : channels[0].spectrum.size();
    for (auto i = static_cast<std::size_t>(std::ceil(axis.from / hzPerBin - Rounding));
         i < count && static_cast<double>(i) * hzPerBin <= axis.to; ++i) {
        Append(text, "%.9g", static_cast<double>(i) * hzPerBin);
        for (const Channel& channel : channels)
            text.append(",").append(FormatLevel(channel.spectrum[i].dbfs, 2));
        text += '\n';
    }
    return text;
}
