#pragma once

#include "hires/file_facts.h"
#include "hires/file_kind.h"
#include "hires/file_tags.h"
#include "hires/hires_sink.h"
#include "hires/tone_source.h"
#include "sound/source_news.h"
#include "sys/file.h"

#include <memory>
#include <optional>
#include <string>

/// The sound files of high resolution that this build can read and write: without the libraries that they
/// need (`sound_files.cpp` has them, `raw_files_only.cpp` does without), it writes raw files alone.

/// Whether this build reads any.
bool CanReadSoundFiles();

/// At its own rate where none is given. `news` is told what happens to it while it is read.
HiresTone OpenSoundFile(const std::string& path, std::optional<int> rate,
                        const std::shared_ptr<LSourceNews>& news);

/// What a file tells of itself.
HiresFileFacts ReadSoundFileFacts(const std::string& path);

/// What a sound is written to, or why it can't be.
struct SoundFileOutput {
    std::unique_ptr<HiresSink> sink; ///< null with a failure
    LFailure failure{};
};
SoundFileOutput OpenSoundFileToWrite(LReadWriteFile&& file, const HiresFileKind& kind,
                                     const HiresFileFormat& format, const HiresFileTags& tags);
