#pragma once

#include "sound/sound_sink.h"
#include "sys/failure.h"
#include "sys/process_result.h"
#include "sys/replaced_file.h"

#include <optional>
#include <string>

/// What a WAVE file is written as.
struct OutputFormat {
    int rate; ///< frames per second
    std::uint8_t channels;
    int bits; ///< 8 or 16
};

/// Where a sound is rendered to: a file, which takes an old one's place only once it is complete, or standard
/// output. What can't be rewound, such as a pipe, needs the number of frames in advance.
class WaveOutput {
public:
    /// True for "-", and for the names that the system has for it.
    static bool IsStandardOutput(const std::string& path);

    WaveOutput(const std::string& path, const OutputFormat& format, int frames);

    const LFailure& GetFailure() const { return failure; } ///< why it could not be opened
    const LSoundSink& GetSink() const { return sink; }

    /// Completes the file and puts it in place: after a job that was completed, and after one that was
    /// stopped where there was no file before. Otherwise the file that was there stays.
    LFailure Finish(LProcessResult result);

private:
    LFailure OpenSink(const std::string& path, const OutputFormat& format, int frames);

    std::optional<LReplacedFile> file;
    bool replaces = false; ///< a file that was there before
    LSoundSink sink;
    LFailure failure;
};
