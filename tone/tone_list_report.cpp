#include "tone/tone_list_report.h"

#include "tone/tone_list_source.h"

#include <algorithm>

namespace {

ToneListLength MeasureEntry(const ToneListEntry& entry) {
    return entry.problem.empty() ? ToneListLength{.ms = entry.length.GetMilliseconds()}
                                 : ToneListLength{.unknown = 1};
}

} // namespace

ToneListReport ExamineToneList(const std::string& path) {
    ToneListReport report;
    static_cast<void>(OpenToneList(path, &report));
    return report;
}

ToneListReport ExamineToneListEntry(const std::string& line) {
    ToneListOpening opening;
    static_cast<void>(opening.nesting.Enter({})); // a list without a file
    const SSFromList list({ParseToneListLine(line)}, {}, opening);
    return std::move(opening.report);
}

ToneListLength& ToneListLength::operator+=(const ToneListLength& more) {
    ms += more.ms;
    unknown += more.unknown;
    return *this;
}

ToneListLength ToneListReport::Measure() const {
    ToneListLength length;
    for (auto entry = entries.begin(); entry != entries.end();) {
        const int depth = entry->depth;
        const auto next = entry + 1;
        const bool holdsEntries = next != entries.end() && next->depth > depth;
        if (holdsEntries && entry->problem.empty()) {
            entry = next;
        } else {
            length += MeasureEntry(*entry);
            entry = std::find_if(next, entries.end(),
                                 [depth](const ToneListEntry& each) { return each.depth <= depth; });
        }
    }
    return length;
}

std::int64_t ToneListReport::CountMilliseconds() const {
    std::int64_t total = 0;
    for (const ToneListEntry& entry : entries)
        total += entry.depth == 0 ? entry.length.GetMilliseconds() : 0;
    return total;
}
