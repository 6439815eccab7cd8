#include <gtest/gtest.h>

#include "PortFixtures.h"
#include "Sockets.h"
#include "platform/SystemClock.h"
#include "receiver/network/NetworkSource.h"

namespace korvel { namespace {

using Kind = SourceAddress::Kind;

TEST(SourceAddress, IsReadFromItsText) {
    struct Case {
        const char* text;
        std::optional<SourceAddress> address;
    };
    const Case cases[] = {{"tcp://192.168.10.1:2000", {{Kind::Tcp, "192.168.10.1", 2000}}},
        {" TCP://flarm.local:2000 ", {{Kind::Tcp, "flarm.local", 2000}}},
        {"tcp://[fe80::1%eth0]:2000", {{Kind::Tcp, "fe80::1%eth0", 2000}}}, {"udp://:10110", {{Kind::Udp, "", 10110}}},
        {"udp://127.0.0.1:10110", {{Kind::Udp, "127.0.0.1", 10110}}},
        {"gpsd://localhost", {{Kind::Gpsd, "localhost", 2947}}}, {"gpsd://pi:3000", {{Kind::Gpsd, "pi", 3000}}},
        {"gdl90://:4000", {{Kind::Gdl90, "", 4000}}}, {"gdl90://", {{Kind::Gdl90, "", 4000}}}, {"", {}},
        {"COM1:,9600,N,8,1", {}}, {"tcp://host", {}}, {"tcp://:2000", {}}, {"tcp://host:0", {}},
        {"tcp://host:65536", {}}, {"tcp://host:20x", {}}, {"tcp://[::1:2000", {}}, {"tcp://a b:1", {}}, {"gpsd://", {}},
        {"http://host:80", {}}, {"udp://10110", {}}};
    for (const Case& c : cases) {
        const auto address = SourceAddress::parse(c.text);
        EXPECT_EQ(address, c.address) << c.text;
        if (address) { EXPECT_EQ(SourceAddress::parse(address->label()), address) << c.text; }
    }
}

/// Notes what arrives.
struct Heard final : SentenceListener {
    Watched<std::vector<std::string>> lines;
    void onLine(std::string_view line, std::int64_t /*arrivedMs*/) override {
        lines.change([&](auto& all) { all.emplace_back(line); });
    }
    bool waitFor(const std::vector<std::string>& expected) {
        return lines.waitUntil([&](const auto& all) { return all == expected; });
    }
};

/// The far end on this machine's own network.
class Peer {
 public:
    explicit Peer(int type) {
        startSockets();
        own_ = ::socket(AF_INET, type, 0);
        const sockaddr_in at = local(0);
        EXPECT_EQ(::bind(own_, reinterpret_cast<const sockaddr*>(&at), sizeof at), 0);
        if (type == SOCK_STREAM) ::listen(own_, 4);
    }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;
    ~Peer() {
        hangUp();
        closeSocket(own_);
    }
    std::uint16_t port() const {
        sockaddr_in at{};
        socklen_t size = sizeof at;
        ::getsockname(own_, reinterpret_cast<sockaddr*>(&at), &size);
        return ntohs(at.sin_port);
    }
    void accept() { connection_ = ::accept(own_, nullptr, nullptr); }
    void say(std::string_view bytes) const {
        EXPECT_EQ(::send(connection_, bytes.data(), SocketCount(bytes.size()), kNoPipeSignal),
            static_cast<std::ptrdiff_t>(bytes.size()));
    }
    std::string hear() const {
        char bytes[256];
        const auto count = ::recv(connection_, bytes, sizeof bytes, 0);
        return {bytes, bytes + std::max<std::ptrdiff_t>(count, 0)};
    }
    void hangUp() {
        if (connection_ != kNoSocket) closeSocket(connection_);
        connection_ = kNoSocket;
    }
    void sendTo(std::uint16_t port, std::string_view datagram) const {
        const sockaddr_in to = local(port);
        ::sendto(
            own_, datagram.data(), SocketCount(datagram.size()), 0, reinterpret_cast<const sockaddr*>(&to), sizeof to);
    }

