#include "cli/text.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <sstream>

std::string ToLower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::vector<std::string> SplitAtCommas(const std::string& text) {
    std::vector<std::string> parts;
    std::istringstream stream(text);
    for (std::string part; std::getline(stream, part, ',');)
        parts.push_back(part);
    if (!text.empty() && text.back() == ',')
        parts.emplace_back();
    return parts;
}

CLI::Validator DecimalIn(int lowest, int highest) {
    const std::string range = std::to_string(lowest) + " to " + std::to_string(highest);
    return CLI::Validator(
        [lowest, highest, range](const std::string& text) {
            int value = 0;
            const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
            const bool plain =
                failure == std::errc() && end == text.data() + text.size() && std::to_string(value) == text;
            return plain && value >= lowest && value <= highest
                       ? ""
                       : "\"" + text + "\" is not in the range " + range;
        },
        range);
}

std::string ExplainNone(const TypedKind& kind, const std::string& text) {
    return "\"" + text + "\" is not understood; " + kind.examples + " are";
}

CLI::Validator WholeIn(const TypedKind& kind, int lowest, int highest) {
    const std::string range = std::to_string(lowest) + " to " + std::to_string(highest);
    const auto take = [=](std::string& text) -> std::string {
        const std::optional<double> value = kind.parse(text);
        if (!value)
            return ExplainNone(kind, text);
        const double whole = std::round(*value);
        if (std::fabs(*value - whole) > 1e-6) // of 44.1k, which is not exact
            return "\"" + text + "\" is not a whole number of " + kind.unit;
        if (whole < lowest || whole > highest)
            return "\"" + text + "\" is not in the range " + range + " " + kind.unit;
        text = std::to_string(static_cast<int>(whole));
        return {};
    };
    return CLI::Validator(take, "");
}
