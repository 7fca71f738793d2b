#include "sys/replaced_file.h"

#include "sys/path.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h> // NOLINT(readability-duplicate-include): the system's
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

constexpr const char* TemporaryMark = ".sonvire-"; ///< followed by the digits
constexpr std::size_t TemporaryDigits = 6;         ///< hexadecimal
constexpr int MostNames = 100;                     ///< that are tried

/// The file that a chain of links leads to; the path itself where there is no such file yet.
std::string FollowLinks(const std::string& path) {
    char resolved[PATH_MAX];
    return realpath(path.c_str(), resolved) ? std::string(resolved) : path;
}

/// A link that could not be followed leads to a file that is not there yet, or has no name any more.
bool IsLink(const std::string& path) {
    struct stat itself {};
    return lstat(path.c_str(), &itself) == 0 && S_ISLNK(itself.st_mode);
}

mode_t DefaultMode() {
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

/// Hidden, and like no name that a user gives. A long name is cut, to stay within the file system's limit.
std::string TemporaryNameFor(const std::string& path, int attempt) {
    char digits[TemporaryDigits + 1];
    const unsigned int number = static_cast<unsigned int>(getpid() + attempt) & 0xFFFFFF;
    std::snprintf(digits, sizeof digits, "%06x", number);
    const std::size_t name = path.size() - GetFileName(path).size();
    return path.substr(0, name) + "." + path.substr(name, 200) + TemporaryMark + digits;
}

bool IsTemporaryName(const std::string& name) {
    const std::size_t mark = name.rfind(TemporaryMark);
    return name.starts_with('.') && mark != std::string::npos &&
           name.find_first_not_of("0123456789abcdef", mark + std::string(TemporaryMark).size()) ==
               std::string::npos &&
           name.size() == mark + std::string(TemporaryMark).size() + TemporaryDigits;
}

/// Has `make` make a temporary file of a name that is not taken; false, with the system's error number, where
/// it can't.
template <class Make>
bool MakeTemporary(const std::string& path, std::string& name, Make make) {
    for (int attempt = 0; attempt < MostNames; ++attempt) {
        name = TemporaryNameFor(path, attempt);
        if (make(name.c_str()))
            return true;
        if (errno != EEXIST)
            break;
    }
    name.clear();
    return false;
}

std::string LinkTo(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

bool GiveName(int descriptor, const char* name) {
    return linkat(AT_FDCWD, LinkTo(descriptor).c_str(), AT_FDCWD, name, AT_SYMLINK_FOLLOW) == 0;
}

/// -1 where there are no such files, or they could not be given a name.
int CreateUnnamed(const std::string& folder) {
    const int descriptor = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, 0600);
    if (descriptor < 0 || (FileExists(LinkTo(descriptor)) && flock(descriptor, LOCK_SH) == 0))
        return descriptor;
    close(descriptor);
    return -1;
}

/// Under its lock at once: whoever looks for stale files may come between, and then another name's turn
/// comes.
int CreateNamed(const char* name) {
    const int descriptor = open(name, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    struct stat created {};
    if (descriptor < 0 || flock(descriptor, LOCK_SH) != 0 || fstat(descriptor, &created) != 0 ||
        created.st_nlink > 0)
        return descriptor;
    close(descriptor);
    errno = EEXIST;
    return -1;
}

/// Removes what killed processes have left: nobody holds their locks any more.
void RemoveStaleFiles(const std::string& folder) {
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (!IsTemporaryName(entry->path().filename().native()))
            continue;
        const int descriptor = open(entry->path().c_str(), O_RDWR | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC);
        if (descriptor < 0)
            continue;
        if (flock(descriptor, LOCK_EX | LOCK_NB) == 0)
            unlink(entry->path().c_str());
        close(descriptor);
    }
}

/// By the permissions of a folder.
bool IsRefused(const LFailure& failure) {
    return failure.GetError() == EACCES || failure.GetError() == EPERM || failure.GetError() == EROFS;
}

/// So that the new name outlives a power cut. Where the folder doesn't take that, the file is in place all
/// the same.
void SyncFolder(const std::string& folder) {
    const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

} // namespace

LReplacedFile::LReplacedFile(const std::string& path) : finalPath(FollowLinks(path)) {
    struct stat old {};
    const bool exists = stat(finalPath.c_str(), &old) == 0;
    if (!exists && errno != ENOENT)
        failure = LFailure::OfLastCall(); // NOLINT(bugprone-branch-clone): each is of a call of its own
    else if (finalPath.empty())
        failure = LFailure::OfSystem(ENOENT);
    else if (exists && S_ISDIR(old.st_mode))
        failure = LFailure::OfSystem(EISDIR);
    else if (exists && access(finalPath.c_str(), W_OK) != 0)
        failure = LFailure::OfLastCall();
    else if ((!exists || S_ISREG(old.st_mode)) && !IsLink(finalPath))
        CreateTemporary(exists ? old.st_mode & 07777 : DefaultMode());
}

void LReplacedFile::CreateTemporary(unsigned int mode) {
    RemoveStaleFiles(GetFolder(finalPath));
    descriptor = CreateUnnamed(GetFolder(finalPath));
    const bool created = descriptor >= 0 || MakeTemporary(finalPath, temporaryPath, [this](const char* name) {
                             return (descriptor = CreateNamed(name)) >= 0;
                         });
    if (!created)
        failure = LFailure::OfLastCall();
    if (IsRefused(failure) && FileExists(finalPath)) {
        std::error_code ignored;
        descriptor = CreateUnnamed(std::filesystem::temp_directory_path(ignored));
        isElsewhere = descriptor >= 0;
        failure = isElsewhere ? LFailure() : failure;
    }
    if (failure)
        return;
    // A file system without permissions refuses the mode; the file is as good there.
    [[maybe_unused]] const int ignored = fchmod(descriptor, mode);
}

LReplacedFile::~LReplacedFile() {
    if (!temporaryPath.empty())
        unlink(temporaryPath.c_str());
    if (descriptor >= 0)
        close(descriptor);
}

LFailure LReplacedFile::Commit() {
    if (IsWrittenDirectly() || failure)
        return failure;
    failure = isElsewhere ? CopyInPlace() : OpenToWrite().Sync();
    if (!failure && !isElsewhere)
        failure = PutInPlace();
    if (IsRefused(failure) && !isElsewhere)
        failure = CopyInPlace();
    if (failure)
        return failure;
    close(std::exchange(descriptor, -1));
    SyncFolder(GetFolder(finalPath));
    return {};
}

LFailure LReplacedFile::CopyInPlace() {
    LReadWriteFile from = OpenToWrite();
    LReadWriteFile to = LReadWriteFile::OpenUnlocked(finalPath.c_str());
    if (!to.IsOpen() || !from.SeekTo(0))
        return to.GetFailure();
    if (LFailure cut = to.Truncate(0))
        return cut;
    std::vector<char> block(1 << 20);
    for (std::size_t got = 1; got > 0;) {
        got = from.Read(block.data(), block.size());
        if (LFailure unwritten = to.Write(block.data(), got))
            return unwritten;
    }
    return to.Sync();
}

/// A file without a name can take one that is free, but not another's: it gets a temporary one for a moment.
LFailure LReplacedFile::PutInPlace() {
    if (temporaryPath.empty()) {
        if (GiveName(descriptor, finalPath.c_str()))
            return {};
        if (errno != EEXIST || !MakeTemporary(finalPath, temporaryPath, [this](const char* name) {
                return GiveName(descriptor, name);
            }))
            return LFailure::OfLastCall();
    }
    if (std::rename(temporaryPath.c_str(), finalPath.c_str()) != 0)
        return LFailure::OfLastCall();
    temporaryPath.clear();
    return {};
}
