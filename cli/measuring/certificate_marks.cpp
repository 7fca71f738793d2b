#include "cli/measuring/certificate_marks.h"

#include <algorithm>
#include <charconv>
#include <cstdio>

namespace {

/// False where the text is more than a number, or none.
template <class Number>
bool Parse(const std::string& text, int base, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number, base);
    return error == std::errc() && stop == end;
}

} // namespace

Json DescribeMarks(const std::vector<FrameMark>& marks) {
    Json object = Json::object();
    for (const FrameMark& each : marks) {
        char digits[17];
        std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(each.hash));
        object[std::to_string(each.frame)] = digits;
    }
    return object;
}

std::optional<std::vector<FrameMark>> ReadMarks(const Json& described) {
    std::vector<FrameMark> marks;
    if (!described.is_object())
        return {};
    for (const auto& [frame, hash] : described.items()) {
        FrameMark mark{};
        const std::int64_t after = marks.empty() ? 0 : marks.back().frame + 1;
        if (!hash.is_string() || !Parse(frame, 10, mark.frame) || !Parse(hash, 16, mark.hash) ||
            mark.frame < after)
            return {};
        marks.push_back(mark);
    }
    return marks;
}

std::vector<FigureChange> NameMoves(const std::vector<FrameMark>& marks,
                                    const std::vector<std::optional<std::int64_t>>& shifts,
                                    std::int64_t longer) {
    std::vector<FigureChange> changes;
    std::int64_t shift = 0, place = 0;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        if (!shifts[i])
            continue;
        const auto next = std::find_if(shifts.begin() + static_cast<std::ptrdiff_t>(i) + 1, shifts.end(),
                                       [](const auto& each) { return each.has_value(); });
        // In a tone, a single one may be found in another period.
        const bool isConfirmed =
            *shifts[i] == shift || *shifts[i] == (next != shifts.end() ? **next : longer);
        const std::int64_t moved = *shifts[i] - shift;
        if (!isConfirmed)
            continue;
        const std::int64_t found = marks[i].frame + *shifts[i];
        if (moved != 0)
            changes.push_back({"frames", std::to_string(std::abs(moved)) +
                                             (moved < 0 ? " dropped" : " inserted") + " between frames " +
                                             std::to_string(place) + " and " + std::to_string(found)});
        shift = *shifts[i];
        place = found;
    }
    return changes;
}
