#include "app/desktop/help_pages.h"

#include "gui/toolkit.h"
#include "sys/desktop/folders.h"
#include "sys/desktop/message_box.h"
#include "sys/path.h"

namespace {

const char* GetFileName(HelpPage page) {
    switch (page) {
    case HelpPage::Start:
        break;
    case HelpPage::Lists:
        return "lists.html";
    case HelpPage::Settings:
        return "settings.html";
    case HelpPage::Keys:
        return "keys.html";
    }
    return "index.html";
}

} // namespace

void OpenHelpPage(LWindow& parent, HelpPage page) {
    const std::string path = GetSharedDataFolder() + "/sonvire/help/" + GetFileName(page);
    if (!FileExists(path))
        LShowMessageBox("Sonvire Help", "The help page \"" + path + "\" does not exist.");
    else if (!parent.GetToolkit().OpenUrl(MakeFileUrl(path)))
        LShowMessageBox("Sonvire Help",
                        "No program was found that shows web pages. The help page is \"" + path + "\".");
}
