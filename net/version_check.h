#pragma once

#include "net/http_get.h"

/// Where the newest version is published; the host is set when the program is built.
extern const char* const VersionFileUrl;
inline constexpr int VersionCheckTimeoutMs = 5000; ///< of each step

/// The job of finding out the newest version, and what it has found.
struct LProcessCheckForVersionUpdates {
    static constexpr std::size_t MaxInfoLength = 259;

    double version = 0;
    std::string info; ///< the address of the page about it, of up to 259 bytes, as it was received
};

/// Takes from a server's reply the number after the first "version=" and the text after the first "info=" up
/// to a "&" or the end. False where either is missing.
[[nodiscard]] bool ReadVersionReply(const std::string& reply, LProcessCheckForVersionUpdates& job);

/// Runs the job with the version file of any address. What is no such file fails it.
template <class ProgressDialog>
LProcessResult ProcessVersionFile(ProgressDialog& dialog, const char* url, int timeoutMs,
                                  LProcessCheckForVersionUpdates& job) {
    char reply[2048];
    const LProcessResult result = ProcessHTTPGet(dialog, url, reply, sizeof reply, timeoutMs);
    if (result != LProcessResult::Completed)
        return result;
    return ReadVersionReply(reply, job) ? LProcessResult::Completed : LProcessResult::Failed;
}

/// Runs the job on the calling thread. `ProgressDialog` has `bool IsToStop()`.
template <class ProgressDialog>
LProcessResult Process(ProgressDialog& dialog, LProcessCheckForVersionUpdates& job) {
    return ProcessVersionFile(dialog, VersionFileUrl, VersionCheckTimeoutMs, job);
}
