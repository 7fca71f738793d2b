#include "cli/measuring/measure_report.h"
#include "sound/decibels.h"

#include <cmath>

namespace {

using Group = MeasuredFigure::Group;

/// JSON has neither infinities nor what isn't there.
Json Number(const MeasuredFigure& figure, MeasuredFigure::Value value) {
    if (!value || !std::isfinite(*value))
        return nullptr;
    const bool isWhole = figure.decimals == 0;
    return isWhole ? Json(std::llround(*value)) : Json(*value);
}

Json DescribeLine(const ToneLine& line) {
    Json object = {{"frequencyHz", line.hz}, {"levelDbfs", ToDecibels(line.amplitude)}};
    if (line.harmonic > 0) {
        object["tone"] = line.tone + 1;
        object["harmonic"] = line.harmonic;
    }
    return object;
}

Json DescribeLines(const std::vector<ToneLine>& lines) {
    Json array = Json::array();
    for (const ToneLine& each : lines)
        array.push_back(DescribeLine(each));
    return array;
}

void AddFigures(Json& object, const MeasuredColumn& column) {
    for (const MeasuredFigure& each : GetMeasuredFigures())
        if (each.ofChannel && (!column.isWhole || MeasuredFigure::HasWhole(each.group)))
            object[each.field] = Number(each, each.ofChannel(column.figures));
}

Json DescribeChannels(const MeasuredSound& sound) {
    Json array = Json::array();
    for (const MeasuredColumn& each : ListChannels(sound)) {
        Json object = {{"name", each.name}};
        AddFigures(object, each);
        object["isSteady"] = each.figures.tones.isSteady;
        object["isWithinReach"] = each.figures.tones.isWithinReach;
        object["tones"] = DescribeLines(each.figures.tones.tones);
        object["strongestLines"] = DescribeLines(each.figures.tones.strongest);
        array.push_back(std::move(object));
    }
    return array;
}

Json DescribeWhole(const MeasuredSound& sound) {
    Json object = Json::object();
    AddFigures(object, MakeWhole(sound));
    for (const MeasuredFigure& each : GetMeasuredFigures())
        if (each.ofSound)
            object[each.field] = Number(each, each.ofSound(sound));
    return object;
}

Json DescribeMethod(const Spectrum& spectrum) {
    const bool hasSpectrum = spectrum.segmentFrames > 0;
    return {{"window", "Kaiser"},
            {"windowBeta", Spectrum::WindowBeta},
            {"segmentFrames", spectrum.segmentFrames},
            {"hopFrames", spectrum.hopFrames},
            {"segments", spectrum.segments},
            {"lookedAtPercent", 100 * spectrum.lookedAt},
            {"averaging", "mean power"},
            {"binHz", hasSpectrum ? Json(spectrum.GetHzPerBin()) : Json()},
            {"lowestHz", ToneFigures::LowestHz},
            {"highestHz", ToneFigures::HighestHz},
            {"sources",
             {{"truePeakDbtp", "ITU-R BS.1770-4, annex 2"},
              {"rmsAes17Dbfs", "AES17, IEC 61606-3"},
              {"thdPlusNoiseDb", "AES17, IEC 61606-3"}}}};
}

} // namespace

Json DescribeMeasurement(const MeasuredSound& sound) {
    Json object = DescribeType("measurement");
    object["input"] = sound.name;
    object["rateHz"] = sound.rate;
    object["bits"] = sound.bits;
    object["frames"] = sound.GetFrames();
    object["channels"] = DescribeChannels(sound);
    object["whole"] = DescribeWhole(sound);
    object["method"] = DescribeMethod(sound.figures.spectrum);
    return object;
}

Json DescribeLimits(const std::vector<MeasureLimit>& limits, const MeasuredSound& sound) {
    Json array = Json::array();
    for (const MeasureLimit& each : limits) {
        const LimitResult result = CheckLimit(each, sound);
        array.push_back({{"limit", each.text},
                         {"isImplied", each.isImplied},
                         {"isBroken", result.isBroken},
                         {"channel", result.channel},
                         {"value", Number(*each.figure, result.value)},
                         {"reason", result.reason}});
    }
    return array;
}
