#include "net/version_check.h"
#include "net/web_address.h"
#include "support/local_server.h"

#include <gtest/gtest.h>

#include <unistd.h>
#include <utility>

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

/// A connection with both of its ends.
struct Pair {
    Pair() {
        Dialog dialog;
        EXPECT_EQ(ProcessConnect(dialog, ours, {Ip(127, 0, 0, 1), port.GetPort()}, 5000), Completed);
        theirs = port.Accept();
    }
    ~Pair() { CloseTheirs(); }
    void CloseTheirs() {
        if (theirs >= 0)
            close(std::exchange(theirs, -1));
    }

    LocalPort port;
    LIPSocketTCP ours;
    int theirs = -1;
};

TEST(UpdateCheck, AUrlIsSplitIntoHostPortAndPath) {
    struct {
        std::string url, host, path, name;
        int port;
    } const cases[] = {
        {"http://www.maker.example/versions/a.txt", "www.maker.example", "/versions/a.txt",
         "www.maker.example", 80},
        {"http://some-host:8080/p//q?a/b", "some-host:8080", "/p//q?a/b", "some-host", 8080},
        {"host:", "host:", "", "host", 0},
        {"/path", "", "/path", "", 80},
        {"a//b//c:65537:2/d", "c:65537:2", "/d", "c", 1},
        {"http://" + std::string(300, 'h') + "/p", std::string(259, 'h'), "/p", std::string(259, 'h'), 80},
    };
    for (const auto& each : cases) {
        std::string host = "old", path = "old", name = "old";
        ProcessHTTPSplitHost(each.url.c_str(), host, path);
        EXPECT_EQ(host, each.host) << each.url;
        EXPECT_EQ(path, each.path) << each.url;
        EXPECT_EQ(SplitPortFromAddr(host.c_str(), name, 80), each.port) << each.url;
        EXPECT_EQ(name, each.name) << each.url;
    }
}

TEST(UpdateCheck, HostsGoByTheirAddresses) {
    struct {
        const char* address;
        std::uint32_t first, count;
        std::uint16_t port;
    } const cases[] = {{"192.0.2.7:8080", Ip(192, 0, 2, 7), 1, 8080},
                       {"255.255.255.255", INADDR_NONE, 1, 80},
                       {"", INADDR_NONE, 0, 80}};
    for (const auto& each : cases) {
        const LIPAddressMultiHomedWithPort found(each.address, 80);
        EXPECT_EQ(found.hosts.count, each.count) << each.address;
        const sockaddr_in first = found.GetHost(0).GetSocketAddress();
        EXPECT_EQ(first.sin_addr.s_addr, each.first) << each.address;
        EXPECT_EQ(first.sin_port, htons(each.port)) << each.address;
        EXPECT_FALSE(found.GetHost(each.count).IsValid()) << each.address;
    }
    LIPAddressMultiHomed looked;
    looked.Resolve("localhost");
    EXPECT_EQ(looked.addresses[0], Ip(127, 0, 0, 1));
}

