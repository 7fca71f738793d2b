#include "app/list_report.h"

#include "jobs/hires_lists.h"

ToneListReport ExamineList(const std::string& path, const Quality& quality) {
    return quality.IsHigh() ? ExamineHiresList(path) : ExamineToneList(path);
}

ToneListReport ExamineListLine(const std::string& line, const Quality& quality) {
    return quality.IsHigh() ? ExamineHiresListEntry(line) : ExamineToneListEntry(line);
}
