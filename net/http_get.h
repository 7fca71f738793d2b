#pragma once

#include "net/tcp_steps.h"

#include <string>

inline constexpr std::size_t MaxHostLength = 259;
inline constexpr unsigned short HTTPPort = 80;

/// The host of a URL, with its port where it has one, cut after 259 characters; and its path, from the first
/// "/" that stands alone, or empty. What stands before a "//", such as a scheme, is left out.
void ProcessHTTPSplitHost(const char* url, std::string& host, std::string& path);

/// What is sent for a page.
std::string MakeHTTPRequest(const std::string& host, const std::string& path);

/// Receives text until the buffer is full or a step is not completed, and ends it with a 0. `size` counts
/// that, and is not 0.
template <class ProgressDialog>
void ProcessReceiveText(ProgressDialog& dialog, LIPSocketTCP& socket, char* text, unsigned long size,
                        int timeoutMs) {
    unsigned long used = 0, received = 0;
    while (used < size - 1 && ProcessRecvReady(dialog, socket, text + used, size - 1 - used, received,
                                               timeoutMs) == LProcessResult::Completed)
        used += received;
    text[used] = '\0';
}

/// Fetches a page by HTTP 1.0: the first `size` - 1 bytes of the whole reply, headers included, as text. The
/// time-out is for each step. `size` is not 0.
/// Kept quirk: it is completed wherever a connection was made, even by a user who stops it later; whether the
/// text is of use is for the caller to see.
template <class ProgressDialog>
LProcessResult ProcessHTTPGet(ProgressDialog& dialog, const char* url, char* reply, unsigned long size,
                              int timeoutMs) {
    reply[0] = '\0';
    std::string host, path;
    ProcessHTTPSplitHost(url, host, path);
    LIPSocketTCP socket;
    const LProcessResult connected = ProcessConnect(dialog, socket, host.c_str(), HTTPPort, timeoutMs);
    if (connected != LProcessResult::Completed)
        return connected;
    const std::string request = MakeHTTPRequest(host, path);
    if (ProcessSendString(dialog, socket, request.c_str(), timeoutMs) == LProcessResult::Completed)
        ProcessReceiveText(dialog, socket, reply, size, timeoutMs);
    return ProcessDisconnect(dialog, socket, timeoutMs);
}
