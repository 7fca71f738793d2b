#include "support/local_server.h"

#include <netinet/in.h>

LocalPort::LocalPort(int backlog) : descriptor(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{
        .sin_family = AF_INET, .sin_port = 0, .sin_addr = {htonl(INADDR_LOOPBACK)}, .sin_zero = {}};
    socklen_t size = sizeof address;
    const auto any = reinterpret_cast<sockaddr*>(&address);
    if (bind(descriptor, any, size) == 0 && listen(descriptor, backlog) == 0 &&
        getsockname(descriptor, any, &size) == 0)
        port = ntohs(address.sin_port);
}

void LocalServer::Run(const std::function<void(int)>& serve) {
    for (int connection = Accept(); connection >= 0; connection = Accept()) {
        request.clear();
        char next = 0;
        while (!request.ends_with("\r\n\r\n") && recv(connection, &next, 1, 0) == 1)
            request += next;
        serve(connection);
        close(connection);
    }
}

void SendText(int connection, const std::string& text) {
    ssize_t sent = 0;
    for (std::size_t done = 0; done < text.size() && sent >= 0; done += static_cast<std::size_t>(sent))
        sent = send(connection, text.data() + done, text.size() - done, MSG_NOSIGNAL);
}

std::string ReceiveAll(int connection) {
    std::string all;
    char block[4096];
    for (ssize_t got = 0; (got = recv(connection, block, sizeof block, 0)) > 0;)
        all.append(block, static_cast<std::size_t>(got));
    return all;
}
