#pragma once

#include "HostTest.h"

#include <memory>
#include <string>

namespace KLX::Host {

/**
 * A sound server of the test's own, with one null sink and its socket in a folder of its own. It
 * needs neither a session nor sound hardware and runs as root, too. Ended with the object.
 */
class PulseServer {
public:
    /** Starts the server and waits until it answers; fails the test when it does not. */
    explicit PulseServer(const std::string& folder);

    /** What $PULSE_SERVER has to be for its clients. */
    std::string address() const { return "unix:" + m_socket; }

    /** Whether the server itself says that its default sink is mute. */
    bool isDefaultSinkMuted() const;

    void end() { m_process.reset(); }

private:
    std::string m_socket;
    std::unique_ptr<ChildProcess> m_process;
};

} // namespace KLX::Host
