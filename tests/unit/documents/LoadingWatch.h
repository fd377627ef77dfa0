#pragma once

#include <atomic>
#include <string>
#include <thread>

/** Tells whether anybody opens a file, by the kernel's own notification. */
class FileWatch {
public:
    explicit FileWatch(const std::string& path);
    ~FileWatch();
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    bool sawOpening() const;

private:
    int m_queue;
};

/**
 * Listens on a port of this machine and tells whether anybody connects. Whoever does is sent away
 * at once.
 */
class LoopbackPort {
public:
    LoopbackPort();
    ~LoopbackPort();
    LoopbackPort(const LoopbackPort&) = delete;
    LoopbackPort& operator=(const LoopbackPort&) = delete;

    int number() const { return m_number; }

    /** @return whether anybody has connected so far; ends the listening */
    bool sawConnection();

private:
    void sendAway();

    int m_socket;
    int m_number = 0;
    std::atomic<bool> m_seen{false};
    std::atomic<bool> m_ends{false};
    std::thread m_listener;
};
