#pragma once

#include "net/name_lookup.h"
#include "net/tcp_socket.h"
#include "sys/process_result.h"

#include <algorithm>
#include <chrono>
#include <cstring>

// The steps of an exchange over TCP under a progress dialog, for the thread that runs its job. A step waits
// in slices of 200 ms and asks at each of them whether to stop; its time-out is counted in slices too, of
// which there is one at least. A step is stopped by the user, or failed by its time-out or an error.
//
// `ProgressDialog` has `bool IsToStop()`.

inline constexpr int WaitSliceMs = 200;
inline constexpr unsigned int MaxSendBytes = 1024;

inline LProcessResult ResultOf(LSocketState ended) {
    return ended == LSocketState::Ready ? LProcessResult::Completed : LProcessResult::Failed;
}

/// Runs `wait(milliseconds)`, which returns an `LSocketState`, slice by slice until it has come to an end.
template <class ProgressDialog, class Wait>
LProcessResult ProcessWait(ProgressDialog& dialog, int timeoutMs, const Wait& wait) {
    do {
        if (dialog.IsToStop())
            return LProcessResult::Stopped;
        if (const LSocketState state = wait(WaitSliceMs); state != LSocketState::Waiting)
            return ResultOf(state);
        timeoutMs -= WaitSliceMs;
    } while (timeoutMs > 0);
    return LProcessResult::Failed;
}

/// Waits for the answer to a look-up.
template <class ProgressDialog>
LProcessResult ProcessLookUp(ProgressDialog& dialog, const std::future<LIPAddressMultiHomedWithPort>& answer,
                             int timeoutMs) {
    return ProcessWait(dialog, timeoutMs, [&answer](int milliseconds) {
        const auto status = answer.wait_for(std::chrono::milliseconds(milliseconds));
        return status == std::future_status::ready ? LSocketState::Ready : LSocketState::Waiting;
    });
}

/// Waits for the end of a connection that was begun; the first slice comes before the first question.
template <class ProgressDialog>
LProcessResult ProcessConnectBegun(ProgressDialog& dialog, const LIPSocketTCP& socket, int timeoutMs) {
    do {
        if (const LSocketState state = socket.WaitToWrite(WaitSliceMs); state != LSocketState::Waiting)
            return ResultOf(state);
        if (dialog.IsToStop())
            return LProcessResult::Stopped;
        timeoutMs -= WaitSliceMs;
    } while (timeoutMs > 0);
    return LProcessResult::Failed;
}

/// Connects to one address. The socket is closed afterwards unless that is completed.
template <class ProgressDialog>
LProcessResult ProcessConnect(ProgressDialog& dialog, LIPSocketTCP& socket, const LIPAddressWithPort& address,
                              int timeoutMs) {
    const LSocketState begun = socket.Connect(address);
    const LProcessResult result =
        begun == LSocketState::Waiting ? ProcessConnectBegun(dialog, socket, timeoutMs) : ResultOf(begun);
    if (result != LProcessResult::Completed)
        socket.Close();
    return result;
}

/// Connects to the first address that returns, each with the time-out to itself.
template <class ProgressDialog>
LProcessResult ProcessConnect(ProgressDialog& dialog, LIPSocketTCP& socket,
                              const LIPAddressMultiHomedWithPort& address, int timeoutMs) {
    LProcessResult result = LProcessResult::Failed;
    for (std::uint32_t i = 0; i < address.hosts.count && result == LProcessResult::Failed; ++i)
        result = ProcessConnect(dialog, socket, address.GetHost(i), timeoutMs);
    return result;
}

/// Connects to "HOST" or "HOST:PORT"; looking it up has the time-out to itself, too. Whoever wants to stop
/// beforehand has nothing looked up.
template <class ProgressDialog>
LProcessResult ProcessConnect(ProgressDialog& dialog, LIPSocketTCP& socket, const char* host,
                              unsigned short port, int timeoutMs) {
    if (dialog.IsToStop())
        return LProcessResult::Stopped;
    std::future<LIPAddressMultiHomedWithPort> answer = LookUpInBackground(host, port);
    const LProcessResult lookedUp = ProcessLookUp(dialog, answer, timeoutMs);
    return lookedUp == LProcessResult::Completed ? ProcessConnect(dialog, socket, answer.get(), timeoutMs)
                                                 : lookedUp;
}

/// Sends all of the data; the time-out is for all the time in which nothing could be sent.
template <class ProgressDialog>
LProcessResult ProcessSend(ProgressDialog& dialog, LIPSocketTCP& socket, const void* data,
                           unsigned int length, int timeoutMs) {
    const char* next = static_cast<const char*>(data);
    while (!dialog.IsToStop()) {
        const int sent = socket.Send(next, std::min(length, MaxSendBytes));
        if (sent < 0)
            return LProcessResult::Failed;
        next += sent;
        length -= static_cast<unsigned int>(sent);
        if (length == 0)
            return LProcessResult::Completed;
        if (sent == MaxSendBytes)
            continue;
        const LSocketState state = socket.WaitToWrite(WaitSliceMs);
        timeoutMs -= state == LSocketState::Waiting ? WaitSliceMs : 0;
        if (state == LSocketState::Failed || timeoutMs <= 0)
            return LProcessResult::Failed;
    }
    return LProcessResult::Stopped;
}

/// Sends a text without its terminator.
template <class ProgressDialog>
LProcessResult ProcessSendString(ProgressDialog& dialog, LIPSocketTCP& socket, const char* text,
                                 int timeoutMs) {
    return ProcessSend(dialog, socket, text, static_cast<unsigned int>(std::strlen(text)), timeoutMs);
}

/// Completed as soon as a receive will tell something: data, the end of it, or an error.
template <class ProgressDialog>
LProcessResult ProcessWaitForDataOrClose(ProgressDialog& dialog, const LIPSocketTCP& socket, int timeoutMs) {
    return ProcessWait(dialog, timeoutMs,
                       [&socket](int milliseconds) { return socket.WaitToRead(milliseconds); });
}

/// Receives what is there, up to `length` bytes, once there is something. The end of the data is a failure.
template <class ProgressDialog>
LProcessResult ProcessRecvReady(ProgressDialog& dialog, LIPSocketTCP& socket, void* buffer,
                                unsigned long length, unsigned long& received, int timeoutMs) {
    received = 0;
    if (length == 0)
        return LProcessResult::Completed;
    const LProcessResult result = ProcessWaitForDataOrClose(dialog, socket, timeoutMs);
    if (result != LProcessResult::Completed)
        return result;
    received = socket.Receive(buffer, length);
    return received > 0 ? LProcessResult::Completed : LProcessResult::Failed;
}

/// Closes the socket at once.
template <class ProgressDialog>
LProcessResult ProcessDisconnect(ProgressDialog& /*dialog*/, LIPSocketTCP& socket, int /*timeoutMs*/) {
    socket.Close();
    return LProcessResult::Completed;
}
