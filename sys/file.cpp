#include "sys/file.h"

#include "sys/path.h"
#include "sys/replaced_file.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h> // NOLINT(readability-duplicate-include): the system's
#include <sys/stat.h>
#include <thread>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::int64_t NanosecondsPerSecond = 1'000'000'000;

int OpenDescriptor(const char* path, int flags) {
    const int descriptor = open(path, flags | O_NONBLOCK | O_CLOEXEC, 0666);
    if (descriptor >= 0 && (flags & O_ACCMODE) != O_RDONLY)
        fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    return descriptor;
}

LFailure Explain(bool succeeded) {
    return succeeded ? LFailure() : LFailure::OfLastCall();
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

/// Replaces what is in the file; done only once all of it is on the disk.
LFailure WriteAll(LockedFile file, const void* data, unsigned int size) {
    if (!file.IsOpen())
        return file.GetFailure();
    static_cast<void>(file.Truncate(0)); // a device has no size
    if (const LFailure failure = file.Write(data, size))
        return failure;
    return file.Sync();
}

} // namespace

LOpenFile::Opened LOpenFile::Note(int descriptor) {
    return {descriptor, descriptor < 0 ? errno : 0};
}

LOpenFile::Opened LOpenFile::OpenAtOnce(const char* path, int flags) {
    return Note(OpenDescriptor(path, flags));
}

LOpenFile::Opened LOpenFile::OpenLocked(const char* path, int flags, int lock) {
    const Opened opened = OpenAtOnce(path, flags);
    if (opened.descriptor < 0 || flock(opened.descriptor, lock | LOCK_NB) == 0 || errno != EWOULDBLOCK)
        return opened;
    close(opened.descriptor);
    return {-1, EWOULDBLOCK};
}

LOpenFile::LOpenFile(LOpenFile&& other) noexcept
    : descriptor(std::exchange(other.descriptor, -1)),
      openError(other.openError) {}

LOpenFile& LOpenFile::operator=(LOpenFile&& other) noexcept {
    if (this != &other) {
        static_cast<void>(Close());
        descriptor = std::exchange(other.descriptor, -1);
        openError = other.openError;
    }
    return *this;
}

LOpenFile::~LOpenFile() {
    static_cast<void>(Close());
}

LFailure LOpenFile::Close() {
    return Explain(!IsOpen() || close(std::exchange(descriptor, -1)) == 0);
}