 private:
    static sockaddr_in local(std::uint16_t port) {
        sockaddr_in at{};
        at.sin_family = AF_INET;
        at.sin_port = htons(port);
        at.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        return at;
    }
    SocketNumber own_ = kNoSocket;
    SocketNumber connection_ = kNoSocket;
};

template <class Condition>
bool eventually(Condition holds) {
    const auto end = std::chrono::steady_clock::now() + kDeadline;
    while (!holds()) {
        if (std::chrono::steady_clock::now() > end) return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

TEST(NetworkSource, HearsAConnectionAndFailsWhenItCloses) {
    Peer peer(SOCK_STREAM);
    SystemClock clock;
    Heard heard;
    NetworkSource source({Kind::Tcp, "127.0.0.1", peer.port()}, clock);
    ASSERT_EQ(source.start(heard), "");
    peer.accept();
    peer.say("$A\r\n$B\n$C");
    EXPECT_TRUE(heard.waitFor({"$A", "$B"})) << "either line end";
    EXPECT_TRUE(source.isReceiving());
    EXPECT_EQ(source.stateText(), "");
    peer.hangUp();
    EXPECT_TRUE(eventually([&] { return source.hasFailed(); }));
    source.stop();
    ASSERT_EQ(source.start(heard), "") << "as the monitor does";
    peer.accept();
    peer.say("X\r\n$D\r\n");
    EXPECT_TRUE(heard.waitFor({"$A", "$B", "X", "$D"})) << "half a line never joins the next connection";
}

TEST(NetworkSource, TriesAgainUntilSomebodyListens) {
    SystemClock clock;
    Heard heard;
    std::uint16_t port = 0;
    { port = Peer(SOCK_STREAM).port(); }
    NetworkSource source({Kind::Tcp, "127.0.0.1", port}, clock);
    ASSERT_EQ(source.start(heard), "") << "nothing waits for the connection";
    EXPECT_TRUE(eventually([&] { return source.stateText() == "No connection"; }));
    EXPECT_FALSE(source.hasFailed());
    NetworkSource nowhere({Kind::Tcp, "no-such-host.invalid", 1}, clock);
    ASSERT_EQ(nowhere.start(heard), "");
    const auto before = std::chrono::steady_clock::now();
    nowhere.stop();
    source.stop();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(5))
        << "the window does not wait for a name server";
}

TEST(NetworkSource, CutsDatagramsIntoLines) {
    SystemClock clock;
    Heard heard;
    NetworkSource source({Kind::Udp, "127.0.0.1", 0}, clock);
    ASSERT_EQ(source.start(heard), "");
    ASSERT_TRUE(eventually([&] { return source.progress().localPort != 0; }));
    const Peer peer(SOCK_DGRAM);
    const std::uint16_t port = source.progress().localPort;
    for (const char* datagram : {"$A", "$B\r\n$C\r\n", "$D\n", "", "$E\r"}) peer.sendTo(port, datagram);
    EXPECT_TRUE(heard.waitFor({"$A", "$B", "$C", "$D", "$E"}));
    EXPECT_GT(source.bytesReceived(), 10U);
}

TEST(NetworkSource, AsksGpsdForSentences) {
    Peer peer(SOCK_STREAM);
    SystemClock clock;
    Heard heard;
    NetworkSource source({Kind::Gpsd, "127.0.0.1", peer.port()}, clock);
    ASSERT_EQ(source.start(heard), "");
    peer.accept();
    peer.say("{\"class\":\"VERSION\"}\r\n");
    EXPECT_EQ(peer.hear(), "?WATCH={\"enable\":true,\"nmea\":true};\r\n");
    peer.say(R"({"class":")" + std::string(3000, 'x') + "\"}\r\n$GPRMC\r\n");
    EXPECT_TRUE(heard.lines.waitUntil([](const auto& lines) { return !lines.empty() && lines.back() == "$GPRMC"; }));
}

TEST(NetworkSource, AFloodOfDatagramsIsNoTrouble) {
    SystemClock clock;
    Heard heard;
    NetworkSource source({Kind::Udp, "127.0.0.1", 0}, clock);
    ASSERT_EQ(source.start(heard), "");
    ASSERT_TRUE(eventually([&] { return source.progress().localPort != 0; }));
    const Peer peer(SOCK_DGRAM);
    const std::string junk(1400, 'x');
    for (int i = 0; i < 2000; ++i) peer.sendTo(source.progress().localPort, junk);
    peer.sendTo(source.progress().localPort, "$A\r\n");
    EXPECT_TRUE(eventually([&] {
        peer.sendTo(source.progress().localPort, "$A\r\n");
        return !heard.lines.get().empty();
    }));
    source.stop();
}

}}  // namespace korvel
