#pragma once

#include "sys/file.h"

#include <cstdint>

/// Keeps what is written in step with the disk. Memory takes a file much faster than a disk does: without
/// this, a job would seem to be done while most of its file is still to be written, and could not be stopped
/// any more.
class LWritePace {
public:
    /// `from` is the offset at which writing begins; -1 in a pipe, which has its own pace.
    explicit LWritePace(std::int64_t from) : start(from), pacedTo(from) {}

    /// For after each write; `end` is the offset that it has reached. Waits, now and then, for the disk.
    void KeepUp(const LOpenFile& file, std::int64_t end) {
        constexpr std::int64_t StepBytes = 16 << 20;
        if (start < 0 || end - pacedTo < StepBytes)
            return;
        file.WriteBack(pacedTo, end - pacedTo, false);
        if (pacedTo > start)
            file.WriteBack(start, pacedTo - start, true);
        pacedTo = end;
    }

private:
    std::int64_t start, pacedTo; ///< up to here the disk has been asked to write
};
