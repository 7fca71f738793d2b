#include "cli/figure_changes.h"

#include "cli/measure_figures.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

namespace {

// How far figures of the same sound may lie apart.
constexpr double SameDb = 0.01, SameNoiseDb = 0.1, SamePpm = 1, SameDcPercent = 0.003,
                 SameCorrelation = 0.001, SameFrames = 0.01, BeyondAllDb = 150;

std::optional<double> Get(const Json& object, const char* field) {
    const auto found = object.find(field);
    return found != object.end() && found->is_number() ? std::optional(found->get<double>()) : std::nullopt;
}

double Count(const Json& object, const char* field) {
    return Get(object, field).value_or(0);
}

std::string Tell(std::optional<double> value, int decimals, const char* unit) {
    return value ? FormatNumber(*value, decimals) + unit : "none";
}

std::string MoreOrLess(double difference, int decimals, const char* unit) {
    return FormatNumber(std::abs(difference), decimals) + unit + (difference > 0 ? " higher: " : " lower: ");
}

/// "3 samples instead of none, the first at frame 17"
std::string CompareCounts(const Json& before, const Json& now, const char* field, const char* first) {
    const double was = Count(before, field), is = Count(now, field);
    if (was == is)
        return {};
    const std::string where = is > 0 ? ", the first at frame " + Tell(Get(now, first), 0, "") : "";
    return Tell(is, 0, "") + " instead of " + Tell(was, 0, "") + where;
}

/// How long the sound is.
struct Extent {
    Extent(const Json& before, const Json& now)
        : frames(std::max(1.0, Count(now, "frames"))),
          rate(Count(now, "rateHz")),
          missing(rate == Count(before, "rateHz") ? Count(before, "frames") - frames : 0) {}

    double frames, rate;
    double missing; ///< frames that it had before; below 0, those that it has more
};

/// How a channel of then and one of now compare. Empty where they are alike.
class ChannelChange {
public:
    ChannelChange(const Json& channelBefore, const Json& channelNow, const Extent& extentNow)
        : before(channelBefore),
          now(channelNow),
          extent(extentNow) {}

    std::string TellLevel() const;
    std::string TellFrequency() const;
    std::string TellDc() const;
    std::string TellClipping() const;
    std::string TellWraps() const { return CompareCounts(before, now, "wrappedSamples", "firstWrapFrame"); }
    std::string TellJumps() const;
    /// Any other one.
    std::string TellFigure(const MeasuredFigure& figure) const;

private:
    /// Samples that are others than they were, for reasons that are told.
    double CountDisturbed() const {
        return std::abs(extent.missing) +
               std::abs(Count(now, "wrappedSamples") - Count(before, "wrappedSamples")) +
               std::abs(Count(now, "clippedSamples") - Count(before, "clippedSamples"));
    }

