#include "sys/program_data.h"

#include <filesystem>

std::string GetSharedDataFolder() {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return program.parent_path().parent_path() / "share";
}
