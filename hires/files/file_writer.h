#pragma once

#include "hires/file_kind.h"
#include "hires/file_tags.h"
#include "hires/hires_sink.h"
#include "hires/packer.h"
#include "sys/file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

class HiresSoundStream;

/// Writes a sound file of any kind but raw ones. Nothing in it depends on the time or the place: the same
/// samples give the same bytes.
///
/// A WAVE file of more than 16 bits has the extensible header, and one that may exceed 4 GiB is an RF64 file.
/// In a pipe, where only a WAVE file can be written, the header tells the length that was expected.
class HiresFileWriter : public HiresSink {
public:
    /// Goes on at the offset that `file` stands at, and replaces what is behind it.
    /// `GetFailure` says why where the kind can't hold the format, the file can't be rewound, or libsndfile
    /// is not installed.
    HiresFileWriter(LReadWriteFile&& file, const HiresFileKind& kind, const HiresFileFormat& format,
                    const HiresFileTags& tags);
    ~HiresFileWriter() override;

    const LFailure& GetFailure() const { return failure; }
    LFailure Write(const std::int32_t* from, int frames) override;
    LFailure Finish() override;

private:
    void Open(LReadWriteFile&& file, const HiresFileKind& kind, const HiresFileFormat& format);
    bool WriteBlock(const std::int32_t* from, int frames);

    LFailure failure;
    int channels;
    bool isEmpty = true; ///< nothing has been written
    HiresPacker packer;
    std::vector<char> packed;        ///< what is written next; empty where libsndfile packs it...
    std::vector<std::int32_t> block; ///< ...from this
    std::unique_ptr<HiresSoundStream> stream;
};
