#include "jobs/wave_output.h"

#include "sound/files/wave_file.h"

#include <cerrno>
#include <cstring>
#include <unistd.h>

WaveOutput::WaveOutput(const std::string& path, const OutputFormat& format, int frames)
    : name(path == "-" ? "standard output" : path) {
    const auto openStream = [&](LReadWriteFile&& opened) {
        sink = LWaveFile::OpenSinkStream(std::move(opened), format.rate, format.channels,
                                         static_cast<std::uint16_t>(format.bits), frames);
    };
    if (path == "-") {
        if (isatty(STDOUT_FILENO) != 0)
            error = "is a terminal, which can't take sound";
        else
            openStream(LReadWriteFile::Duplicate(STDOUT_FILENO));
        return;
    }
    file.emplace(path);
    if (!file->GetError().empty())
        error = "can't be created: " + file->GetError();
    else if (file->IsWrittenDirectly())
        openStream(LSharedReadWriteFile(path.c_str()));
    else
        sink = LWaveFile::OpenSinkPCM(file->GetPathToWrite().c_str(), format.rate, format.channels,
                                      static_cast<std::uint16_t>(format.bits), 0);
    if (error.empty() && (sink->status & SinkUnusable) != 0)
        error = std::string("can't be opened for writing: ") + std::strerror(sink->writeError);
}

bool WaveOutput::Finish() {
    sink->Finish();
    if ((sink->status & SinkFellShort) != 0 && sink->writeError != EINTR) // which is the user's own stop
        error = std::string("could not be written in full: ") + std::strerror(sink->writeError);
    else if (file && !file->Commit())
        error = "can't be put in place: " + file->GetError();
    return error.empty();
}
