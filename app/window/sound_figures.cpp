#include "app/window/sound_figures.h"

#include "gui/format_fixed.h"
#include "jobs/rendered_level.h"
#include "sound/decibels.h"

#include <algorithm>

namespace {

constexpr double LeastTold = 0.05; // dB
constexpr double LeastLine = 1e-4; // beside the strongest one
constexpr std::size_t MostLines = 5;

std::string FormatDb(double factor) {
    return FormatFixed(ToDecibels(factor), 1);
}

std::string DescribePart(const SoundLevels& levels) {
    if (levels.isAll)
        return "";
    const double seconds = levels.seconds;
    return ", of the first " + (seconds < 120 ? FormatFixed(seconds, seconds < 9.95 ? 1 : 0) + " s"
                                              : FormatFixed(seconds / 60, 0) + " min");
}

std::string DescribeChannel(const ToneFigures& figures, std::size_t most, bool isSine) {
    if (!figures.isSteady)
        return "no steady tone";
    std::string text;
    for (std::size_t i = 0; i < std::min(most, figures.strongest.size()); ++i) {
        const ToneLine& line = figures.strongest[i];
        if (line.amplitude < LeastLine * figures.strongest[0].amplitude)
            break;
        text += (i == 0 ? "" : ", ") + FormatHz(line.hz) + " " + FormatDb(line.amplitude) + " dBFS";
    }
    if (isSine && figures.tones.size() == 1 && figures.thdPlusNoise > 0)
        text += "; THD+N " + FormatDb(figures.thdPlusNoise) + " dB";
    return text;
}

} // namespace

std::vector<LMarkedText> DescribeLevels(const SoundLevels& levels) {
    const double peak = levels.level.GetPeak();
    if (peak == 0)
        return {{"silent", true}, {DescribePart(levels)}};
    const bool isFaint = peak < RenderedLevel::Quiet;
    const std::string told = "peak " + FormatDb(peak) + (isFaint ? "" : " dBFS");
    const std::string rest =
        ", RMS " + FormatDb(levels.level.GetRms()) + ", crest " + FormatDb(levels.level.GetCrest()) + " dB";
    std::vector<LMarkedText> parts = {{told, isFaint}, {rest}};
    if (isFaint)
        parts[0].text += " dBFS: below -60, hardly to be heard";
    if (levels.loweredDb >= LeastTold)
        parts.push_back({", lowered by " + FormatFixed(levels.loweredDb, 1) + " dB", true});
    if (levels.limiterDb >= LeastTold)
        parts.push_back({", limiter " + FormatFixed(levels.limiterDb, 1) + " dB", true});
    parts.push_back({DescribePart(levels)});
    return parts;
}

std::string DescribeLines(const std::vector<ToneFigures>& channels, bool isSine) {
    std::vector<std::string> texts;
    texts.reserve(channels.size());
    for (const ToneFigures& figures : channels)
        texts.push_back(DescribeChannel(figures, MostLines / channels.size(), isSine));
    if (texts.size() != 2 || texts[0] == texts[1])
        return texts[0];
    return "left " + texts[0] + " · right " + texts[1];
}
