#pragma once

#include "sys/failure.h"
#include "sys/file.h"

#include <string>

/// Writes a file so that a reader finds the old content or the new, never a part of either: the new content
/// goes to a temporary file in the same folder, which `Commit` puts in the old one's place. Without `Commit`
/// the old one stays as it was. The temporary file has no name, where the file system can do that, so that
/// nothing stays of it however the process ends; what a killed process has left elsewhere goes when the next
/// file in that folder is replaced. A link is followed, and the file it leads to replaced. A file that may be
/// written, but whose folder takes no new files or keeps others' in their places (such as /var/tmp), gets the
/// new content in its own place once that is complete. What is no regular file (a device, a pipe), and what a
/// link leads to but has no name, cannot be replaced and is written directly.
class LReplacedFile {
public:
    /// Creates the temporary file, empty, with the old file's permissions. `GetFailure` says why where
    /// it can't.
    explicit LReplacedFile(const std::string& path);
    ~LReplacedFile();
    LReplacedFile(const LReplacedFile&) = delete;
    LReplacedFile& operator=(const LReplacedFile&) = delete;

    const LFailure& GetFailure() const { return failure; }
    /// False where there is a temporary file.
    bool IsWrittenDirectly() const { return descriptor < 0; }
    /// What the new content is written to: the temporary file, by a descriptor of its own.
    LReadWriteFile OpenToWrite() const { return LReadWriteFile::Duplicate(descriptor); }
    /// Puts the written file in place, with all of it on the disk.
    LFailure Commit();

private:
    void CreateTemporary(unsigned int mode);
    LFailure PutInPlace();
    LFailure CopyInPlace();

    std::string finalPath;
    std::string temporaryPath; ///< empty while it has no name
    LFailure failure;
    int descriptor = -1;      ///< of the temporary file, under a shared lock: it is not stale
    bool isElsewhere = false; ///< not in the folder of the file
};