TEST(UpdateCheck, TheReplyIsTakenAsItComes) {
    const std::string header = "HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n\r\n";
    struct {
        const char* name;
        double version;
        std::string reply;
        std::string info;
        LProcessResult result = Completed;
        bool slowly = false;
    } const cases[] = {
        {"address up to &", 2.15, header + "version=2.15&info=http://a/b&x=1", "http://a/b"},
        {"in pieces", 2.15, header + "version=2.15&info=P&x=1", "P", Completed, true},
        {"in another order, to the end", 3, "info=P\r\nversion=3\n", "P\r\nversion=3\n"},
        {"the first of several", 2.2, "version=2.2 version=9 info=P&info=Q", "P"},
        {"a long address", 3, "version=3&info=" + std::string(300, 'p'), std::string(259, 'p')},
        {"no version", 0, header + "info=P&Version=3", "", Failed},
        {"no address", 0, header + "version=3&inf=P", "", Failed},
        {"nothing", 0, "", "", Failed},
        {"binary", 0, std::string("\0version=3&info=P\xff", 18), "", Failed},
        {"ten megabytes", 3, "version=3&info=P&" + std::string(std::size_t{10'000'000}, 'x'), "P"},
        {"too late", 0, std::string(2040, 'x') + "version=3&info=P", "", Failed},
        {"2047 bytes", 3, std::string(2030, 'x') + "version=3&info=PQ", "PQ"},
        {"and no more", 3, std::string(2031, 'x') + "version=3&info=PQ", "P"},
    };
    for (const auto& each : cases) {
        LocalServer server([&](int connection) {
            EXPECT_EQ(server.request,
                      "GET /versions/sonvire_mac.txt HTTP/1.0\r\nHost: " + server.GetAddress() + "\r\n\r\n");
            const std::size_t piece = each.slowly ? 1 : each.reply.size();
            for (std::size_t i = 0; i < each.reply.size(); i += piece) {
                SendText(connection, each.reply.substr(i, piece));
                if (each.slowly)
                    std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        });
        Dialog dialog;
        LProcessCheckForVersionUpdates job;
        EXPECT_EQ(ProcessVersionFile(dialog, server.GetUrl().c_str(), 5000, job), each.result) << each.name;
        EXPECT_EQ(job.version, each.version) << each.name;
        EXPECT_EQ(job.info, each.info) << each.name;
    }
}

TEST(UpdateCheck, WithoutAConnectionThereIsNoReply) {
    LocalPort closed, full(0);
    closed.Stop();
    const LIPAddressWithPort fullAddress(Ip(127, 0, 0, 1), full.GetPort());
    Dialog patient, leaving{1};
    LIPSocketTCP first, waiting, socket;
    EXPECT_EQ(ProcessConnect(patient, first, fullAddress, 5000), Completed);
    EXPECT_EQ(waiting.Connect(fullAddress), LSocketState::Waiting);
    EXPECT_EQ(ProcessConnect(leaving, socket, fullAddress, 5000), Stopped);
    EXPECT_FALSE(socket.IsOpen());
    struct {
        const char* name;
        std::string host;
        int stopAt;
        LProcessResult result;
    } const cases[] = {
        {"refused", closed.GetAddress(), 0, Failed},
        {"not accepted", full.GetAddress(), 0, Failed},
        {"stopped before anything", full.GetAddress(), 1, Stopped},
        {"stopped during the look-up", full.GetAddress(), 2, Stopped},
        {"stopped while connecting", full.GetAddress(), 3, Stopped},
        {"no address", "255.255.255.255", 0, Failed},
        {"no host", "", 0, Failed},
    };
    for (const auto& each : cases) {
        Dialog user{each.stopAt};
        char reply[10] = "old";
        EXPECT_EQ(ProcessHTTPGet(user, (each.host + "/p").c_str(), reply, sizeof reply,
                                 each.stopAt == 0 ? OneSlice : 5000),
                  each.result)
            << each.name;
        EXPECT_STREQ(reply, "") << each.name;
    }
}

TEST(UpdateCheck, TheNextAddressIsTriedWhereOneFails) {
    const LocalPort port;
    LIPAddressMultiHomedWithPort address;
    address.port = port.GetPort();
    address.hosts = {3, {INADDR_NONE, Ip(127, 0, 0, 2), Ip(127, 0, 0, 1)}};
    Dialog dialog;
    LIPSocketTCP socket;
    EXPECT_EQ(ProcessConnect(dialog, socket, address, 5000), Completed);
    EXPECT_TRUE(socket.IsOpen());
    address.hosts.count = 2;
    EXPECT_EQ(ProcessConnect(dialog, socket, address, 5000), Failed);
    EXPECT_FALSE(socket.IsOpen());
}

TEST(UpdateCheck, ALookUpThatTakesItsTimeCanBeLeft) {
    std::promise<LIPAddressMultiHomedWithPort> promise;
    const auto answer = promise.get_future();
    Dialog patient, leaving{2};
    EXPECT_EQ(ProcessLookUp(patient, answer, OneSlice), Failed);
    EXPECT_EQ(ProcessLookUp(leaving, answer, 5000), Stopped);
    promise.set_value({});
    EXPECT_EQ(ProcessLookUp(patient, answer, OneSlice), Completed);
}

TEST(UpdateCheck, AServerThatDoesNotAnswerIsLeft) {
    LocalServer server([](int connection) { ReceiveAll(connection); });
    Dialog patient, leaving{6};
    char reply[10] = "old";
    EXPECT_EQ(ProcessHTTPGet(patient, server.GetUrl().c_str(), reply, sizeof reply, 3 * OneSlice), Completed)
        << "there was a connection";
    EXPECT_STREQ(reply, "");
    ProcessHTTPGet(leaving, server.GetUrl().c_str(), reply, sizeof reply, 5000);
    EXPECT_EQ(leaving.asked, 6) << "nor waited for once the user leaves";
}

TEST(UpdateCheck, AllIsSentOrItHasAnEnd) {
    std::string data;
    for (int i = 0; data.size() < 2'000'000; ++i)
        data += std::to_string(i);
    Dialog dialog, leaving{5};
    const auto send = [&data](Dialog& user, Pair& pair, int timeoutMs) {
        return ProcessSendString(user, pair.ours, data.c_str(), timeoutMs);
    };
    {
        Pair pair;
        std::string received;
        std::thread reader([&] { received = ReceiveAll(pair.theirs); });
        EXPECT_EQ(send(dialog, pair, 5000), Completed);
        EXPECT_EQ(ProcessSendString(dialog, pair.ours, "", 5000), Completed);
        pair.ours.Close();
        reader.join();
        EXPECT_TRUE(received == data);
    }
    Pair pair; // whose other end reads nothing
    EXPECT_EQ(send(leaving, pair, 5000), Stopped);
    while (send(dialog, pair, OneSlice) == Completed) {
    } // until the system holds no more
    pair.CloseTheirs();
    EXPECT_EQ(send(dialog, pair, 5000), Failed) << "and no signal";
}

TEST(UpdateCheck, OnlyAWebPageIsAnAddress) {
    struct {
        const char* text;
        const char* address;
    } const cases[] = {
        {" HTTPS://maker.example:8080/a?b=%20c#d~e\r\n", "HTTPS://maker.example:8080/a?b=%20c#d~e"},
        {"file:///etc/passwd", ""},
        {"javascript:alert(1)//http://a", ""},
        {"http://", ""},
        {"http:///path", ""},
        {"http://a b", ""},
        {"http://a\nb", ""},
        {"http://a\"b", ""},
        {"http://a\\b", ""},
        {"http://\xc3\xa4", ""},
        {" \n", ""},
    };
    for (const auto& each : cases)
        EXPECT_EQ(GetWebAddress(each.text), each.address) << each.text;
}

} // namespace