    const Json& before;
    const Json& now;
    Extent extent;
};

std::string ChannelChange::TellLevel() const {
    const std::optional<double> was = Get(before, "rmsDbfs"), is = Get(now, "rmsDbfs");
    if (was.has_value() == is.has_value() && std::abs(is.value_or(0) - was.value_or(0)) < SameDb)
        return {};
    return (was && is ? MoreOrLess(*is - *was, 2, " dB") : "") + "RMS " + Tell(is, 2, " dBFS") +
           " instead of " + Tell(was, 2, " dBFS");
}

/// By their jumps, the phases of tones look like another frequency: by a part of a period over all of it.
std::string ChannelChange::TellFrequency() const {
    const Json &was = before["tones"], &is = now["tones"];
    if (was.size() != is.size())
        return {};
    const double ofJumps = TellJumps().empty() ? 0 : extent.rate / extent.frames;
    for (std::size_t i = 0; i < was.size(); ++i) {
        const double hz = Count(was[i], "frequencyHz"), nowHz = Count(is[i], "frequencyHz");
        const double ppm = (nowHz / hz - 1) * 1e6;
        if (std::abs(ppm) >= SamePpm && std::abs(nowHz - hz) > ofJumps)
            return MoreOrLess(ppm, 1, " ppm") + FormatNumber(nowHz, 4) + " Hz instead of " +
                   FormatNumber(hz, 4) + " Hz";
    }
    return {};
}

/// Of a tone that is another one, the last part of a period is as well.
std::string ChannelChange::TellDc() const {
    if (!TellFrequency().empty())
        return {};
    const double was = Count(before, "dcPercent"), is = Count(now, "dcPercent");
    const double ofDisturbed = 200 * CountDisturbed() / extent.frames;
    if (std::abs(is - was) < SameDcPercent + ofDisturbed)
        return {};
    return FormatNumber(is, 4) + "% of full scale instead of " + FormatNumber(was, 4) + "%";
}

/// Of a tone that just reaches full scale, chance counts some samples more, but no runs.
std::string ChannelChange::TellClipping() const {
    const bool hasMoreRuns = Count(now, "clippedRuns") > Count(before, "clippedRuns");
    const bool hasMany = Count(now, "clippedSamples") > 2 * Count(before, "clippedSamples");
    return hasMoreRuns || hasMany ? CompareCounts(before, now, "clippedSamples", "firstClipFrame") : "";
}

/// What is clipped or wrapped has jumps from that.
std::string ChannelChange::TellJumps() const {
    if (!(TellClipping() + TellWraps()).empty())
        return {};
    const std::string text = CompareCounts(before, now, "jumps", "firstJumpFrame");
    const bool mayBeMissing = extent.missing != 0 && !text.empty();
    return text + (!mayBeMissing        ? ""
                   : extent.missing > 0 ? ", as of dropped frames"
                                        : ", as of doubled frames");
}

bool IsAnyOf(std::string_view text, std::initializer_list<std::string_view> others) {
    return std::find(others.begin(), others.end(), text) != others.end();
}

/// Whether a figure is no other one in another unit, and one of the samples.
bool IsOfItsOwn(const MeasuredFigure& figure) {
    return !IsAnyOf(figure.unit, {"%", "µs"}) && !IsAnyOf(figure.name, {"dc", "limiter"});
}

double GetTolerance(const MeasuredFigure& figure) {
    if (std::string_view(figure.unit).starts_with("dB"))
        return figure.group == MeasuredFigure::Group::Levels ? SameDb : SameNoiseDb;
    return IsAnyOf(figure.unit, {"frames"}) ? SameFrames : figure.decimals > 0 ? SameCorrelation : 0;
}

/// Also of the sound as a whole.
std::string ChannelChange::TellFigure(const MeasuredFigure& figure) const {
    const std::optional<double> was = Get(before, figure.field), is = Get(now, figure.field);
    if (!before.contains(figure.field) || (!was && !is))
        return {};
    const bool areBeyond = was && is && std::min(std::abs(*was), std::abs(*is)) > BeyondAllDb &&
                           std::string_view(figure.unit).starts_with("dB");
    if (was && is && (areBeyond || std::abs(*is - *was) <= GetTolerance(figure)))
        return {};
    const std::string unit = *figure.unit ? std::string(" ") + figure.unit : "";
    return Tell(is, figure.decimals, unit.c_str()) + " instead of " +
           Tell(was, figure.decimals, unit.c_str());
}

struct Kind {
    const char* what;
    std::string (ChannelChange::*tell)() const;
};
constexpr Kind Causes[] = {{"level", &ChannelChange::TellLevel},
                           {"frequency", &ChannelChange::TellFrequency},
                           {"DC", &ChannelChange::TellDc},
                           {"clipped samples", &ChannelChange::TellClipping},
                           {"wrapped samples", &ChannelChange::TellWraps},
                           {"jumps", &ChannelChange::TellJumps}};

/// By their fields: the effects that tell most about their causes. All other figures follow.
constexpr const char* FirstEffects[] = {"toneCount", "thdPlusNoiseDb", "peakDbfs", "delayFrames",
                                        "correlation"};

using Channels = std::vector<ChannelChange>;

bool IsAlike(const Channels& channels, std::string (ChannelChange::*tell)() const) {
    return std::all_of(channels.begin(), channels.end(),
                       [tell](const ChannelChange& each) { return (each.*tell)().empty(); });
}

/// By their tones; where those are alike, by their levels.
bool AreSwapped(const Channels& straight, const Channels& crossed) {
    for (const auto tell : {&ChannelChange::TellFrequency, &ChannelChange::TellLevel})
        if (!IsAlike(straight, tell))
            return straight.size() == 2 && IsAlike(crossed, tell);
    return false;
}

class Finder {
public:
    Finder(const Json& measuredBefore, const Json& measuredNow) : before(measuredBefore), now(measuredNow) {}

    std::vector<FigureChange> Find() {
        const bool isCrossed = AreSwapped(Pair(false), Pair(true));
        if (isCrossed)
            changes.push_back({"channels", "swapped, and not to the bit the same"});
        const Channels channels = Pair(isCrossed);
        for (const Kind& kind : Causes)
            Add(kind.what, channels, [&](const ChannelChange& each) { return (each.*kind.tell)(); });
        AddEffect(channels);
        return changes;
    }

private:
    Channels Pair(bool isCrossed) const {
        Channels pairs;
        const Extent extent(before, now);
        const std::size_t last = before["channels"].size() - 1;
        for (std::size_t i = 0; i <= last; ++i)
            pairs.emplace_back(before["channels"][i], now["channels"][isCrossed ? last - i : i], extent);
        return pairs;
    }

    /// What all channels have in common is told once.
    template <class Tell>
    void Add(const std::string& what, const Channels& channels, Tell tell) {
        std::vector<std::string> texts;
        for (const ChannelChange& each : channels)
            texts.push_back(tell(each));
        const bool isCommon = std::all_of(texts.begin(), texts.end(),
                                          [&](const std::string& text) { return text == texts.front(); });
        for (std::size_t i = 0; i < (isCommon ? 1 : texts.size()); ++i)
            if (!texts[i].empty())
                changes.push_back(
                    {what, isCommon ? texts[i] : now["channels"][i].value("name", "") + " " + texts[i]});
    }

    void AddFigure(const MeasuredFigure& figure, const Channels& channels) {
        const auto tell = [&](const ChannelChange& each) { return each.TellFigure(figure); };
        const char* const what = figure.label[0] == ' ' ? figure.name : figure.label;
        if (!changes.empty() || !IsOfItsOwn(figure))
            return;
        if (figure.ofSound)
            Add(what, {ChannelChange(before["whole"], now["whole"], Extent(before, now))}, tell);
        else
            Add(what, channels, tell);
    }

    /// One of them, where there is no cause.
    void AddEffect(const Channels& channels) {
        for (const char* first : FirstEffects)
            for (const MeasuredFigure& each : GetMeasuredFigures())
                if (each.field == std::string_view(first))
                    AddFigure(each, channels);
        for (const MeasuredFigure& each : GetMeasuredFigures())
            AddFigure(each, channels);
    }

    const Json& before;
    const Json& now;
    std::vector<FigureChange> changes;
};

} // namespace

std::vector<FigureChange> FindFigureChanges(const Json& before, const Json& now) {
    return Finder(before, now).Find();
}
