#include "app/window/recent_files.h"

#include "app/setting_names.h"
#include "sys/path.h"

#include <algorithm>

namespace {

constexpr std::string_view Slots = "0123456789";
constexpr std::size_t LongFolder = 48; // in bytes

/// Of a long one both ends matter.
std::string Shorten(const std::string& folder) {
    if (folder.size() <= LongFolder)
        return folder;
    const std::size_t end = folder.find('/', folder.size() - LongFolder / 2);
    const std::string start = folder.substr(0, folder.find('/', 1));
    return end == std::string::npos ? folder : start + "/…" + folder.substr(end);
}

} // namespace

RecentFiles::RecentFiles() {
    for (const char slot : Setting::RecentOrder.Get().substr(0, Most))
        if (const std::string path = Setting::GetRecentFile(slot); !path.empty())
            files.push_back({slot, path});
}

void RecentFiles::Add(const std::string& path) {
    const auto found =
        std::find_if(files.begin(), files.end(), [&path](const File& file) { return file.path == path; });
    if (found != files.end() && found == files.begin())
        return;
    if (found != files.end()) {
        std::rotate(files.begin(), found, found + 1);
    } else {
        files.insert(files.begin(), {FindFreeSlot(), path});
        Setting::SetRecentFile(files.front().slot, path);
    }
    std::string order;
    for (const File& file : files)
        order += file.slot;
    Setting::RecentOrder.Set(order);
}

/// The oldest file leaves its own where there is none.
char RecentFiles::FindFreeSlot() {
    if (files.size() == Most) {
        const char oldest = files.back().slot;
        files.pop_back();
        return oldest;
    }
    const auto isFree = [this](char slot) {
        return std::none_of(files.begin(), files.end(),
                            [slot](const File& file) { return file.slot == slot; });
    };
    return *std::find_if(Slots.begin(), Slots.end(), isFree);
}

std::string RecentFiles::GetPath(std::size_t place) const {
    return place < files.size() ? files[place].path : "";
}

std::string RecentFiles::GetLabel(std::size_t place) const {
    const std::string path = GetPath(place);
    return path.empty() ? "" : GetFileName(path) + "  (" + Shorten(GetFolder(path)) + ")";
}
