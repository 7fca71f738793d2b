#include "cli/measuring/channel_change.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace {

// How far figures of the same sound may lie apart.
constexpr double SameDb = 0.01, SamePpm = 1, SameDcPercent = 0.003;
constexpr double BeyondAllDb = 150; ///< what rounding makes of silence

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

/// All but the tones beside all, as powers.
double GetNoise(const Json& channel) {
    return std::pow(10, Get(channel, "thdPlusNoiseDb").value_or(-BeyondAllDb) / 10);
}

/// "3 samples instead of none, the first at frame 17"
std::string CompareCounts(const Json& before, const Json& now, const char* field, const char* first) {
    const double was = Count(before, field), is = Count(now, field);
    if (was == is)
        return {};
    const std::string where = is > 0 ? ", the first at frame " + Tell(Get(now, first), 0, "") : "";
    return Tell(is, 0, "") + " instead of " + Tell(was, 0, "") + where;
}

} // namespace

Extent::Extent(const Json& before, const Json& now)
    : frames(std::max(1.0, Count(now, "frames"))),
      rate(Count(now, "rateHz")),
      missing(rate == Count(before, "rateHz") ? Count(before, "frames") - frames : 0) {}

bool ChannelChange::IsClearlyAnother() const {
    constexpr double ClearPpm = 100, ClearDb = 0.1;
    const std::optional<Shift> shift = FindShift();
    return before["tones"].size() != now["tones"].size() || (shift && std::abs(shift->GetPpm()) > ClearPpm) ||
           std::abs(Count(now, "rmsDbfs") - Count(before, "rmsDbfs")) > ClearDb;
}

std::string ChannelChange::TellLevel() const {
    const std::optional<double> was = Get(before, "rmsDbfs"), is = Get(now, "rmsDbfs");
    if (was.has_value() == is.has_value() && std::abs(is.value_or(0) - was.value_or(0)) < SameDb)
        return {};
    return (was && is ? MoreOrLess(*is - *was, 2, " dB") : "") + "RMS " + Tell(is, 2, " dBFS") +
           " instead of " + Tell(was, 2, " dBFS");
}

std::optional<ChannelChange::Shift> ChannelChange::FindShift() const {
    const Json &was = before["tones"], &is = now["tones"];
    for (std::size_t i = 0; i < was.size() && was.size() == is.size(); ++i) {
        const Shift shift{Count(was[i], "frequencyHz"), Count(is[i], "frequencyHz")};
        if (std::abs(shift.GetPpm()) >= SamePpm)
            return shift;
    }
    return {};
}

/// Where frames are lost, the phases of tones look like another frequency: by a part of a period over all of
/// it, and for a few frames by that many more periods in it.
bool ChannelChange::IsOfLostFrames(const Shift& shift) const {
    const double ofJumps = CountNewJumps() > 0 ? extent.rate : 0;
    const double ofMissing = std::min(4 * std::abs(extent.missing) * shift.hz, extent.rate);
    return std::abs(shift.nowHz - shift.hz) < std::max(ofJumps, ofMissing) / extent.frames;
}

std::string ChannelChange::TellFrequency() const {
    const std::optional<Shift> shift = FindShift();
    if (!shift || IsOfLostFrames(*shift))
        return {};
    return MoreOrLess(shift->GetPpm(), 1, " ppm") + FormatNumber(shift->nowHz, 4) + " Hz instead of " +
           FormatNumber(shift->hz, 4) + " Hz";
}

/// Its own moves with the level. Of a tone that is another one, the last part of a period is so as well.
std::string ChannelChange::TellDc() const {
    if (!TellFrequency().empty())
        return {};
    const double gainDb = Count(now, "rmsDbfs") - Count(before, "rmsDbfs");
    const double was = Count(before, "dcPercent"), is = Count(now, "dcPercent");
    const double ofDisturbed = 200 * CountDisturbed() / extent.frames;
    // What samples that are disturbed for other reasons may add: their power, beside that of the sound.
    const double ofNoise = 200 * std::max(0.0, GetNoise(now) - GetNoise(before));
    if (std::abs(is - was * std::pow(10, gainDb / 20)) < SameDcPercent + ofDisturbed + ofNoise)
        return {};
    return FormatNumber(is, 4) + "% of full scale instead of " + FormatNumber(was, 4) + "%";
}

