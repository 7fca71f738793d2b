#pragma once

#include "sys/desktop/fixed_text.h"

#include <string>

/// Who knows what must not be lost in a crash, and what was going on. It is called by the signal handler, on
/// whichever thread crashed, so it may only read plain memory and call what is async-signal-safe.
class LCrashWitness {
public:
    /// Saves what is not on disk yet.
    virtual void SaveAtCrash() const = 0;
    /// Says what was going on, in lines, without names of files or anything else that is private.
    virtual void DescribeAtCrash(LFixedText& report) const = 0;

protected:
    ~LCrashWitness() = default;
};

/// From here on a crash (SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT) has its witness save, then writes a report
/// that begins with `head` to `path`, then ends the process as it would have without this. A signal that
/// something else handles already, such as a sanitizer, is left to it. A full stack is reported of threads
/// that have an `LAlternateStack`, as the main thread has from here on. Once in a process, on its main
/// thread.
void LInstallCrashReport(const std::string& path, const std::string& head);

/// Who is asked at a crash, null for nobody.
void LSetCrashWitness(const LCrashWitness* witness);

/// For a witness: replaces a file, by way of a temporary one beside it. False where that fails, with the file
/// as it was.
bool LReplaceFileAtCrash(const char* path, const char* temporaryPath, const void* data, std::size_t bytes);
