#pragma once

#include "hires/file_kind.h"
#include "hires/hires_sink.h"
#include "hires/packer.h"
#include "sys/file.h"
#include "sys/write_pace.h"

#include <vector>

/// Writes samples one after the other, little-endian, without a header: into a file or a pipe, and without
/// any library.
class HiresRawWriter : public HiresSink {
public:
    /// Goes on at the offset that `file` stands at, and replaces what is behind it.
    HiresRawWriter(LReadWriteFile&& opened, const HiresFileFormat& format);

    LFailure Write(const std::int32_t* samples, int frames) override;
    LFailure Finish() override;

private:
    LOpenFile file;
    LWritePace pace;
    HiresFileFormat format;
    HiresPacker packer;
    std::vector<char> packed; ///< what is written next
    LFailure failure;
};
