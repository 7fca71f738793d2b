#include "hires/raw_writer.h"
#include "jobs/hires_files.h"

namespace {

constexpr const char* Unread = "is a sound file, which this build can't read in high quality";

} // namespace

bool CanReadSoundFiles() {
    return false;
}

HiresTone OpenSoundFile(const std::string& /*path*/, std::optional<int> /*rate*/,
                        const std::shared_ptr<LSourceNews>& /*news*/) {
    return {.source = nullptr, .failure = Unread};
}

HiresFileFacts ReadSoundFileFacts(const std::string& /*path*/) {
    return {.failure = Unread};
}

SoundFileOutput OpenSoundFileToWrite(LReadWriteFile&& file, const HiresFileKind& kind,
                                     const HiresFileFormat& format, const HiresFileTags& /*tags*/) {
    if (kind.container != HiresFileKind::Container::Raw)
        return {.sink = nullptr, .failure = "can't be written in high quality: this build writes raw files"};
    return {.sink = std::make_unique<HiresRawWriter>(std::move(file), format)};
}
