#include "LoadingWatch.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace {

int checked(int result, const char* what) {
    if (result < 0) {
        throw std::system_error(errno, std::generic_category(), what);
    }
    return result;
}

} // namespace

FileWatch::FileWatch(const std::string& path)
    : m_queue(checked(inotify_init1(IN_NONBLOCK | IN_CLOEXEC), "inotify_init1")) {
    checked(inotify_add_watch(m_queue, path.c_str(), IN_OPEN | IN_ACCESS), "inotify_add_watch");
}

FileWatch::~FileWatch() {
    close(m_queue);
}

bool FileWatch::sawOpening() const {
    char events[4096];
    return read(m_queue, events, sizeof events) > 0;
}

LoopbackPort::LoopbackPort()
    : m_socket(checked(socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0), "socket")) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    checked(bind(m_socket, general, size), "bind");
    checked(listen(m_socket, 8), "listen");
    checked(getsockname(m_socket, general, &size), "getsockname");
    m_number = ntohs(address.sin_port);
    m_listener = std::thread([this] {
        while (!m_ends) {
            pollfd wanted{m_socket, POLLIN, 0};
            poll(&wanted, 1, 10);
            sendAway();
        }
    });
}

LoopbackPort::~LoopbackPort() {
    sawConnection();
    close(m_socket);
}

bool LoopbackPort::sawConnection() {
    m_ends = true;
    if (m_listener.joinable()) {
        m_listener.join();
    }
    sendAway();
    return m_seen;
}

void LoopbackPort::sendAway() {
    const int connection = accept4(m_socket, nullptr, nullptr, SOCK_CLOEXEC);
    if (connection >= 0) {
        m_seen = true;
        close(connection);
    }
}