/// Of a tone that just reaches full scale, chance counts some samples more, but no runs.
std::string ChannelChange::TellClipping() const {
    const bool hasMoreRuns = Count(now, "clippedRuns") > Count(before, "clippedRuns");
    const bool hasMany = Count(now, "clippedSamples") > 2 * Count(before, "clippedSamples");
    return hasMoreRuns || hasMany ? CompareCounts(before, now, "clippedSamples", "firstClipFrame") : "";
}

/// Of what was cut below full scale, which distorts. Another tone may meet its peaks more often.
std::string ChannelChange::TellFlatTops() const {
    constexpr double Often = 3, Few = 20, DistortedDb = 6;
    const double was = Count(before, "peakSamples"), is = Count(now, "peakSamples");
    const bool isOfAnother = before["tones"].size() != now["tones"].size() || FindShift() ||
                             GetNoise(now) < GetNoise(before) * std::pow(10, DistortedDb / 10);
    const bool hasTones = !before["tones"].empty();
    if (!before.contains("peakSamples") || is < Often * was + Few || (hasTones && isOfAnother) ||
        !TellClipping().empty())
        return {};
    return Tell(is, 0, "") + " samples at peaks of " + Tell(Get(now, "peakDbfs"), 2, " dBFS") +
           " instead of " + Tell(was, 0, "");
}

/// What is clipped or wrapped has jumps from that.
double ChannelChange::CountNewJumps() const {
    const bool isOfOthers = !(TellClipping() + TellWraps()).empty();
    return isOfOthers ? 0 : std::abs(Count(now, "jumps") - Count(before, "jumps"));
}

std::string ChannelChange::TellJumps() const {
    const std::optional<Shift> shift = FindShift();
    const std::string cause = extent.missing > 0   ? ", as of dropped frames"
                              : extent.missing < 0 ? ", as of inserted frames"
                                                   : "";
    if (CountNewJumps() > 0)
        return CompareCounts(before, now, "jumps", "firstJumpFrame") + cause;
    const bool hasUnseen = shift && !cause.empty() && IsOfLostFrames(*shift);
    return hasUnseen ? "not found, but " + FormatNumber(shift->hz, 4) + " Hz look like " +
                           FormatNumber(shift->nowHz, 4) + " Hz" + cause
                     : "";
}

std::string ChannelChange::TellWraps() const {
    return CompareCounts(before, now, "wrappedSamples", "firstWrapFrame");
}

/// Samples that are others than they were, for reasons that are told.
double ChannelChange::CountDisturbed() const {
    return std::abs(extent.missing) +
           std::abs(Count(now, "wrappedSamples") - Count(before, "wrappedSamples"));
}

std::string ChannelChange::TellFigure(const MeasuredFigure& figure, double tolerance) const {
    const std::optional<double> was = Get(before, figure.field), is = Get(now, figure.field);
    const bool isOfOtherTones = figure.group == MeasuredFigure::Group::Distortion &&
                                Count(before, "toneCount") != Count(now, "toneCount");
    if (!before.contains(figure.field) || (!was && !is) || isOfOtherTones)
        return {};
    const bool areBeyond = was && is && std::min(std::abs(*was), std::abs(*is)) > BeyondAllDb &&
                           std::string_view(figure.unit).starts_with("dB");
    if (was && is && (areBeyond || std::abs(*is - *was) <= tolerance))
        return {};
    const std::string unit = *figure.unit ? std::string(" ") + figure.unit : "";
    return Tell(is, figure.decimals, unit.c_str()) + " instead of " +
           Tell(was, figure.decimals, unit.c_str());
}
