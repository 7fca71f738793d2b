#pragma once

#include "sys/failure.h"
#include "sys/file.h"
#include "sys/process_result.h"
#include "sys/replaced_file.h"

#include <optional>
#include <set>
#include <string>

/// Where a sound is rendered to: a file, which takes an old one's place only once it is complete, or standard
/// output.
class OutputFile {
public:
    /// True for "-", and for the names that the system has for it.
    static bool IsStandardOutput(const std::string& path);
    /// True for what has a name of its own, so that no extension tells its kind: standard output, devices,
    /// pipes and folders.
    static bool IsNoFile(const std::string& path);
    /// Whether it may be written: not where it is one of the files that are read for it.
    static LFailure CheckUnread(const std::string& path, const std::set<std::string>& read);

    explicit OutputFile(const std::string& path);

    const LFailure& GetFailure() const { return failure; } ///< why it can't be had, or did not open
    /// What the sound is written to, at its beginning. A pipe can't be rewound.
    LReadWriteFile Open();

    /// Puts the file in place: after a job that was completed, and after one that was stopped where there was
    /// no file before. Otherwise the file that was there stays. `unwritten` is why the sound did not get
    /// there in full.
    LFailure Finish(LProcessResult result, const LFailure& unwritten);

private:
    std::string path;
    std::optional<LReplacedFile> file; ///< but for standard output
    bool replaces;                     ///< a file that was there before
    LFailure failure;
};
