#include "app/desktop/crash_offer.h"
#include "app/window/main_dialog.h"
#include "app/window/notices.h"
#include "gui/toolkit.h"
#include "sys/desktop/message_box.h"
#include "sys/path.h"

#include <filesystem>

namespace {

/// So that it still leads there at the next start, from another folder.
std::string MakeAbsolute(const std::string& path) {
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(path, error);
    return error ? path : full.native();
}

} // namespace

void MainDialog::CmLoadFiles(const std::vector<std::string>& paths) {
    Record([this, &paths] { LoadDocuments(paths); });
}

/// What can't be opened is told once the window shows the rest.
void MainDialog::LoadDocuments(const std::vector<std::string>& paths) {
    std::vector<LNotice> notices;
    for (const std::string& path : paths) {
        if (HasExtension(path, ".tdf") && !MayReplaceTone())
            break;
        if (auto notice = files.LoadDocument(path))
            notices.push_back(std::move(*notice));
    }
    RelistandStart(!paths.empty());
    if (!notices.empty())
        GetToolkit().Post([notices] { ShowNotices(notices); });
}

/// Only the first argument counts. What the last run has left to say comes after it.
void MainDialog::EvRunArguments(const char* const* arguments, int count) {
    if (count > 1)
        Record([this, path = arguments[1]] { OpenFromUser(path); });
    GetToolkit().Post([this] {
        devices.Refresh();
        OfferCrashReport(*this);
        Record([this] { RelistandStart(lists.OfferLostList()); });
    });
}

/// Unlike a document from the desktop, a file named by its user may be a list.
void MainDialog::OpenFromUser(const std::string& path) {
    const bool known = HasExtension(path, ".tdf") || HasExtension(path, ".tdl");
    if (known && !MayReplaceTone())
        return;
    if (HasExtension(path, ".tdf")) {
        files.LoadNamed(path, MakeAbsolute(path));
        RelistandStart();
    } else if (HasExtension(path, ".tdl")) {
        RelistandStart(lists.CmEditList(MakeAbsolute(path)));
    } else if (!GetExtension(path).empty()) {
        LShowMessageBox("Unrecognized file type.", "Sonvire does not process this type of file.",
                        LMessageButtons::OkCancel);
    }
}

void MainDialog::EvDropFiles(const std::vector<std::string>& paths) {
    Record([this, &paths] { OpenDropped(paths); });
}

void MainDialog::OpenRecent(std::size_t place) {
    OpenFromUser(recent.GetPath(place));
}

/// Of tones the last one stays; lists are edited one after the other.
void MainDialog::OpenDropped(const std::vector<std::string>& paths) {
    std::vector<std::string> listFiles, others;
    for (const std::string& path : paths)
        (HasExtension(path, ".tdl") ? listFiles : others).push_back(path);
    LoadDocuments(others);
    for (const std::string& list : listFiles)
        OpenFromUser(list);
}
