#include "app/desktop/update_check.h"

#include "app/desktop/web_links.h"
#include "gui/process_dialog.h"
#include "net/web_address.h"
#include "sys/desktop/message_box.h"

#include <cstdlib>

namespace {

/// Whatever else a server may send for an address is not opened.
void OpenPage(LWindow& parent, const std::string& info) {
    const std::string address = GetWebAddress(info);
    if (!address.empty())
        OpenWebPage(parent, address);
}

} // namespace

void LAboutCheckForVersionUpdate(LWindow& parent) {
    if (IsReservedAddress(VersionFileUrl)) {
        LShowMessageBox("Checking for Updates",
                        "This build of the program has no server that it could ask for updates.",
                        LMessageButtons::OkFine);
        return;
    }
    LProcessCheckForVersionUpdates found;
    if (ProcessDialogRun(parent, "Checking for Updates", found))
        TellAboutVersion(parent, found);
}

void TellAboutVersion(LWindow& parent, const LProcessCheckForVersionUpdates& found) {
    if (!(found.version > std::strtod(SONVIRE_VERSION, nullptr))) {
        LShowMessageBox("Version Current", "The current version is up-to-date", LMessageButtons::OkFine);
        return;
    }
    const LMessageAnswer answer =
        LShowMessageBox("Update Version Available",
                        "An updated version of this software is now available for download online. Do you "
                        "want to see more information about the new version?",
                        LMessageButtons::YesNoCancel);
    if (answer == LMessageAnswer::Yes)
        OpenPage(parent, found.info);
}
