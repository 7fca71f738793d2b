#include "cli/measuring/measure_limits.h"

#include "cli/nearest.h"
#include "cli/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <string_view>

namespace {

/// As names and units are compared: "True Peak" is truepeak, "THD+N" thdn.
std::string Simplify(const std::string& text) {
    std::string simple = ToLower(text);
    std::erase_if(simple, [](char c) { return c == ' ' || c == '-' || c == '_' || c == '+'; });
    for (const std::string micro : {"\u00B5", "\u03BC"})
        if (simple.starts_with(micro))
            simple.replace(0, micro.size(), "u");
    return simple;
}

/// The figures of one name, which follow each other.
std::span<const MeasuredFigure> FindFigures(const std::string& name) {
    const auto figures = GetMeasuredFigures();
    const auto isNamed = [&name](const MeasuredFigure& each) { return each.name == name; };
    const auto first = std::find_if(figures.begin(), figures.end(), isNamed);
    return {first, std::find_if_not(first, figures.end(), isNamed)};
}

std::string RefuseName(const std::string& name) {
    std::vector<std::string> names;
    for (const MeasuredFigure& each : GetMeasuredFigures())
        names.emplace_back(each.name);
    const std::string nearest = FindNearest(name, names);
    return "there is no figure \"" + name + "\"; " +
           (nearest.empty() ? "--limit '?' lists them" : "did you mean " + nearest + "?");
}

bool IsChannel(const std::string& name) {
    const bool isNumbered = name.starts_with("ch") && name.size() > 2 &&
                            name.find_first_not_of("0123456789", 2) == std::string::npos;
    return isNumbered || name == "mono" || name == "left" || name == "right" || name == "all";
}

std::string CheckChannel(const std::string& channel, const MeasuredFigure& figure) {
    if (channel.empty())
        return {};
    if (!IsChannel(channel))
        return "\"" + channel + "\" is no channel: left, right, mono, ch1, ch2 and so on, and all are";
    if (figure.ofSound)
        return std::string(figure.name) + " is one figure of all channels";
    return channel != "all" || MeasuredFigure::HasWhole(figure.group)
               ? ""
               : std::string(figure.name) + " is one of each channel";
}

/// All decibels may be written as dB, and a unit may be left out where it is the first one.
std::optional<double> ParseValue(const std::string& text, const MeasuredFigure& figure, bool isFirst) {
    const std::string_view unit = figure.unit;
    if (const auto hz = unit == "Hz" ? ParseFrequency(text) : std::nullopt)
        return hz;
    const std::size_t begin = std::min(text.find_first_not_of(" +"), text.size());
    double value = 0;
    const auto [end, failure] = std::from_chars(text.data() + begin, text.data() + text.size(), value);
    const std::string typed = Simplify(end);
    const bool fits =
        typed.empty() ? isFirst : typed == Simplify(figure.unit) || (typed == "db" && unit.starts_with("dB"));
    return failure == std::errc() && std::isfinite(value) && fits ? std::optional(value) : std::nullopt;
}

/// Finds the figure that has the unit of the value.
std::string TakeValue(MeasureLimit& limit, const std::string& text, std::span<const MeasuredFigure> figures) {
    std::string units;
    for (const MeasuredFigure& each : figures) {
        if (const auto value = ParseValue(text, each, &each == figures.data())) {
            limit.figure = &each;
            limit.value = *value;
            return {};
        }
        units += (units.empty() ? "" : " or ") + std::string(each.unit);
    }
    return "\"" + text + "\" is no value of " + figures.front().name +
           (units.empty() ? "" : ", which is in " + units);
}

} // namespace

TypedLimit ParseLimit(const std::string& text) {
    TypedLimit typed;
    MeasureLimit& limit = typed.limit;
    limit.text = text;
    const std::size_t sign = text.find_first_of("<>");
    if (sign == std::string::npos) {
        typed.problem = "\"" + text + "\" is no limit; NAME<VALUE is, or with <=, > or >=, as in thdn<-90";
        return typed;
    }
    std::string name = Simplify(text.substr(0, sign));
    if (const std::size_t dot = name.find('.'); dot != std::string::npos) {
        limit.channel = name.substr(0, dot);
        name.erase(0, dot + 1);
    }
    limit.isUpper = text[sign] == '<';
    limit.isWithin = text.substr(sign + 1, 1) == "=";
    const auto figures = FindFigures(name);
    typed.problem = figures.empty() ? RefuseName(name) : CheckChannel(limit.channel, figures.front());
    if (typed.problem.empty())
        typed.problem = TakeValue(limit, text.substr(sign + (limit.isWithin ? 2 : 1)), figures);
    return typed;
}

void AddImpliedLimit(std::vector<MeasureLimit>& limits) {
    const auto isOfUnusable = [](const MeasureLimit& each) {
        return each.figure->name == std::string_view("unusable");
    };
    if (limits.empty() || std::any_of(limits.begin(), limits.end(), isOfUnusable))
        return;
    limits.push_back(ParseLimit("unusable<=0").limit);
    limits.back().isImplied = true;
}

std::string ExplainLimits() {
    std::string text = "A limit is NAME<VALUE, or with <=, > or >=. Without a unit it is in the first\n"
                       "one that is listed. Each channel has to keep to it, or the one that is named:\n"
                       "left.peak, right.peak, ch3.peak; all.peak is that of all together.\n";
    for (const MeasuredFigure& each : GetMeasuredFigures()) {
        char line[128];
        const char* unit = *each.unit ? each.unit : "a number";
        std::snprintf(line, sizeof line, "%-12s  %-22s  %s\n", each.name, each.label, unit);
        text += line;
    }
    return text;
}
