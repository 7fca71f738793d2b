#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

inline std::size_t CountEntries(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

/// A folder of its own for one test, removed with all that is in it.
class TempDir {
public:
    TempDir() {
        std::string name = (std::filesystem::temp_directory_path() / "sonvire-test-XXXXXX").string();
        path = mkdtemp(name.data());
    }
    ~TempDir() { std::filesystem::remove_all(path); }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string operator/(const std::string& name) const { return (path / name).string(); }
    std::size_t CountFiles() const { return CountEntries(path); }

private:
    std::filesystem::path path;
};

inline void WriteBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

inline std::string ReadBytes(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
