#pragma once

#include "support/temp_dir.h"

/// Threads and open descriptors of this process.
inline std::size_t CountThreads() {
    return CountEntries("/proc/self/task");
}
inline std::size_t CountDescriptors() {
    return CountEntries("/proc/self/fd");
}
