#include "cli/measuring/figure_changes.h"

#include "cli/measuring/channel_change.h"

#include <algorithm>
#include <string_view>

namespace {

struct Kind {
    const char* what;
    std::string (ChannelChange::*tell)() const;
};
constexpr Kind Causes[] = {{"level", &ChannelChange::TellLevel},
                           {"frequency", &ChannelChange::TellFrequency},
                           {"DC", &ChannelChange::TellDc},
                           {"clipped samples", &ChannelChange::TellClipping},
                           {"flat tops", &ChannelChange::TellFlatTops},
                           {"wrapped samples", &ChannelChange::TellWraps},
                           {"jumps", &ChannelChange::TellJumps}};

bool IsAnyOf(std::string_view text, std::initializer_list<std::string_view> others) {
    return std::find(others.begin(), others.end(), text) != others.end();
}

/// Whether a figure is no other one in another unit, and one of the samples.
bool IsOfItsOwn(const MeasuredFigure& figure) {
    return !IsAnyOf(figure.unit, {"%", "µs"}) && !IsAnyOf(figure.name, {"dc", "limiter", "flat"});
}

/// How far figures of the same sound may lie apart.
double GetTolerance(const MeasuredFigure& figure) {
    constexpr double SameDb = 0.01, SameNoiseDb = 0.1, SameFrames = 0.01, SameCorrelation = 0.001;
    if (std::string_view(figure.unit).starts_with("dB"))
        return figure.group == MeasuredFigure::Group::Levels ? SameDb : SameNoiseDb;
    return IsAnyOf(figure.unit, {"frames"}) ? SameFrames : figure.decimals > 0 ? SameCorrelation : 0;
}

/// By their fields: the effects that tell most about their causes. All other figures follow.
constexpr const char* FirstEffects[] = {"toneCount", "thdPlusNoiseDb", "peakDbfs", "delayFrames",
                                        "correlation"};

/// What is told beside causes, where it has moved by more than this.
constexpr std::pair<const char*, double> FurtherEffects[] = {
    {"toneCount", 0}, {"thdPlusNoiseDb", 6}, {"correlation", 0.1}};

std::vector<const MeasuredFigure*> OrderByEffect() {
    std::vector<const MeasuredFigure*> ordered;
    for (const char* first : FirstEffects)
        for (const MeasuredFigure& each : GetMeasuredFigures())
            if (each.field == std::string_view(first))
                ordered.push_back(&each);
    for (const MeasuredFigure& each : GetMeasuredFigures())
        ordered.push_back(&each);
    return ordered;
}

using Channels = std::vector<ChannelChange>;

bool IsAlike(const Channels& channels, std::string (ChannelChange::*tell)() const) {
    return std::all_of(channels.begin(), channels.end(),
                       [tell](const ChannelChange& each) { return (each.*tell)().empty(); });
}

/// By their tones; where those are alike, by their levels.
bool AreSwapped(const Channels& straight, const Channels& crossed) {
    for (const auto tell : {&ChannelChange::TellFrequency, &ChannelChange::TellLevel})
        if (!IsAlike(straight, tell))
            return IsAlike(crossed, tell);
    return false;
}

class Finder {
public:
    Finder(const Json& measuredBefore, const Json& measuredNow) : before(measuredBefore), now(measuredNow) {}

    std::vector<FigureChange> Find() {
        const bool isCrossed = AreSidesOthers() && AreSwapped(Pair(false), Pair(true));
        if (isCrossed)
            changes.push_back({"channels", "swapped, and not to the bit the same"});
        const Channels channels = Pair(isCrossed);
        for (const Kind& kind : Causes)
            Add(kind.what, channels, [&](const ChannelChange& each) { return (each.*kind.tell)(); });
        if (changes.empty())
            AddEffect(channels);
        else
            AddFurtherEffects(channels);
        return changes;
    }

private:
    bool AreSidesOthers() const {
        const Json& channels = before["channels"];
        return channels.size() == 2 &&
               ChannelChange(channels[0], channels[1], Extent(before, now)).IsClearlyAnother();
    }

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

    void AddFigure(const MeasuredFigure& figure, double tolerance, const Channels& channels) {
        const auto tell = [&](const ChannelChange& each) { return each.TellFigure(figure, tolerance); };
        const char* const what = figure.label[0] == ' ' ? figure.name : figure.label;
        if (figure.ofSound)
            Add(what, {ChannelChange(before["whole"], now["whole"], Extent(before, now))}, tell);
        else
            Add(what, channels, tell);
    }

    /// Where there is no cause: the first that is to be seen.
    void AddEffect(const Channels& channels) {
        for (const MeasuredFigure* each : OrderByEffect())
            if (changes.empty() && IsOfItsOwn(*each))
                AddFigure(*each, GetTolerance(*each), channels);
    }

    /// More than level, frequency and DC explain.
    void AddFurtherEffects(const Channels& channels) {
        const bool isExplained = std::any_of(changes.begin(), changes.end(), [](const FigureChange& each) {
            return IsAnyOf(each.what, {"clipped samples", "flat tops", "wrapped samples", "jumps"});
        });
        if (isExplained)
            return;
        for (const MeasuredFigure& each : GetMeasuredFigures())
            for (const auto& [field, tolerance] : FurtherEffects)
                if (each.field == std::string_view(field))
                    AddFigure(each, tolerance, channels);
    }

    const Json& before;
    const Json& now;
    std::vector<FigureChange> changes;
};

} // namespace

std::vector<FigureChange> FindFigureChanges(const Json& before, const Json& now) {
    return Finder(before, now).Find();
}
