#include "tone/tone_list_report.h"

#include "tone/tone_list_source.h"

ToneListReport ExamineToneList(const std::string& path) {
    ToneListReport report;
    OpenToneList(path, &report);
    return report;
}

ToneListEntry ExamineToneListEntry(const std::string& line) {
    ToneListOpening opening{.showsBoxes = false};
    opening.nesting.Enter({}); // a list without a file
    const SSFromList list({ParseToneListLine(line)}, {}, opening);
    return std::move(opening.report.entries.front());
}
