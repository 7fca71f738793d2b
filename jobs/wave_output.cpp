#include "jobs/wave_output.h"

#include "sound/files/wave_file.h"
#include "sys/path.h"

#include <cerrno>
#include <unistd.h>

namespace {

LSoundSink OpenStream(LReadWriteFile&& opened, const OutputFormat& format, int frames) {
    return LWaveFile::OpenSinkStream(std::move(opened), format.rate, format.channels,
                                     static_cast<std::uint16_t>(format.bits), frames);
}

LFailure Because(const char* what, const LFailure& failure) {
    return failure ? LFailure(what + (": " + failure.GetReason())) : LFailure();
}

} // namespace

WaveOutput::WaveOutput(const std::string& path, const OutputFormat& format, int frames)
    : replaces(FileExists(path)),
      failure(OpenSink(path, format, frames)) {
    if (!failure && (sink->status & SinkUnusable) != 0)
        failure = Because("can't be opened for writing", sink->failure);
}

LFailure WaveOutput::OpenSink(const std::string& path, const OutputFormat& format, int frames) {
    if (path == StandardOutput) {
        if (isatty(STDOUT_FILENO) != 0)
            return "is a terminal, which can't take sound";
        sink = OpenStream(LReadWriteFile::Duplicate(STDOUT_FILENO), format, frames);
        return {};
    }
    file.emplace(path);
    if (file->GetFailure())
        return Because("can't be created", file->GetFailure());
    sink = OpenStream(file->IsWrittenDirectly() ? LSharedReadWriteFile(path.c_str()) : file->OpenToWrite(),
                      format, frames);
    return {};
}

LFailure WaveOutput::Finish(LProcessResult result) {
    sink->Finish();
    const bool interrupted = result == LProcessResult::Stopped && sink->failure.GetError() == EINTR;
    if ((sink->status & SinkFellShort) != 0 && !interrupted)
        return Because("could not be written in full", sink->failure);
    const bool isKept =
        result == LProcessResult::Completed || (result == LProcessResult::Stopped && !replaces);
    return isKept && file ? Because("can't be put in place", file->Commit()) : LFailure();
}
