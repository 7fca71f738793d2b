#include "app/window/file_reports.h"

#include "sys/desktop/message_box.h"
#include "sys/file.h"
#include "tone/tone_data.h"

namespace {

void Report(const std::string& path, const char* failure, const std::string& reason) {
    LShowMessageBox("Error", "The file \"" + path + "\" can't be " + failure + ": " + reason + ".");
}

} // namespace

void ReportUnreadable(const std::string& path, const std::string& otherwise) {
    const std::string reason = WhyUnreadable(path.c_str());
    Report(path, "read", reason.empty() ? otherwise : reason);
}

void ReportNotAdded(const std::string& path, const std::string& reason) {
    Report(path, "added", reason);
}

void ReportUnwritten(const std::string& path, const std::string& reason) {
    Report(path, "written", reason);
}

bool ReadToneFile(SonvireData& tone, const std::string& path) {
    const bool whole = tone.ReadFromFile(path.c_str());
    if (!whole)
        ReportUnreadable(path, "it is no tone file");
    return whole;
}
