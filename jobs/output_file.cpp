#include "jobs/output_file.h"

#include "sys/path.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>

namespace {

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
    return isFile && appends ? "is open for appending (>>), but a sound file is a file of its own"
                             : LFailure();
}

} // namespace

bool OutputFile::IsStandardOutput(const std::string& path) {
    return path == "-" || path == "/dev/stdout" || path == "/dev/fd/1" || path == "/proc/self/fd/1";
}

bool OutputFile::IsNoFile(const std::string& path) {
    std::error_code ignored;
    return IsStandardOutput(path) || std::filesystem::is_other(path, ignored) ||
           std::filesystem::is_directory(path, ignored);
}

LFailure OutputFile::CheckUnread(const std::string& path, const std::set<std::string>& read) {
    const bool isRead = IsOneOfFiles(IsStandardOutput(path) ? "/dev/stdout" : path, read);
    return isRead ? "is read by the input" : LFailure();
}

OutputFile::OutputFile(const std::string& outputPath) : path(outputPath), replaces(FileExists(path)) {
    if (IsStandardOutput(path)) {
        failure = CheckStandardOutput();
        return;
    }
    file.emplace(path);
    failure = Because("can't be created", file->GetFailure());
}

LReadWriteFile OutputFile::Open() {
    if (failure)
        return {};
    LReadWriteFile opened = !file                       ? LReadWriteFile::Duplicate(STDOUT_FILENO)
                            : file->IsWrittenDirectly() ? LSharedReadWriteFile(path.c_str())
                                                        : file->OpenToWrite();
    failure = Because("can't be opened for writing", opened.GetFailure());
    return opened;
}

LFailure OutputFile::Finish(LProcessResult result, const LFailure& unwritten) {
    const bool interrupted = result == LProcessResult::Stopped && unwritten.GetError() == EINTR;
    if (unwritten && !interrupted)
        return Because("could not be written in full", unwritten);
    const bool isKept =
        result == LProcessResult::Completed || (result == LProcessResult::Stopped && !replaces);
    return isKept && file ? Because("can't be put in place", file->Commit()) : LFailure();
}
