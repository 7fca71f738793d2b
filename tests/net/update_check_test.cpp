#include "net/version_check.h"
#include "net/web_address.h"
#include "support/local_server.h"

#include <gtest/gtest.h>

namespace {

using enum LProcessResult;

constexpr int OneSlice = 200; ///< the shortest time-out there is

/// A progress dialog whose user wants to stop at the question of this number.
struct Dialog {
    int stopAt = 0; ///< 0 for never
    int asked = 0;

    bool IsToStop() { return ++asked == stopAt; }
};

std::uint32_t Ip(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    return htonl(a << 24 | b << 16 | c << 8 | d);
}

TEST(UpdateCheck, AUrlIsSplitIntoHostPortAndPath) {
    const std::string maker = "www.maker.example", file = "/versions/a.txt", longHost(259, 'h');
    // The host with its port and without, the path, the port.
    using Parts = std::tuple<std::string, std::string, std::string, int>;
    const std::pair<std::string, Parts> cases[] = {
        {"http://" + maker + file, {maker, maker, file, 81}},
        {"http://some-host:8080/p//q?a/b", {"some-host:8080", "some-host", "/p//q?a/b", 8080}},
        {"host:", {"host:", "host", "", 0}},
        {"/path", {"", "", "/path", 81}},
        {"a//b//c:65537:2/d", {"c:65537:2", "c", "/d", 1}},
        {"http://" + longHost + "hhh/p", {longHost, longHost, "/p", 81}}};
    for (const auto& [url, parts] : cases) {
        std::string host = "old", path = "old", name = "old";
        ProcessHTTPSplitHost(url.c_str(), host, path);
        const int port = SplitPortFromAddr(host.c_str(), name, 81);
        EXPECT_EQ(Parts(host, name, path, port), parts) << url;
    }
}

TEST(UpdateCheck, AHostGoesByItsAddresses) {
    const std::tuple<const char*, std::uint32_t, std::uint32_t, std::uint16_t> cases[] = {
        {"192.0.2.7:8080", Ip(192, 0, 2, 7), 1, 8080},
        {"255.255.255.255", INADDR_NONE, 1, 81},
        {"", INADDR_NONE, 0, 81}};
    LIPAddressMultiHomedWithPort found("localhost", 81); // which is forgotten by the next look-up
    EXPECT_EQ(found.hosts.addresses[0], Ip(127, 0, 0, 1));
    for (const auto& [address, ip, count, port] : cases) {
        found.Resolve(address, 81);
        EXPECT_EQ(found.hosts.count, count) << address;
        const sockaddr_in first = found.GetHost(0).GetSocketAddress();
        EXPECT_EQ(first.sin_addr.s_addr, ip) << address;
        EXPECT_EQ(first.sin_port, htons(port)) << address;
        EXPECT_FALSE(found.GetHost(count).IsValid()) << address;
    }
}

TEST(UpdateCheck, TheReplyIsTakenAsItComes) {
    // A version of 0 stands for a reply that is none.
    const std::tuple<const char*, double, std::string, std::string> cases[] = {
        {"address up to &", 2.15, "HTTP/1.1 200 OK\r\n\r\nversion=2.15&info=http://a/b&x=1", "http://a/b"},
        {"in another order, to the end", 3, "info=P\r\nversion=3\n", "P\r\nversion=3\n"},
        {"the first of several", 2.2, "version=2.2 version=9 info=P&info=Q", "P"},
        {"a long address", 3, "version=3&info=" + std::string(300, 'p'), std::string(259, 'p')},
        {"no version", 0, "info=P&Version=3", ""},
        {"no address", 0, "version=3&inf=P", ""},
        {"nothing", 0, "", ""},
        {"binary", 0, std::string("\0version=3&info=P\xff", 18), ""},
        {"ten megabytes", 3, "version=3&info=P&" + std::string(std::size_t{10'000'000}, 'x'), "P"},
        {"too late", 0, std::string(2040, 'x') + "version=3&info=P", ""},
        {"2047 bytes", 3, std::string(2030, 'x') + "version=3&info=PQ", "PQ"},
        {"and no more", 3, std::string(2031, 'x') + "version=3&info=PQ", "P"},
    };
    for (const auto& [name, version, reply, info] : cases) {
        LocalServer server([&server, &text = reply](int connection) {
            EXPECT_EQ(server.request,
                      "GET /versions/sonvire_mac.txt HTTP/1.0\r\nHost: " + server.GetAddress() + "\r\n\r\n");
            SendText(connection, text.substr(0, text.size() / 2)); // most likely two packets
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            SendText(connection, text.substr(text.size() / 2));
        });
        Dialog dialog;
        LProcessCheckForVersionUpdates job;
        const LProcessResult result = ProcessVersionFile(dialog, server.GetUrl().c_str(), 5000, job);
        EXPECT_EQ(result, version == 0 ? Failed : Completed) << name;
        EXPECT_EQ(job.version, version) << name;
        EXPECT_EQ(job.info, info) << name;
    }
}

TEST(UpdateCheck, WithoutAReplyThereIsAnEnd) {
    LocalPort closed, full(0);
    closed.Stop();
    Dialog patient;
    LIPSocketTCP first, second;
    const LIPAddressWithPort fullAddress(Ip(127, 0, 0, 1), full.GetPort());
    EXPECT_EQ(ProcessConnect(patient, first, fullAddress, 5000), Completed);
    EXPECT_EQ(second.Connect(fullAddress), LSocketState::Waiting);
    const LocalPort silent;
    const LocalServer brief([](int connection) { SendText(connection, "ab"); });
    // The user stops at a question, or never; then the time-out, the result and the reply.
    const std::tuple<const char*, std::string, int, int, LProcessResult, const char*> cases[] = {
        {"refused", closed.GetAddress(), 0, OneSlice, Failed, ""},
        {"not accepted", full.GetAddress(), 0, OneSlice, Failed, ""},
        {"stopped before anything", full.GetAddress(), 1, 5000, Stopped, ""},
        {"stopped during the look-up", full.GetAddress(), 2, 5000, Stopped, ""},
        {"stopped while connecting", full.GetAddress(), 3, 5000, Stopped, ""},
        {"no address", "255.255.255.255", 0, OneSlice, Failed, ""},
        {"no host", "", 0, OneSlice, Failed, ""},
        {"no reply", silent.GetAddress(), 0, 3 * OneSlice, Completed, ""},
        {"a brief reply", brief.GetAddress(), 0, 5000, Completed, "ab"},
    };
    char reply[] = "old text";
    for (const auto& [name, host, stopAt, timeoutMs, result, text] : cases) {
        Dialog user{stopAt};
        EXPECT_EQ(ProcessHTTPGet(user, (host + "/p").c_str(), reply, sizeof reply, timeoutMs), result)
            << name;
        EXPECT_STREQ(reply, text) << name;
    }
    Dialog leaving{6};
    ProcessHTTPGet(leaving, silent.GetAddress().c_str(), reply, sizeof reply, 5000);
    EXPECT_EQ(leaving.asked, 6) << "a server is not waited for once the user leaves";
}

TEST(UpdateCheck, TheNextAddressIsTriedWhereOneFails) {
    const LocalPort port, full(0);
    LIPAddressMultiHomedWithPort address;
    address.port = port.GetPort();
    address.hosts = {3, {INADDR_NONE, Ip(127, 0, 0, 2), Ip(127, 0, 0, 1)}};
    Dialog dialog, leaving{1};
    LIPSocketTCP socket, other;
    EXPECT_EQ(ProcessConnect(dialog, socket, address, 5000), Completed);
    EXPECT_TRUE(socket.IsOpen());
    address.hosts.count = 2;
    EXPECT_EQ(ProcessConnect(dialog, socket, address, 5000), Failed);
    EXPECT_FALSE(socket.IsOpen());
    char byte = 0;
    EXPECT_EQ(socket.WaitToWrite(0), LSocketState::Failed);
    EXPECT_EQ(socket.WaitToRead(0), LSocketState::Ready) << "there is nothing to wait for";
    EXPECT_EQ(socket.Send("a", 1), -1);
    EXPECT_EQ(socket.Receive(&byte, 1), 0u);
    address.port = full.GetPort();
    address.hosts = {2, {Ip(127, 0, 0, 1), Ip(127, 0, 0, 1)}};
    EXPECT_EQ(ProcessConnect(dialog, other, address.GetHost(0), 5000), Completed);
    EXPECT_EQ(ProcessConnect(leaving, socket, address, 5000), Stopped) << "and no further one";
    EXPECT_FALSE(socket.IsOpen());
}

TEST(UpdateCheck, ALookUpThatTakesItsTimeCanBeLeft) {
    std::promise<LIPAddressMultiHomedWithPort> promise;
    const auto answer = promise.get_future();
    Dialog patient, leaving{2};
    EXPECT_EQ(ProcessLookUp(patient, answer, OneSlice), Failed);
    EXPECT_EQ(patient.asked, 1) << "one slice";
    EXPECT_EQ(ProcessLookUp(leaving, answer, 5000), Stopped);
    promise.set_value({});
    EXPECT_EQ(ProcessLookUp(patient, answer, OneSlice), Completed);
}

TEST(UpdateCheck, AllIsSentOrItHasAnEnd) {
    std::string data, received;
    for (int i = 0; data.size() < 2'000'000; ++i)
        data += std::to_string(i);
    LocalPort port;
    const auto connect = [&port](LIPSocketTCP& ours) {
        Dialog dialog;
        EXPECT_EQ(ProcessConnect(dialog, ours, {Ip(127, 0, 0, 1), port.GetPort()}, 5000), Completed);
        return port.Accept();
    };
    const auto send = [&data](Dialog user, LIPSocketTCP& ours, int timeoutMs) {
        return ProcessSendString(user, ours, data.c_str(), timeoutMs);
    };
    LIPSocketTCP read, unread;
    const int reader = connect(read), idler = connect(unread);
    std::thread reading([&] { received = ReceiveAll(reader); });
    EXPECT_EQ(send({}, read, 5000), Completed);
    Dialog dialog;
    EXPECT_EQ(ProcessSendString(dialog, read, "", 5000), Completed);
    read.Close();
    reading.join();
    close(reader);
    EXPECT_TRUE(received == data);

    EXPECT_EQ(send({5}, unread, 5000), Stopped);
    int sent = 1;
    while (sent > 0) // until the system holds no more
        sent = unread.Send(data.data(), 1024);
    EXPECT_EQ(sent, 0) << "full, but not broken";
    EXPECT_EQ(send({}, unread, OneSlice), Failed);
    EXPECT_EQ(send({2}, unread, 5000), Stopped) << "while it waits";
    close(idler);
    EXPECT_EQ(send({}, unread, 5000), Failed);
    EXPECT_EQ(send({}, unread, 5000), Failed) << "and no signal";
}

TEST(UpdateCheck, OnlyAWebPageIsAnAddress) {
    EXPECT_EQ(GetWebAddress(" HTTPS://maker.example:8080/a?b=%20c#d~e\r\n"),
              "HTTPS://maker.example:8080/a?b=%20c#d~e");
    EXPECT_EQ(GetWebAddress("\thttp://a"), "http://a");
    for (const char* text :
         {"file:///etc/passwd", "javascript:alert(1)//http://a", "http://", "http:///path", "http://a b",
          "http://a\nb", "http://a\"b", "http://a\\b", "http://\xc3\xa4", " \n"})
        EXPECT_EQ(GetWebAddress(text), "") << text;
}

} // namespace
