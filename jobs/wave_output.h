#pragma once

#include "sound/sound_sink.h"
#include "sys/replaced_file.h"

#include <optional>
#include <string>

/// What a WAVE file is written as.
struct OutputFormat {
    int rate;
    std::uint8_t channels;
    int bits; ///< 8 or 16
};

/// Where a command writes its sound: a file, which takes an old one's place only once it is complete, or "-"
/// for standard output, whose header needs the number of frames in advance because a pipe can't be rewound.
class WaveOutput {
public:
    WaveOutput(const std::string& path, const OutputFormat& format, int frames);

    const std::string& GetName() const { return name; }
    const std::string& GetError() const { return error; } ///< empty unless something went wrong
    const LSoundSink& GetSink() const { return sink; }

    /// Completes the file and puts it in place; false, with `GetError`, where not all of it could be written.
    bool Finish();

private:
    std::string name;
    std::string error;
    std::optional<LReplacedFile> file;
    LSoundSink sink;
};
