#pragma once

#include <cstddef>
#include <filesystem>
#include <iterator>

/// Threads and open descriptors of this process.
inline std::size_t CountEntries(const char* folder) {
    return static_cast<std::size_t>(
        std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}
inline std::size_t CountThreads() {
    return CountEntries("/proc/self/task");
}
inline std::size_t CountDescriptors() {
    return CountEntries("/proc/self/fd");
}
