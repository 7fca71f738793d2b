#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

/// A port of 127.0.0.1 that listens. Who connects is not answered.
class LocalPort {
public:
    explicit LocalPort(int backlog = 16);
    ~LocalPort() { close(descriptor); }
    LocalPort(const LocalPort&) = delete;
    LocalPort& operator=(const LocalPort&) = delete;

    std::uint16_t GetPort() const { return port; }
    std::string GetAddress() const { return "127.0.0.1:" + std::to_string(port); }
    /// The next connection, or -1 once nothing is to be accepted any more.
    int Accept() const { return accept4(descriptor, nullptr, nullptr, SOCK_CLOEXEC); }
    void Stop() { shutdown(descriptor, SHUT_RDWR); }

private:
    int descriptor;
    std::uint16_t port = 0;
};

/// A web server with one page. A request is read up to its empty line, then `serve` has the connection, which
/// is closed afterwards. What connects must be gone before the server is.
class LocalServer : public LocalPort {
public:
    explicit LocalServer(std::function<void(int connection)> serve)
        : thread([this, serve = std::move(serve)] { Run(serve); }) {}
    ~LocalServer() {
        Stop();
        thread.join();
    }

    std::string GetUrl() const { return "http://" + GetAddress() + "/versions/sonvire_mac.txt"; }

    std::string request; ///< the one that is served, for `serve`

private:
    void Run(const std::function<void(int)>& serve);

    std::thread thread;
};

/// Sends a text as far as the other side takes it.
void SendText(int connection, const std::string& text);
/// All that comes until the other side closes.
std::string ReceiveAll(int connection);
