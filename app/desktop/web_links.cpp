#include "app/desktop/web_links.h"

#include "app/setting_names.h"
#include "app/window/command_ids.h"
#include "gui/toolkit.h"
#include "net/web_address.h"
#include "sys/desktop/message_box.h"

#include <algorithm>
#include <iterator>

namespace {

struct WebLink {
    int command;
    const char* page; ///< below the web site
};
constexpr WebLink WebLinks[] = {
    {CommandWebSite, ""},
    {CommandReportProblem, "problem.html"},
};

} // namespace

std::string GetWebLink(int command) {
    return GetWebLink(command, SONVIRE_WEB_SITE);
}

std::string GetWebLink(int command, const std::string& site) {
    const auto* link = std::find_if(std::begin(WebLinks), std::end(WebLinks),
                                    [command](const WebLink& each) { return each.command == command; });
    const bool leadsNowhere = link == std::end(WebLinks) || IsReservedAddress(site);
    return leadsNowhere ? std::string() : site + link->page;
}

bool OpenWebLink(LWindow& parent, int command) {
    const std::string address = GetWebLink(command);
    if (!address.empty())
        OpenWebPage(parent, address);
    return !address.empty();
}

void OpenWebPage(LWindow& parent, const std::string& address) {
    if (!parent.GetToolkit().OpenUrl(address))
        LShowMessageBox("Sonvire", "No program was found that shows web pages. The address is " + address);
}

void OpenThankYouPageOnce(LToolkit& toolkit) {
    const std::string site = GetWebLink(CommandWebSite);
    if (site.empty() || toolkit.IsSessionEnding() || Setting::Thanks.Get())
        return;
    Setting::Thanks.Set(true);
    toolkit.OpenUrl(site + "thanks.html");
}
