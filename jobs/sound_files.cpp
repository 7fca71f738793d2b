#include "hires/files/file_source.h"
#include "hires/files/file_writer.h"
#include "hires/files/read_facts.h"
#include "hires/raw_writer.h"
#include "jobs/hires_files.h"

bool CanReadSoundFiles() {
    return true;
}

HiresTone OpenSoundFile(const std::string& path, std::optional<int> rate,
                        const std::shared_ptr<LSourceNews>& news) {
    return OpenHiresFile(path, rate, news);
}

HiresFileFacts ReadSoundFileFacts(const std::string& path) {
    return ReadHiresFacts(path);
}

SoundFileOutput OpenSoundFileToWrite(LReadWriteFile&& file, const HiresFileKind& kind,
                                     const HiresFileFormat& format, const HiresFileTags& tags) {
    if (kind.container == HiresFileKind::Container::Raw)
        return {.sink = std::make_unique<HiresRawWriter>(std::move(file), format)};
    auto writer = std::make_unique<HiresFileWriter>(std::move(file), kind, format, tags);
    if (writer->GetFailure())
        return {.sink = nullptr, .failure = writer->GetFailure()};
    return {.sink = std::move(writer)};
}
