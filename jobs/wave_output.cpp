#include "jobs/wave_output.h"

#include "sound/files/wave_file.h"
#include "sys/path.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

LSoundSink OpenStream(LReadWriteFile&& opened, const OutputFormat& format, int frames) {
    return LWaveFile::OpenSinkStream(std::move(opened), format.rate, format.channels,
                                     static_cast<std::uint16_t>(format.bits), frames);
}

LFailure Because(const char* what, const LFailure& failure) {
    if (failure.GetError() == ENXIO)
        return "is a pipe that nobody reads";
    return failure ? LFailure(what + (": " + failure.GetReason())) : LFailure();
}

/// Whether sound can be written to standard output. Behind what is there already, it would be in no file of
/// its own, and its header could not be corrected.
LFailure CheckStandardOutput() {
    if (isatty(STDOUT_FILENO) != 0)
        return "is a terminal, which can't take sound";
    struct stat info {};
    const bool isFile = fstat(STDOUT_FILENO, &info) == 0 && S_ISREG(info.st_mode);
    const bool appends = (fcntl(STDOUT_FILENO, F_GETFL) & O_APPEND) != 0;
    return isFile && appends ? "is open for appending (>>), but a WAVE file is a file of its own"
                             : LFailure();
}

} // namespace

WaveOutput::WaveOutput(const std::string& path, const OutputFormat& format, int frames)
    : replaces(FileExists(path)),
      failure(OpenSink(path, format, frames)) {
    if (!failure && (sink->status & SinkUnusable) != 0)
        failure = Because("can't be opened for writing", sink->failure);
}

LFailure WaveOutput::OpenSink(const std::string& path, const OutputFormat& format, int frames) {
    if (IsStandardOutput(path)) {
        if (LFailure refused = CheckStandardOutput())
            return refused;
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

bool WaveOutput::IsStandardOutput(const std::string& path) {
    return path == "-" || path == "/dev/stdout" || path == "/dev/fd/1" || path == "/proc/self/fd/1";
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
