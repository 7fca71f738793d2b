#include "app/desktop/installer.h"

#include "app/desktop/desktop_entry.h"
#include "sys/desktop/command.h"
#include "sys/desktop/folders.h"
#include "sys/file.h"
#include "sys/path.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

constexpr const char* DesktopEntry = "applications/com.quenbysoftware.Sonvire.desktop";

/// Below the shared data folder, and in the same place below the user's. The entry comes last: it refers to
/// the others.
constexpr const char* Files[] = {
    "icons/hicolor/scalable/apps/com.quenbysoftware.Sonvire.svg",
    "icons/hicolor/scalable/mimetypes/application-x-sonvire-tone.svg",
    "icons/hicolor/scalable/mimetypes/application-x-sonvire-tone-list.svg",
    "mime/packages/com.quenbysoftware.Sonvire.xml",
    DesktopEntry,
};

bool Fail(const std::string& what, const std::string& reason) {
    std::fprintf(stderr, "sonvire: %s: %s\n", what.c_str(), reason.c_str());
    return false;
}

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// Replaces the file whole, in a folder that there is from then on.
bool WriteAll(const std::string& path, const std::string& content) {
    std::error_code error;
    std::filesystem::create_directories(GetFolder(path), error);
    if (error)
        return Fail(path, error.message());
    const LFailure failure =
        LFile::SaveFile(path.c_str(), content.data(), static_cast<unsigned int>(content.size()));
    return !failure || Fail(path, failure.GetReason());
}

bool Register(const std::string& name, const std::string& folder) {
    const std::string source = GetSharedDataFolder() + "/" + name;
    if (const LFailure failure = CheckReadable(source))
        return Fail(source, failure.GetReason());
    const std::string content = ReadAll(source);
    const std::string path = folder + "/" + name;
    if (!WriteAll(path, name == DesktopEntry ? WithProgram(content, GetProgramPath()) : content))
        return false;
    std::printf("Registered %s\n", path.c_str());
    return true;
}

/// A cache that nothing is there to refresh is none that this desktop uses.
bool Refresh(const std::string& cache, const std::string& program,
             const std::vector<std::string>& arguments) {
    const std::optional<int> status = RunCommand(program, arguments);
    if (!status) {
        std::printf("Left %s as it was: %s is not installed\n", cache.c_str(), program.c_str());
        return true;
    }
    if (*status != 0)
        return Fail(cache, program + " failed");
    std::printf("Refreshed %s\n", cache.c_str());
    return true;
}

bool RefreshCaches(const std::string& folder) {
    const std::string types = folder + "/mime", entries = folder + "/applications",
                      icons = folder + "/icons/hicolor";
    return Refresh(types, "update-mime-database", {types}) &&
           Refresh(entries, "update-desktop-database", {"--quiet", entries}) &&
           Refresh(icons, "gtk-update-icon-cache", {"--quiet", "--force", "--ignore-theme-index", icons});
}

} // namespace

int InstallerMain() {
    const std::string folder = GetUserSharedDataFolder();
    for (const char* name : Files)
        if (!Register(name, folder))
            return 1;
    return RefreshCaches(folder) ? 0 : 1;
}
