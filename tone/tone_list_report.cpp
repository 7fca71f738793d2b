#include "tone/tone_list_report.h"

#include "tone/tone_list_source.h"

ToneListReport ExamineToneList(const std::string& path) {
    ToneListReport report;
    static_cast<void>(OpenToneList(path, &report));
    return report;
}

ToneListEntry ExamineToneListEntry(const std::string& line) {
    ToneListOpening opening;
    static_cast<void>(opening.nesting.Enter({})); // a list without a file
    const SSFromList list({ParseToneListLine(line)}, {}, opening);
    return std::move(opening.report.entries.front());
}

std::int64_t ToneListReport::CountMilliseconds() const {
    std::int64_t total = 0;
    for (const ToneListEntry& entry : entries)
        total += entry.depth == 0 ? entry.length.GetMilliseconds() : 0;
    return total;
}
