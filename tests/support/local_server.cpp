#include "support/local_server.h"

#include <netinet/in.h>

LocalPort::LocalPort(int backlog) : descriptor(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    const auto any = reinterpret_cast<sockaddr*>(&address);
    if (bind(descriptor, any, size) == 0 && listen(descriptor, backlog) == 0 &&
        getsockname(descriptor, any, &size) == 0)
        port = ntohs(address.sin_port);
}

LocalServer::LocalServer(std::function<void(int)> serve)
    : serveOne(std::move(serve)),
      thread([this] { Run(); }) {}

LocalServer::~LocalServer() {
    listening.Stop();
    thread.join();
}

void LocalServer::Run() {
    for (int connection = listening.Accept(); connection >= 0; connection = listening.Accept()) {
        request.clear();
        char next = 0;
        while (!request.ends_with("\r\n\r\n") && recv(connection, &next, 1, 0) == 1)
            request += next;
        serveOne(connection);
        close(connection);
    }
}

void SendText(int connection, const std::string& text) {
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t sent = send(connection, text.data() + done, text.size() - done, MSG_NOSIGNAL);
        if (sent < 0)
            return;
        done += static_cast<std::size_t>(sent);
    }
}

std::string ReceiveAll(int connection) {
    std::string all;
    char block[4096];
    for (ssize_t got = 0; (got = recv(connection, block, sizeof block, 0)) > 0;)
        all.append(block, static_cast<std::size_t>(got));
    return all;
}
