#include "cli/measuring/measure_check.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <vector>

namespace {

constexpr const char* NoFigure = "has no such figure";

std::string GetUnit(const MeasuredFigure& figure) {
    return *figure.unit ? std::string(" ") + figure.unit : "";
}

/// So far beyond the limit; below 0 where it keeps to it.
double GetExcess(const MeasureLimit& limit, double value) {
    const double checked = limit.figure->limitsMagnitude ? std::abs(value) : value;
    return limit.isUpper ? checked - limit.value : limit.value - checked;
}

/// With the decimals of the report, or in full where they would all be 0.
std::string FormatClosely(double value, const MeasuredFigure& figure) {
    const std::string usual = FormatNumber(value, figure.decimals);
    if (value == 0 || !std::isfinite(value) || usual.find_first_of("123456789") != std::string::npos)
        return usual;
    char text[32];
    std::snprintf(text, sizeof text, "%.2g", value);
    return text;
}

std::string FormatBound(const MeasureLimit& limit) {
    char bound[32];
    std::snprintf(bound, sizeof bound, "%.10g", limit.value);
    return bound + GetUnit(*limit.figure);
}

/// "left -84.20 dB is 5.80 dB above the limit of -90 dB"
std::string ExplainBreak(const MeasureLimit& limit, const LimitResult& result) {
    if (!result.value)
        return (result.channel.empty() ? "the sound" : result.channel) + " " + result.reason +
               ", which breaks the limit of " + FormatBound(limit);
    const MeasuredFigure& figure = *limit.figure;
    const std::string unit = GetUnit(figure);
    const double excess = GetExcess(limit, *result.value);
    const std::string by =
        excess > 0 && std::isfinite(excess)
            ? FormatClosely(excess, figure) + (unit.starts_with(" dB") ? " dB" : unit) + " "
            : "";
    const std::string side = limit.isUpper == (excess > 0) ? "above" : "below";
    return (result.channel.empty() ? "" : result.channel + " ") + FormatClosely(*result.value, figure) +
           unit + " is " + by + (excess > 0 ? "" : "not ") + side + " the limit of " + FormatBound(limit);
}

LimitResult MakeCandidate(const MeasureLimit& limit, const MeasuredColumn& column, bool isNamed) {
    using Group = MeasuredFigure::Group;
    const Group group = limit.figure->group;
    const bool isOfTones = group == Group::Tones || group == Group::Tone || group == Group::Distortion ||
                           group == Group::Residual;
    const char* reason = isOfTones ? ExplainNoTones(column.figures.tones) : nullptr;
    return {.channel = isNamed ? column.name : "",
            .value = limit.figure->ofChannel(column.figures),
            .reason = NoFigure + (reason ? " (" + std::string(reason) + ")" : "")};
}

/// What has to keep to the limit. Whether it does is left open, but for the reason where it isn't there.
std::vector<LimitResult> ListCandidates(const MeasureLimit& limit, const MeasuredSound& sound) {
    if (limit.figure->ofSound)
        return {{.value = limit.figure->ofSound(sound), .reason = NoFigure}};
    if (limit.channel == "all")
        return {MakeCandidate(limit, MakeWhole(sound), true)};
    const std::vector<MeasuredColumn> channels = ListChannels(sound);
    std::vector<LimitResult> found;
    for (std::size_t i = 0; i < channels.size(); ++i)
        if (limit.channel.empty() || limit.channel == channels[i].name ||
            limit.channel == "ch" + std::to_string(i + 1))
            found.push_back(MakeCandidate(limit, channels[i], channels.size() > 1));
    return found.empty() ? std::vector<LimitResult>{{.channel = limit.channel, .reason = NoFigure}} : found;
}

} // namespace

LimitResult CheckLimit(const MeasureLimit& limit, const MeasuredSound& sound) {
    const auto rank = [&limit](const LimitResult& each) { // one that isn't there is the worst
        return each.value ? GetExcess(limit, *each.value) : std::numeric_limits<double>::infinity();
    };
    const std::vector<LimitResult> found = ListCandidates(limit, sound);
    LimitResult worst =
        *std::max_element(found.begin(), found.end(),
                          [&rank](const LimitResult& a, const LimitResult& b) { return rank(a) < rank(b); });
    if (limit.figure->limitsMagnitude && worst.value)
        worst.value = std::abs(*worst.value);
    worst.isBroken = rank(worst) > 0 || (rank(worst) == 0 && !limit.isWithin);
    worst.reason = worst.isBroken ? ExplainBreak(limit, worst) : "";
    return worst;
}
