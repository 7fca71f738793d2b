#include "app/desktop/crash_offer.h"
#include "app/window/main_dialog.h"
#include "app/window/notices.h"
#include "gui/toolkit.h"
#include "jobs/file_notices.h"
#include "sys/desktop/message_box.h"
#include "sys/desktop/settings.h"
#include "sys/path.h"

#include <filesystem>

namespace {

/// So that it still leads there at the next start, from another folder.
std::string MakeAbsolute(const std::string& path) {
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(path, error);
    return error ? path : full.native();
}

/// One that can't be read leaves the tone as it was, with a box; false then.
bool ReadTone(SonvireData& tone, const std::string& path) {
    SonvireData read;
    if (const LFailure failure = read.ReadFromFile(path.c_str())) {
        ShowNotice(DescribeUnreadable(path, failure));
        return false;
    }
    tone = read;
    return true;
}

} // namespace

void MainDialog::RememberFile(const std::string& path) {
    LUserSettingSetString("settings", "file", path);
    LUserSettingSetString("settings", "filedir", GetFolder(path));
}

void MainDialog::CmLoadFile(const char* path) {
    RememberFile(path);
    if (GetExtension(path) == ".tdf")
        ReadTone(tone, path);
    else
        LShowMessageBox("Unrecognized File Type", "Unrecognized tone file type.", LMessageButtons::OkCancel);
    RelistandStart();
}

/// Only the first argument counts. What the last run has left to say comes after it.
void MainDialog::EvRunArguments(const char* const* arguments, int count) {
    if (count > 1)
        OpenFromUser(arguments[1]);
    GetToolkit().Post([this] { OfferCrashReport(*this); });
}

/// Other than a document from the desktop, a file named by its user may be a list, and its extension in
/// capitals.
void MainDialog::OpenFromUser(const std::string& path) {
    if (HasExtension(path, ".tdf")) {
        if (ReadTone(tone, path))
            RememberFile(MakeAbsolute(path));
        RelistandStart();
    } else if (HasExtension(path, ".tdl")) {
        CmEditList(MakeAbsolute(path));
    } else if (!GetExtension(path).empty()) {
        LShowMessageBox("Unrecognized file type.", "Sonvire does not process this type of file.",
                        LMessageButtons::OkCancel);
    }
}

void MainDialog::EvDropFiles(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        if (HasExtension(path, ".tdl"))
            OpenFromUser(path);
        else
            CmLoadFile(path.c_str());
}
