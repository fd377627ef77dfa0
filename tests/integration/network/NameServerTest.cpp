#include "Confined.h"
#include "NetworkTest.h"

#include <sys/stat.h>

#include <filesystem>

namespace klx::network {
namespace {

class NameServers : public NetworkTest {
protected:
    void SetUp() override {
        NetworkTest::SetUp();
        if (!IsSkipped() && !HasFatalFailure()) {
            addWayOut("eth0");
            scene().cover("/etc");
            scene().cover("/run");
            m_connection = std::make_unique<Connection>();
        }
    }

    void TearDown() override {
        m_connection.reset();
        NetworkTest::TearDown();
    }

    void resolvConf(const std::string& content) { scene().write("/etc/resolv.conf", content); }
    void upstream(const std::string& content) {
        scene().write("/run/systemd/resolve/resolv.conf", content);
    }
    Answer server(int order = 1) { return nameServer(m_connection->current(), order); }

private:
    std::unique_ptr<Connection> m_connection;
};

TEST_F(NameServers, ComeInTheFilesOrder) {
    resolvConf("# made by hand\nsearch example.org\nnameserver 192.0.2.9\n"
               "nameserver\t192.0.2.3  # the other\noptions edns0\nnameserver 192.0.2.5");
    EXPECT_EQ(server(1), said("192.0.2.9"));
    EXPECT_EQ(server(2), said("192.0.2.3"));
    EXPECT_EQ(server(3), said("192.0.2.5"));
    EXPECT_EQ(server(4), failed(NetworkError::NoNameServer));
}

TEST_F(NameServers, AreCountedFromOne) {
    resolvConf("nameserver 192.0.2.9\n");
    EXPECT_EQ(server(0), failed(NetworkError::InvalidNumber));
    EXPECT_EQ(server(-1), failed(NetworkError::InvalidNumber));
}

TEST_F(NameServers, OfIpv6AreNotCounted) {
    resolvConf("nameserver 2001:db8::1\nnameserver 192.0.2.9\nnameserver fe80::1%eth0\n"
               "nameserver 192.0.2.3\n");
    EXPECT_EQ(server(1), said("192.0.2.9"));
    EXPECT_EQ(server(2), said("192.0.2.3"));
}

TEST_F(NameServers, OfIpv6AloneAreToldApartFromNone) {
    resolvConf("nameserver 2001:db8::1\nnameserver fe80::1%eth0\n");
    EXPECT_EQ(server(), failed(NetworkError::Ipv6Only));
}

TEST_F(NameServers, AreMissingWhereNoneIsNamed) {
    resolvConf("search example.org\n");
    EXPECT_EQ(server(), failed(NetworkError::NoNameServer));
}

TEST_F(NameServers, AreMissingWhereTheFileIsEmpty) {
    resolvConf("");
    EXPECT_EQ(server(), failed(NetworkError::NoNameServer));
}

TEST_F(NameServers, AreNotTakenFromLinesThatOnlyLookAlike) {
    resolvConf("#nameserver 192.0.2.1\n; nameserver 192.0.2.2\n nameserver 192.0.2.3\n"
               "nameservers 192.0.2.4\nnameserver192.0.2.5\nnameserver\nnameserver nonsense\n"
               "nameserver 192.0.2.256\nnameserver 192.0.2.7\n");
    EXPECT_EQ(server(), said("192.0.2.7"));
}

TEST_F(NameServers, AreReadAnewForEachAnswer) {
    resolvConf("nameserver 192.0.2.1\n");
    EXPECT_EQ(server(), said("192.0.2.1"));
    resolvConf("nameserver 192.0.2.2\n");
    EXPECT_EQ(server(), said("192.0.2.2"));
}

TEST_F(NameServers, CannotBeReadWhereTheFileIsMissing) {
    EXPECT_EQ(server(), failed(NetworkError::NameServersUnreadable));
}

TEST_F(NameServers, CannotBeReadOutOfAFolder) {
    std::filesystem::create_directory("/etc/resolv.conf");
    EXPECT_EQ(server(), failed(NetworkError::NameServersUnreadable));
}

TEST_F(NameServers, CannotBeReadOutOfAPipeAndNobodyWaits) {
    ASSERT_EQ(::mkfifo("/etc/resolv.conf", 0600), 0);
    EXPECT_EQ(server(), failed(NetworkError::NameServersUnreadable));
}

TEST_F(NameServers, CannotBeReadWithoutTheRight) {
    resolvConf("nameserver 192.0.2.1\n");
    std::filesystem::permissions("/etc/resolv.conf", std::filesystem::perms::none);
    Answer answer;
    withoutRightsToFiles([&] { answer = server(); });
    EXPECT_EQ(answer, failed(NetworkError::NameServersUnreadable));
}

TEST_F(NameServers, AreThoseBehindTheResolversRelay) {
    std::filesystem::create_directories("/run/systemd/resolve");
    scene().write("/run/systemd/resolve/stub-resolv.conf", "nameserver 127.0.0.53\n");
    std::filesystem::create_symlink("../run/systemd/resolve/stub-resolv.conf", "/etc/resolv.conf");
    upstream("nameserver 192.0.2.9\nnameserver 192.0.2.3\n");
    EXPECT_EQ(server(1), said("192.0.2.9"));
    EXPECT_EQ(server(2), said("192.0.2.3"));
}

TEST_F(NameServers, AreThoseOfTheResolversFileWhenItIsLinkedTo) {
    upstream("nameserver 192.0.2.9\n");
    std::filesystem::create_symlink("/run/systemd/resolve/resolv.conf", "/etc/resolv.conf");
    EXPECT_EQ(server(), said("192.0.2.9"));
}

TEST_F(NameServers, AreTheRelayItselfWhereNothingIsKnownBehindIt) {
    resolvConf("nameserver 127.0.0.53\n");
    EXPECT_EQ(server(), said("127.0.0.53"));
}

TEST_F(NameServers, AreThoseOfTheFileWhereTheRelayIsNotAlone) {
    resolvConf("nameserver 192.0.2.1\nnameserver 127.0.0.53\n");
    upstream("nameserver 192.0.2.9\n");
    EXPECT_EQ(server(1), said("192.0.2.1"));
    EXPECT_EQ(server(2), said("127.0.0.53"));
}

TEST_F(NameServers, AreFoundInAFileThatGrewByMistake) {
    resolvConf("nameserver 192.0.2.1\n" + std::string(std::size_t{1024} * 1024, '#') +
               "\nnameserver 192.0.2.2\n");
    EXPECT_EQ(server(1), said("192.0.2.1"));
    EXPECT_EQ(server(2), failed(NetworkError::NoNameServer));
}

} // namespace
} // namespace klx::network
