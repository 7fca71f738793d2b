#pragma once

#include "sys/failure.h"

#include <string>

/// Writes a file so that a reader finds the old content or the new, never a part of either: the new content
/// goes to a temporary file in the same folder, which `Commit` puts in the old one's place. Without `Commit`
/// the destructor removes the temporary file and the old one stays as it was. A link is followed, and the
/// file it leads to replaced. What is no regular file (a device, a pipe), and what a link leads to
/// but has no name, cannot be replaced and is written directly.
class LReplacedFile {
public:
    /// Creates the temporary file, empty, with the old file's permissions. `GetFailure` says why where
    /// it can't.
    explicit LReplacedFile(const std::string& path);
    ~LReplacedFile();
    LReplacedFile(const LReplacedFile&) = delete;
    LReplacedFile& operator=(const LReplacedFile&) = delete;

    const LFailure& GetFailure() const { return failure; }
    const std::string& GetPathToWrite() const { return writePath; } ///< what the new content is written to
    bool IsWrittenDirectly() const { return !temporary; }
    /// Puts the written file in place, once it is closed.
    LFailure Commit();

private:
    void CreateTemporary(unsigned int mode);

    std::string finalPath;
    std::string writePath;
    LFailure failure;
    bool temporary = false;
};
