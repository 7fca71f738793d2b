#include "sys/file.h"

#include "sys/path.h"
#include "sys/replaced_file.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace {

/// Opens without waiting for a pipe's other end; writes wait as usual from then on.
int OpenAtOnce(const char* path, int flags) {
    const int descriptor = open(path, flags | O_NONBLOCK | O_CLOEXEC, 0666);
    if (descriptor >= 0 && (flags & O_ACCMODE) != O_RDONLY)
        fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    return descriptor;
}

int OpenLocked(const char* path, int flags, int lock) {
    const int descriptor = OpenAtOnce(path, flags);
    if (descriptor < 0 || flock(descriptor, lock | LOCK_NB) == 0 || errno != EWOULDBLOCK)
        return descriptor;
    close(descriptor);
    return -1;
}

/// A pipe opened for reading too would be its own reader, and a full one would wait for ever.
bool IsPipe(const char* path) {
    struct stat info {};
    return stat(path, &info) == 0 && S_ISFIFO(info.st_mode);
}

class LockedFile : public LOpenFile {
public:
    LockedFile(const char* path, int flags, int lock) : LOpenFile(OpenLocked(path, flags, lock)) {}
};

/// Replaces what is in the file; true only once all of it is on the disk.
bool WriteAll(LockedFile file, const void* data, unsigned int size) {
    if (!file.IsOpen())
        return false;
    file.Truncate(0);
    return file.Write(data, size) && file.Sync();
}

} // namespace

LOpenFile::LOpenFile(LOpenFile&& other) noexcept : descriptor(std::exchange(other.descriptor, -1)) {}

LOpenFile& LOpenFile::operator=(LOpenFile&& other) noexcept {
    if (this != &other) {
        Close();
        descriptor = std::exchange(other.descriptor, -1);
    }
    return *this;
}

LOpenFile::~LOpenFile() {
    Close();
}

bool LOpenFile::Close() {
    return !IsOpen() || close(std::exchange(descriptor, -1)) == 0;
}

std::size_t LOpenFile::Read(void* data, std::size_t bytes) {
    std::size_t done = 0;
    while (done < bytes) {
        const ssize_t got = read(descriptor, static_cast<char*>(data) + done, bytes - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got <= 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

bool LOpenFile::Write(const void* data, std::size_t bytes) {
    std::size_t done = 0;
    while (done < bytes) {
        const ssize_t put = write(descriptor, static_cast<const char*>(data) + done, bytes - done);
        if (put <= 0)
            return false;
        done += static_cast<std::size_t>(put);
    }
    return IsOpen();
}

std::int64_t LOpenFile::GetOffset() const {
    return lseek(descriptor, 0, SEEK_CUR);
}

std::int64_t LOpenFile::GetSize() const {
    struct stat info {};
    return fstat(descriptor, &info) == 0 ? info.st_size : 0;
}

bool LOpenFile::IsRegular() const {
    struct stat info {};
    return fstat(descriptor, &info) == 0 && S_ISREG(info.st_mode);
}

bool LOpenFile::SeekTo(std::int64_t offset) {
    return lseek(descriptor, offset, SEEK_SET) >= 0;
}

bool LOpenFile::SkipForward(std::int64_t bytes) {
    return lseek(descriptor, bytes, SEEK_CUR) >= 0;
}

bool LOpenFile::Sync() {
    return fsync(descriptor) == 0 || errno == EINVAL || errno == EROFS; // a device has nothing to bring there
}

bool LOpenFile::Truncate(std::int64_t size) {
    return ftruncate(descriptor, size) == 0;
}

LReadWriteFile LReadWriteFile::Duplicate(int opened) {
    return LReadWriteFile(fcntl(opened, F_DUPFD_CLOEXEC, 0));
}

LReadFile::LReadFile(const char* pathToOpen, bool locked)
    : LOpenFile(locked ? OpenLocked(pathToOpen, O_RDONLY, LOCK_SH) : OpenAtOnce(pathToOpen, O_RDONLY)),
      path(pathToOpen),
      identity(GetIdentity()) {}

bool LReadFile::Resume() {
    if (IsOpen())
        return true;
    if (path.empty())
        return false;
    descriptor = OpenAtOnce(path.c_str(), O_RDONLY);
    if (IsOpen() && GetIdentity() != identity)
        Close();
    return IsOpen();
}

LFileIdentity LReadFile::GetIdentity() const {
    struct stat info {};
    return fstat(descriptor, &info) == 0 ? LFileIdentity{info.st_dev, info.st_ino} : LFileIdentity{};
}

LFileIdentity GetFileIdentity(const char* path) {
    struct stat info {};
    return stat(path, &info) == 0 ? LFileIdentity{info.st_dev, info.st_ino} : LFileIdentity{};
}

LSharedReadWriteFile::LSharedReadWriteFile(const char* path)
    : LReadWriteFile(OpenLocked(path, (IsPipe(path) ? O_WRONLY : O_RDWR) | O_CREAT, LOCK_SH)) {}

LReadWriteFile LReadWriteFile::OpenUnlocked(const char* path) {
    return LReadWriteFile(OpenAtOnce(path, O_RDWR | O_CREAT));
}

bool LReadWriteFile::LockExclusively() {
    return flock(descriptor, LOCK_EX) == 0;
}

LExclusiveLock::LExclusiveLock(const char* path) : file(LReadWriteFile::OpenUnlocked(path)) {
    if (!file.LockExclusively())
        file.Close();
}

bool LFile::LoadFile(const char* path, void* data, unsigned int size) {
    LockedFile file(path, O_RDONLY, LOCK_SH);
    return file.Read(data, size) == size;
}

bool LFile::SaveFile(const char* path, const void* data, unsigned int size) {
    // Held until the new content stands: a file in another program's hands keeps its own.
    LockedFile old(path, O_WRONLY, LOCK_EX);
    if (!old.IsOpen() && errno != ENOENT)
        return false;
    LReplacedFile file(path);
    if (!file.IsWrittenDirectly()) {
        if (!WriteAll(LockedFile(file.GetPathToWrite().c_str(), O_WRONLY, LOCK_EX), data, size))
            return false;
        if (file.Commit())
            return true;
    }
    if (!file.GetError().empty() && errno != EACCES && errno != EPERM)
        return false;
    // A device, or a file that may be written in a folder that may not, or where others' files stay in their
    // places.
    return WriteAll(old.IsOpen() ? std::move(old) : LockedFile(path, O_WRONLY | O_CREAT, LOCK_EX), data,
                    size);
}

bool LFile::CopyFile(const char* from, const char* to) {
    LSharedReadFile file(from);
    if (!file.IsOpen() || IsSameFile(from, to))
        return file.IsOpen();
    std::string content(static_cast<std::size_t>(file.GetSize()), '\0');
    content.resize(file.Read(content.data(), content.size()));
    return SaveFile(to, content.data(), static_cast<unsigned int>(content.size()));
}

std::string WhyUnreadable(const char* path) {
    struct stat info {};
    if (stat(path, &info) != 0)
        return std::strerror(errno);
    if (S_ISDIR(info.st_mode))
        return "Is a directory";
    if (!S_ISREG(info.st_mode))
        return "Is not a regular file";
    return access(path, R_OK) == 0 ? "" : std::strerror(errno);
}

std::string ExplainError(int error) {
    return error == EWOULDBLOCK ? "another program is using it" : std::strerror(error);
}
