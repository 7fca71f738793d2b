#include "sys/desktop/program_data.h"

#include <filesystem>

std::string GetProgramPath() {
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error);
}

std::string GetSharedDataFolder() {
    return std::filesystem::path(GetProgramPath()).parent_path().parent_path() / "share";
}
