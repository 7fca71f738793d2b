#pragma once

#include "sys/failure.h"

#include <cstddef>
#include <cstdint>
#include <string>

/// Tells an existing file from all others, whatever path leads to it; zeros where there is none.
struct LFileIdentity {
    std::uint64_t device = 0, inode = 0;

    bool Exists() const { return inode != 0; }
    bool operator==(const LFileIdentity&) const = default;
};

/// Which file it is and what is in it, as far as that shows without reading it.
struct LFileState {
    LFileIdentity identity;
    std::int64_t size = 0;
    std::int64_t changed = 0; ///< in nanoseconds since 1970, by the clock of the file system

    /// Since the last change, by the clock of this computer; negative where that is behind.
    double GetSecondsUnchanged() const;

    bool operator==(const LFileState&) const = default;
};

/// Owns one open file descriptor, -1 when there is none. Every operation on a closed file fails. Ownership
/// passes by moving, which leaves -1 behind. Not for use from two threads at once.
class LOpenFile {
public:
    LOpenFile() = default;
    LOpenFile(LOpenFile&& other) noexcept;
    LOpenFile& operator=(LOpenFile&& other) noexcept;
    ~LOpenFile();

    bool IsOpen() const { return descriptor >= 0; }
    /// Why the file did not open.
    LFailure GetFailure() const { return openError == 0 ? LFailure() : LFailure::OfSystem(openError); }
    /// Fails where what was written could not be kept after all, as on a network disk.
    LFailure Close();

    /// Reads up to `bytes` bytes from the current offset, as many as the file has; returns the count read.
    [[nodiscard]] std::size_t Read(void* data, std::size_t bytes);
    /// Why a `Read` has ended before the file did.
    LFailure GetReadFailure() const { return readError == 0 ? LFailure() : LFailure::OfSystem(readError); }
    /// Writes all of `bytes`; fails when even one byte did not make it (a full disk, a closed pipe, a signal
    /// while it waited for a pipe).
    LFailure Write(const void* data, std::size_t bytes);

    std::int64_t GetOffset() const; ///< -1 where there is none, as in a pipe
    std::int64_t GetSize() const;   ///< 0 where it cannot be told
    LFileState GetState() const;    ///< zeros where it cannot be told
    bool IsRegular() const;         ///< neither a device nor a pipe nor a folder
    /// False in a pipe and before the beginning; the file stays where it is then.
    bool SeekTo(std::int64_t offset);
    [[nodiscard]] bool SkipForward(std::int64_t bytes);
    LFailure Truncate(std::int64_t size);
    LFailure Sync(); ///< waits until what was written has reached the disk
    /// Has a part of the file brought to the disk, and waits for it where that is wanted. Unlike `Sync` it
    /// promises nothing; where there is no disk, nothing happens.
    void WriteBack(std::int64_t offset, std::int64_t bytes, bool waits) const;

protected:
    /// What opening a file has given: a descriptor, or -1 and the system's error number.
    struct Opened {
        int descriptor;
        int error;
    };
    /// Of a system call that returns a descriptor.
    static Opened Note(int descriptor);
    /// Opens without waiting for a pipe's other end; writes wait as usual from then on.
    static Opened OpenAtOnce(const char* path, int flags);
    /// The same under an advisory lock that is not waited for.
    static Opened OpenLocked(const char* path, int flags, int lock);
    explicit LOpenFile(Opened opened) : descriptor(opened.descriptor), openError(opened.error) {}

    int descriptor = -1;
    int openError = 0;
    int readError = 0;
};

LFileIdentity GetFileIdentity(const char* path);

/// A file that is only read.
class LReadFile : public LOpenFile {
public:
    LReadFile() = default;

protected:
    /// Never waits: a named pipe without a writer opens and reads as empty; under a lock, a file that
    /// somebody else holds exclusively does not open.
    explicit LReadFile(const char* path, bool locked = false);
};

/// A file that is read and written.
class LReadWriteFile : public LOpenFile {
public:
    LReadWriteFile() = default;
    /// A descriptor of its own for what an open one leads to.
    static LReadWriteFile Duplicate(int opened);
    LReadWriteFile Share() const { return Duplicate(descriptor); }
    /// Creates the file where it is missing.
    static LReadWriteFile OpenUnlocked(const char* path);
    /// Creates one without a name in $TMPDIR or /var/tmp, which goes with its last descriptor.
    static LReadWriteFile CreateUnnamed();
    /// Takes an advisory lock that is not waited for; false where somebody else holds one, or it can't be
    /// had.
    [[nodiscard]] bool LockExclusively();

protected:
    using LOpenFile::LOpenFile;
};

/// Opens for reading.
class LSharedReadFile : public LReadFile {
public:
    explicit LSharedReadFile(const char* path) : LReadFile(path) {}
};

/// Opens for reading under a shared advisory lock that is not waited for.
class LLockedReadFile : public LReadFile {
public:
    explicit LLockedReadFile(const char* path) : LReadFile(path, true) {}
};

/// Opens for reading and writing, creates the file (mode 0666 less the mask) where it is missing, keeps what
/// is in it, and takes a shared advisory lock without waiting; a file that somebody else holds exclusively
/// does not open.
class LSharedReadWriteFile : public LReadWriteFile {
public:
    explicit LSharedReadWriteFile(const char* path);
};

/// Holds a file, which is created where it is missing, against every other holder; waits for it, but no
/// longer than it is told to. The lock goes with its process, however that ends.
class LExclusiveLock {
public:
    LExclusiveLock(const char* path, unsigned int milliseconds);
    bool IsHeld() const { return file.IsOpen(); }

private:
    LReadWriteFile file;
};

/// Whole files in one call.
class LFile {
public:
    /// Reads the first `size` bytes of the file under a shared advisory lock that is not waited for. Fails
    /// where it has fewer, and then `data` may hold a part of them. What follows them is ignored.
    static LFailure LoadFile(const char* path, void* data, unsigned int size);
    /// Replaces the file's content under an exclusive advisory lock that is not waited for: a file that
    /// another program holds is left alone. Where not all of it could be written, the file is as it was, but
    /// for one in a folder that takes no new files or keeps others' in their places (such as /var/tmp).
    static LFailure SaveFile(const char* path, const void* data, unsigned int size);
    /// Saves what is in one file, of up to 4 GiB, as another; fails as `SaveFile` does.
    static LFailure CopyFile(const char* from, const char* to);
};

/// For the start of a program: from here on a write into a closed pipe, or beyond the largest file that the
/// user may have, fails instead of ending the program.
void IgnoreWriteSignals();

/// Whether `path` can be read as a file.
LFailure CheckReadable(const std::string& path);
