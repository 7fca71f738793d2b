#include "jobs/file_notices.h"

#include "sound/source_news.h"
#include "sys/path.h"

#include <algorithm>
#include <filesystem>
#include <span>

namespace {

constexpr std::size_t MostWarnings = 8; // that a box has the room for

LNotice Describe(const std::string& path, const std::string& what) {
    std::error_code ignored;
    const std::string folder = GetFolder(path);
    if (std::filesystem::status(folder, ignored).type() == std::filesystem::file_type::not_found)
        return {"Error",
                "The folder \"" + folder + "\" of the file \"" + GetFileName(path) + "\" does not exist."};
    return {"Error", "The file \"" + path + "\" " + what + "."};
}

} // namespace

LNotice DescribeUnreadable(const std::string& path, const LFailure& failure) {
    const bool ofTheContent = failure.GetError() == 0;
    return Describe(path, (ofTheContent ? "can't be read: it " : "can't be read: ") + failure.GetReason());
}

LNotice DescribeNotAdded(const std::string& path, const LFailure& failure) {
    return Describe(path, "can't be added: " + failure.GetReason());
}

LNotice DescribeUnwritten(const std::string& path, const LFailure& failure) {
    return Describe(path, "can't be written: " + failure.GetReason());
}

LNotice DescribeNoTemporary(const LFailure& failure) {
    return {"Error", "The folder \"/var/tmp\" takes no list that is not saved: " + failure.GetReason() + "."};
}

LNotice DescribeFailed(const std::string& path, const LFailure& failure) {
    return Describe(path, failure.GetReason());
}

std::string ListWarnings(const std::vector<LFileWarning>& warnings) {
    std::string listed;
    for (const LFileWarning& warning : std::span(warnings).first(std::min(warnings.size(), MostWarnings)))
        listed += "\n\n\"" + warning.file + "\" " + warning.reason;
    if (warnings.size() > MostWarnings)
        listed += "\n\nand " + std::to_string(warnings.size() - MostWarnings) + " more";
    return listed;
}
