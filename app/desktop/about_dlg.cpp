#include "app/desktop/about_dlg.h"

#include "app/desktop/about_dlg_layout.h"
#include "app/desktop/help_pages.h"
#include "app/desktop/web_links.h"
#include "app/window/command_ids.h"

AboutDlg::AboutDlg() : LDialog(AboutDlgLayout) {}

void AboutDlg::InitDialog() {
    SetFocus(LCommandOk); // rather than the first link
    EnableControl(CommandWebSite, !GetWebLink(CommandWebSite).empty());
}

void AboutDlg::Command(int command) {
    OpenWebLink(*this, command);
}

void AboutDlg::CmHelp() {
    OpenHelpPage(*this, HelpPage::Start);
}
