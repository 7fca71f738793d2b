#include "net/tcp_socket.h"

#include <cerrno>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// What has happened to the socket within the time: 0 for nothing, -1 for a wait that failed.
int Poll(int descriptor, short events, int milliseconds) {
    pollfd waited = {descriptor, events, 0};
    const int count = poll(&waited, 1, milliseconds);
    if (count < 0)
        return errno == EINTR ? 0 : -1;
    return waited.revents;
}

} // namespace

void LIPSocketTCP::Close() {
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

LSocketState LIPSocketTCP::Connect(const LIPAddressWithPort& address) {
    Close();
    if (!address.IsValid())
        return LSocketState::Failed;
    descriptor = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    const sockaddr_in& to = address.GetSocketAddress();
    if (connect(descriptor, reinterpret_cast<const sockaddr*>(&to), sizeof to) == 0)
        return LSocketState::Ready;
    return errno == EINPROGRESS ? LSocketState::Waiting : LSocketState::Failed;
}

LSocketState LIPSocketTCP::WaitToWrite(int milliseconds) const {
    if (!IsOpen())
        return LSocketState::Failed;
    const int events = Poll(descriptor, POLLOUT, milliseconds);
    if (events == 0)
        return LSocketState::Waiting;
    return events == POLLOUT ? LSocketState::Ready
                             : LSocketState::Failed; // what was refused can be "written"
}

LSocketState LIPSocketTCP::WaitToRead(int milliseconds) const {
    if (!IsOpen())
        return LSocketState::Ready;
    return Poll(descriptor, POLLIN, milliseconds) == 0 ? LSocketState::Waiting : LSocketState::Ready;
}

int LIPSocketTCP::Send(const void* data, unsigned int length) {
    const ssize_t sent = send(descriptor, data, length, MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent < 0)
        return errno == EAGAIN || errno == EWOULDBLOCK ? 0 : -1;
    return static_cast<int>(sent);
}

unsigned long LIPSocketTCP::Receive(void* buffer, unsigned long length) {
    const ssize_t got = recv(descriptor, buffer, length, MSG_DONTWAIT);
    return got > 0 ? static_cast<unsigned long>(got) : 0;
}
