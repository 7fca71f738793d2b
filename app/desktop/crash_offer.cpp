#include "app/desktop/crash_offer.h"

#include "app/desktop/product.h"
#include "app/desktop/web_links.h"
#include "app/window/command_ids.h"
#include "gui/toolkit.h"
#include "sys/desktop/crash_report.h"
#include "sys/desktop/folders.h"
#include "sys/desktop/message_box.h"

#include <cstdio>

namespace {

std::string ReportPath() {
    return GetUserDataFolder() + "/crash-report.txt";
}

} // namespace

void InstallCrashReport() {
    const std::string address = GetWebLink(CommandReportProblem);
    const std::string request = address.empty() ? "" : "Please send this report to us: " + address + "\n";
    LInstallCrashReport(ReportPath(), std::string(ProductAndVersion) + " ended unexpectedly.\n" + request);
}

void OfferCrashReport(LWindow& parent) {
    const std::string offered = GetUserDataFolder() + "/last-crash-report.txt";
    if (std::rename(ReportPath().c_str(), offered.c_str()) != 0)
        return;
    const LMessageAnswer answer = LShowMessageBox(
        "Sonvire", "Sonvire ended unexpectedly the last time.\n\nDo you want to see the report?",
        LMessageButtons::YesNo);
    if (answer == LMessageAnswer::Yes && !parent.GetToolkit().OpenUrl(MakeFileUrl(offered)))
        LShowMessageBox("Sonvire", "No program was found that shows the report. It is \"" + offered + "\".");
}
