#pragma once

#include "net/ip_address.h"

#include <cstddef>

/// What a wait, or an operation that may need one, has come to.
enum class [[nodiscard]] LSocketState{
    Waiting, ///< nothing yet
    Ready,
    Failed,
};

/// A TCP socket over IPv4, closed with its owner. Nothing it does blocks but a wait, and nothing raises a
/// signal. What is asked of a closed socket fails.
class LIPSocketTCP {
public:
    LIPSocketTCP() = default;
    ~LIPSocketTCP() { Close(); }
    LIPSocketTCP(const LIPSocketTCP&) = delete;
    LIPSocketTCP& operator=(const LIPSocketTCP&) = delete;

    bool IsOpen() const { return descriptor >= 0; }
    void Close();
    /// Begins a connection, with a new socket. Where that is `Waiting`, a wait to write tells how it ends.
    LSocketState Connect(const LIPAddressWithPort& address);
    /// Waits for at most `milliseconds` until something can be sent. A signal handler ends the wait early.
    LSocketState WaitToWrite(int milliseconds) const;
    /// The same until `Receive` has something to tell, be it that the connection is closed or broken.
    LSocketState WaitToRead(int milliseconds) const;
    /// The number of bytes that could be sent at once, 0 for none yet; -1 where the connection is broken.
    [[nodiscard]] int Send(const void* data, unsigned int length);
    /// The number of bytes that are there, up to `length`; 0 where it is closed or broken, or none are there.
    [[nodiscard]] unsigned long Receive(void* buffer, unsigned long length);

private:
    int descriptor = -1;
};
