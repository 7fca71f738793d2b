#include "hires/files/file_frames.h"

#include "hires/files/read_facts.h"
#include "hires/files/sound_stream.h"

#include <algorithm>
#include <unistd.h>
#include <vector>

namespace {

LFailure CheckSound(LReadWriteFile file) {
    file.SeekTo(0);
    return HiresSoundStream(std::move(file)).GetFailure();
}

/// Brings what comes by a pipe into a file, unless this much of it is no sound yet: it might never end.
LReadWriteFile KeepPiped(LReadWriteFile&& pipe, LFailure& failure) {
    constexpr std::int64_t Enough = 64 << 20; // more than the pictures before a sound take
    LReadWriteFile kept = LReadWriteFile::CreateUnnamed();
    LFailure unkept = kept.GetFailure();
    std::vector<char> block(1 << 16);
    std::int64_t size = 0;
    while (const std::size_t bytes = unkept || failure ? 0 : pipe.Read(block.data(), block.size())) {
        unkept = kept.Write(block.data(), bytes);
        size += static_cast<std::int64_t>(bytes);
        if (size == Enough) {
            failure = CheckSound(kept.Share());
            kept.SeekTo(size);
        }
    }
    if (const LFailure unread = pipe.GetReadFailure())
        failure = "can't be read: " + unread.GetReason();
    if (unkept)
        failure = "can't be kept in a temporary file: " + unkept.GetReason();
    kept.SeekTo(0);
    return kept;
}

std::unique_ptr<HiresSoundStream> OpenStandardInput(LFailure& failure) {
    if (isatty(STDIN_FILENO) != 0) {
        failure = "is a terminal, which gives no sound";
        return nullptr;
    }
    LReadWriteFile opened = LReadWriteFile::Duplicate(STDIN_FILENO);
    if (!opened.IsRegular())
        opened = KeepPiped(std::move(opened), failure);
    return failure ? nullptr : std::make_unique<HiresSoundStream>(std::move(opened));
}

} // namespace

HiresFileFrames::HiresFileFrames(const std::string& path)
    : stream(path == "-" ? OpenStandardInput(facts.failure) : std::make_unique<HiresSoundStream>(path)) {
    if (stream)
        facts = DescribeSoundStream(*stream);
}

HiresFileFrames::~HiresFileFrames() = default;

std::optional<std::int64_t> HiresFileFrames::GetLength() const {
    return stream->GetLength();
}

std::size_t HiresFileFrames::Read(double* out, std::size_t frames) {
    return stream->Read(out, frames);
}

bool HiresFileFrames::HasMore() const {
    return stream->HasMore();
}
