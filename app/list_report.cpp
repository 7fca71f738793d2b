#include "app/list_report.h"

#include "app/quality.h"
#include "jobs/hires_lists.h"

ToneListReport ExamineList(const std::string& path) {
    return GetQuality().IsHigh() ? ExamineHiresList(path) : ExamineToneList(path);
}

ToneListReport ExamineListLine(const std::string& line) {
    return GetQuality().IsHigh() ? ExamineHiresListEntry(line) : ExamineToneListEntry(line);
}
