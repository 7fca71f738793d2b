#include "cli/figure_changes.h"

#include "cli/measure_figures.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace {

// How far figures of the same sound may lie apart.
constexpr double SameDb = 0.01, SameNoiseDb = 0.1, SamePpm = 1, SameDcPercent = 0.003,
                 SameCorrelation = 0.001, SameFrames = 0.01;

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

/// "-20.05 dBFS instead of -20.00 dBFS", behind by how much it is; empty where both are the same.
std::string Compare(const Json& before, const Json& now, const char* field, double same, const char* unit,
                    const char* of) {
    const std::optional<double> was = Get(before, field), is = Get(now, field);
    if (was.has_value() == is.has_value() && std::abs(is.value_or(0) - was.value_or(0)) < same)
        return {};
    const std::string reach = Tell(is, 2, unit) + " instead of " + Tell(was, 2, unit);
    return (was && is ? MoreOrLess(*is - *was, 2, " dB") : "") + of + reach;
}

/// "3 samples instead of none, the first at frame 17"
std::string CompareCounts(const Json& before, const Json& now, const char* field, const char* first) {
    const double was = Count(before, field), is = Count(now, field);
    if (was == is)
        return {};
    const std::string where = is > 0 ? ", the first at frame " + Tell(Get(now, first), 0, "") : "";
    return Tell(is, 0, "") + " instead of " + Tell(was, 0, "") + where;
}

/// How a channel of then and one of now compare. Empty where they are alike.
class ChannelChange {
public:
    ChannelChange(const Json& channelBefore, const Json& channelNow, double frameCount, double framesMissing)
        : before(channelBefore),
          now(channelNow),
          frames(frameCount),
          missing(framesMissing) {}

    std::string TellLevel() const { return Compare(before, now, "rmsDbfs", SameDb, " dBFS", "RMS "); }
    std::string TellFrequency() const;
    std::string TellTones() const;
    std::string TellDc() const;
    std::string TellClipping() const;
    std::string TellWraps() const { return CompareCounts(before, now, "wrappedSamples", "firstWrapFrame"); }
    std::string TellJumps() const;
    std::string TellPeak() const { return Compare(before, now, "peakDbfs", SameDb, " dBFS", ""); }
    std::string TellNoise() const {
        return Compare(before, now, "thdPlusNoiseDb", SameNoiseDb, " dB", "THD+N ");
    }

private:
    /// Samples that are others than they were, for reasons that are told.
    double CountDisturbed() const {
        return std::abs(missing) + std::abs(Count(now, "wrappedSamples") - Count(before, "wrappedSamples")) +
               std::abs(Count(now, "clippedSamples") - Count(before, "clippedSamples"));
    }

    const Json& before;
    const Json& now;
    double frames, missing;
};

/// A tone that jumps has a phase that says nothing about its frequency.
std::string ChannelChange::TellFrequency() const {
    const Json &was = before["tones"], &is = now["tones"];
    if (was.size() != is.size() || !TellJumps().empty())
        return {};
    for (std::size_t i = 0; i < was.size(); ++i) {
        const double hz = Count(was[i], "frequencyHz"), nowHz = Count(is[i], "frequencyHz");
        const double ppm = (nowHz / hz - 1) * 1e6;
        if (std::abs(ppm) >= SamePpm)
            return MoreOrLess(ppm, 1, " ppm") + FormatNumber(nowHz, 4) + " Hz instead of " +
                   FormatNumber(hz, 4) + " Hz";
    }
    return {};
}

std::string ChannelChange::TellTones() const {
    const std::size_t was = before["tones"].size(), is = now["tones"].size();
    return was == is ? "" : std::to_string(is) + " instead of " + std::to_string(was);
}

/// Of a tone that is another one, the last part of a period is as well.
std::string ChannelChange::TellDc() const {
    if (!TellFrequency().empty())
        return {};
    const double was = Count(before, "dcPercent"), is = Count(now, "dcPercent");
    const double ofDisturbed = 200 * CountDisturbed() / frames;
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
    const bool mayBeMissing = missing != 0 && !text.empty();
    return text + (!mayBeMissing ? "" : missing > 0 ? ", as of dropped frames" : ", as of doubled frames");
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
constexpr Kind Effects[] = {{"tones", &ChannelChange::TellTones},
                            {"noise", &ChannelChange::TellNoise},
                            {"peak", &ChannelChange::TellPeak}};

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
            Add(kind, channels);
        AddStereo();
        for (const Kind& kind : Effects)
            if (changes.empty())
                Add(kind, channels);
        return changes;
    }

private:
    Channels Pair(bool isCrossed) const {
        Channels pairs;
        const double frames = std::max(1.0, Count(now, "frames"));
        const bool isSameRate = Count(before, "rateHz") == Count(now, "rateHz");
        const double missing = isSameRate ? Count(before, "frames") - frames : 0;
        const std::size_t last = before["channels"].size() - 1;
        for (std::size_t i = 0; i <= last; ++i)
            pairs.emplace_back(before["channels"][i], now["channels"][isCrossed ? last - i : i], frames,
                               missing);
        return pairs;
    }

    /// What all channels have in common is told once.
    void Add(const Kind& kind, const Channels& channels) {
        std::vector<std::string> texts;
        for (const ChannelChange& each : channels)
            texts.push_back((each.*kind.tell)());
        const bool isCommon = std::all_of(texts.begin(), texts.end(),
                                          [&](const std::string& text) { return text == texts.front(); });
        for (std::size_t i = 0; i < (isCommon ? 1 : texts.size()); ++i)
            if (!texts[i].empty())
                changes.push_back(
                    {kind.what, isCommon ? texts[i] : now["channels"][i].value("name", "") + " " + texts[i]});
    }

    void AddStereo() {
        for (const auto& [field, what, unit, same] :
             {std::tuple{"delayFrames", "delay of right", " frames", SameFrames},
              std::tuple{"correlation", "correlation", "", SameCorrelation}}) {
            const auto was = Get(before["whole"], field), is = Get(now["whole"], field);
            if (changes.empty() && was && is && std::abs(*is - *was) >= same)
                changes.push_back({what, Tell(is, 3, unit) + " instead of " + Tell(was, 3, unit)});
        }
    }

    const Json& before;
    const Json& now;
    std::vector<FigureChange> changes;
};

} // namespace

std::vector<FigureChange> FindFigureChanges(const Json& before, const Json& now) {
    return Finder(before, now).Find();
}