std::size_t LOpenFile::Read(void* data, std::size_t bytes) {
    std::size_t done = 0;
    while (done < bytes) {
        const ssize_t got = read(descriptor, static_cast<char*>(data) + done, bytes - done);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            readError = errno;
        if (got <= 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

LFailure LOpenFile::Write(const void* data, std::size_t bytes) {
    std::size_t done = 0;
    while (done < bytes) {
        const ssize_t put = write(descriptor, static_cast<const char*>(data) + done, bytes - done);
        if (put < 0)
            return LFailure::OfLastCall();
        if (put == 0)
            return LFailure::OfSystem(ENOSPC);
        done += static_cast<std::size_t>(put);
    }
    return IsOpen() ? LFailure() : LFailure::OfSystem(EBADF);
}

std::int64_t LOpenFile::GetOffset() const {
    return lseek(descriptor, 0, SEEK_CUR);
}

std::int64_t LOpenFile::GetSize() const {
    struct stat info {};
    return fstat(descriptor, &info) == 0 ? info.st_size : 0;
}

LFileState LOpenFile::GetState() const {
    struct stat info {};
    if (fstat(descriptor, &info) != 0)
        return {};
    return {.identity = {info.st_dev, info.st_ino},
            .size = info.st_size,
            .changed = info.st_mtim.tv_sec * NanosecondsPerSecond + info.st_mtim.tv_nsec};
}

double LFileState::GetSecondsUnchanged() const {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const std::int64_t passed = now.tv_sec * NanosecondsPerSecond + now.tv_nsec - changed;
    return static_cast<double>(passed) / NanosecondsPerSecond;
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

LFailure LOpenFile::Sync() {
    return Explain(fsync(descriptor) == 0 || errno == EINVAL ||
                   errno == EROFS); // a device has nothing to bring there
}

void LOpenFile::WriteBack(std::int64_t offset, std::int64_t bytes, bool waits) const {
    constexpr unsigned int Waiting = SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WAIT_AFTER;
    sync_file_range(descriptor, offset, bytes, SYNC_FILE_RANGE_WRITE | (waits ? Waiting : 0));
}

LFailure LOpenFile::Truncate(std::int64_t size) {
    return Explain(ftruncate(descriptor, size) == 0);
}

LReadWriteFile LReadWriteFile::Duplicate(int opened) {
    return LReadWriteFile(Note(fcntl(opened, F_DUPFD_CLOEXEC, 0)));
}

LReadFile::LReadFile(const char* path, bool locked)
    : LOpenFile(locked ? OpenLocked(path, O_RDONLY, LOCK_SH) : OpenAtOnce(path, O_RDONLY)) {}

LFileIdentity GetFileIdentity(const char* path) {
    struct stat info {};
    return stat(path, &info) == 0 ? LFileIdentity{info.st_dev, info.st_ino} : LFileIdentity{};
}

LSharedReadWriteFile::LSharedReadWriteFile(const char* path)
    : LReadWriteFile(OpenLocked(path, (IsPipe(path) ? O_WRONLY : O_RDWR) | O_CREAT, LOCK_SH)) {}

LReadWriteFile LReadWriteFile::OpenUnlocked(const char* path) {
    return LReadWriteFile(OpenAtOnce(path, O_RDWR | O_CREAT));
}

LReadWriteFile LReadWriteFile::CreateUnnamed() {
    const char* folder = std::getenv("TMPDIR");
    std::string name = std::string(folder ? folder : "/var/tmp") + "/sonvire-XXXXXX";
    LReadWriteFile created(Note(mkostemp(name.data(), O_CLOEXEC)));
    if (created.IsOpen())
        unlink(name.c_str());
    return created;
}

bool LReadWriteFile::LockExclusively() {
    return flock(descriptor, LOCK_EX | LOCK_NB) == 0;
}

/// By trying: the system can't be told to wait for a while only.
LExclusiveLock::LExclusiveLock(const char* path, unsigned int milliseconds)
    : file(LReadWriteFile::OpenUnlocked(path)) {
    const auto latest = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (file.IsOpen() && !file.LockExclusively()) {
        if (errno != EWOULDBLOCK || std::chrono::steady_clock::now() >= latest)
            file = {};
        else
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

LFailure LFile::LoadFile(const char* path, void* data, unsigned int size) {
    LockedFile file(path, O_RDONLY, LOCK_SH);
    if (!file.IsOpen())
        return file.GetFailure();
    return file.Read(data, size) == size ? LFailure() : "ends too early";
}

LFailure LFile::SaveFile(const char* path, const void* data, unsigned int size) {
    // Held until the new content stands: a file in another program's hands keeps its own.
    LockedFile old(path, O_WRONLY, LOCK_EX);
    if (LFailure held = old.GetFailure(); held && held.GetError() != ENOENT)
        return held;
    LReplacedFile file(path);
    if (file.GetFailure())
        return file.GetFailure();
    if (file.IsWrittenDirectly())
        return WriteAll(old.IsOpen() ? std::move(old) : LockedFile(path, O_WRONLY | O_CREAT, LOCK_EX), data,
                        size);
    if (LFailure failure = file.OpenToWrite().Write(data, size))
        return failure;
    return file.Commit();
}

LFailure LFile::CopyFile(const char* from, const char* to) {
    LSharedReadFile file(from);
    if (!file.IsOpen())
        return file.GetFailure();
    if (IsSameFile(from, to))
        return {};
    std::string content(static_cast<std::size_t>(file.GetSize()), '\0');
    if (file.Read(content.data(), content.size()) != content.size())
        return "could not be read to its end";
    return SaveFile(to, content.data(), static_cast<unsigned int>(content.size()));
}

void IgnoreWriteSignals() {
    for (const int signal : {SIGPIPE, SIGXFSZ})
        std::signal(signal, SIG_IGN);
}

LFailure CheckReadable(const std::string& path) {
    struct stat info {};
    if (stat(path.c_str(), &info) != 0)
        return LFailure::OfLastCall();
    if (S_ISDIR(info.st_mode))
        return LFailure::OfSystem(EISDIR);
    if (!S_ISREG(info.st_mode))
        return "is not a regular file";
    return access(path.c_str(), R_OK) == 0 ? LFailure() : LFailure::OfLastCall();
}
