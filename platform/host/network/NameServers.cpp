#include "NameServers.h"

#include "NetworkFacts.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <sstream>
#include <string_view>
#include <system_error>
#include <vector>

namespace KLX::Host {
namespace {

constexpr const char* resolverFile = "/etc/resolv.conf";
constexpr const char* upstreamFile = "/run/systemd/resolve/resolv.conf";
constexpr std::array<std::string_view, 2> relayAddresses{"127.0.0.53", "127.0.0.54"};

/** Far above any that is in use; keeps a file that grew by mistake from filling the memory. */
constexpr std::size_t longestFile = std::size_t{64} * 1024;

struct CloseFile {
    int descriptor;
    ~CloseFile() { ::close(descriptor); }
};

std::string messageOf(int systemError) {
    return std::error_code(systemError, std::generic_category()).message();
}

/** The content of a file, or nothing and the reason. */
std::optional<std::string> contentOf(const char* path, std::string& reason) {
    // Not waiting for a writer that never comes, should the name be a pipe's.
    const int descriptor = ::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0) {
        reason = messageOf(errno);
        return std::nullopt;
    }
    const CloseFile closed{descriptor};
    struct stat status {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        reason = "it is not a regular file";
        return std::nullopt;
    }
    std::string content(longestFile, '\0');
    std::size_t length = 0;
    ssize_t count = 1;
    while (count > 0 && length < content.size()) {
        count = ::read(descriptor, content.data() + length, content.size() - length);
        length += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    content.resize(length);
    if (count < 0) {
        reason = messageOf(errno);
        return std::nullopt;
    }
    return content;
}

struct NameServer {
    Family family;
    std::string text;
};

std::optional<Family> familyOf(const std::string& address) {
    std::array<unsigned char, sizeof(in6_addr)> bytes{};
    if (::inet_pton(AF_INET, address.c_str(), bytes.data()) == 1) {
        return Family::Ipv4;
    }
    const std::string withoutZone = address.substr(0, address.find('%'));
    if (::inet_pton(AF_INET6, withoutZone.c_str(), bytes.data()) == 1) {
        return Family::Ipv6;
    }
    return std::nullopt;
}

/** The servers in a file's order, read as the C library does: the keyword begins the line. */
std::vector<NameServer> serversIn(const std::string& content) {
    constexpr std::string_view keyword = "nameserver";
    std::vector<NameServer> servers;
    std::istringstream lines(content);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string first;
        std::string address;
        if (line.rfind(keyword, 0) != 0 || !(words >> first >> address) || first != keyword) {
            continue;
        }
        if (const auto family = familyOf(address)) {
            servers.push_back({*family, address});
        }
    }
    return servers;
}

bool isRelay(const NameServer& server) {
    return std::find(relayAddresses.begin(), relayAddresses.end(), server.text) !=
           relayAddresses.end();
}

std::vector<NameServer> nameServers() {
    std::string reason;
    const auto content = contentOf(resolverFile, reason);
    if (!content) {
        throw NetworkFault(NetworkError::NameServersUnreadable,
                           std::string("cannot read ") + resolverFile + ": " + reason +
                               "; without it this machine finds no host by name");
    }
    std::vector<NameServer> servers = serversIn(*content);
    if (!servers.empty() && std::all_of(servers.begin(), servers.end(), isRelay)) {
        if (const auto upstream = contentOf(upstreamFile, reason)) {
            servers = serversIn(*upstream);
        }
    }
    return servers;
}

} // namespace

NetworkError nameServer(int order, std::string& text) {
    if (order < 1) {
        return NetworkError::InvalidNumber;
    }
    const std::vector<NameServer> servers = nameServers();
    int passed = 0;
    for (const NameServer& server : servers) {
        if (server.family == Family::Ipv4 && ++passed == order) {
            text = server.text;
            return NetworkError::None;
        }
    }
    return passed == 0 && !servers.empty() ? NetworkError::Ipv6Only : NetworkError::NoNameServer;
}

} // namespace KLX::Host
