#include "app/file_reports.h"

#include "sys/file.h"
#include "sys/message_box.h"
#include "tone/tone_data.h"

void ReportUnreadable(const std::string& path, const std::string& otherwise) {
    const std::string reason = WhyUnreadable(path.c_str());
    LShowMessageBox("Error", "The file \"" + path +
                                 "\" can't be read: " + (reason.empty() ? otherwise : reason) + ".");
}

void ReportUnwritten(const std::string& path, const std::string& reason) {
    LShowMessageBox("Error", "The file \"" + path + "\" can't be written: " + reason + ".");
}

bool ReadToneFile(SonvireData& tone, const std::string& path) {
    const bool whole = tone.ReadFromFile(path.c_str());
    if (!whole)
        ReportUnreadable(path, "it is no tone file");
    return whole;
}
