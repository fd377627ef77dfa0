#include "PulseServer.h"

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

namespace KLX::Host {
namespace {

std::string outputOf(const std::string& command) {
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(::popen(command.c_str(), "r"), &::pclose);
    std::string output;
    char buffer[256];
    while (pipe && std::fgets(buffer, sizeof buffer, pipe.get()) != nullptr) {
        output += buffer;
    }
    return output;
}

int runServer(const std::string& folder, const std::string& socket) {
    setenv("HOME", folder.c_str(), 1);
    setenv("XDG_RUNTIME_DIR", folder.c_str(), 1);
    // A server started by root looks for a bus and other servers unless it is told not to.
    const std::string protocol = "--load=module-native-protocol-unix auth-anonymous=1 socket=";
    execlp("pulseaudio", "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no",
           "--disallow-exit=no", "--exit-idle-time=-1", "--log-level=error",
           (protocol + socket).c_str(), "--load=module-null-sink", nullptr);
    return 127;
}

} // namespace

PulseServer::PulseServer(const std::string& folder) : m_socket(folder + "/native") {
    ::mkdir(folder.c_str(), 0700);
    m_process = std::make_unique<ChildProcess>(
        [folder, socket = m_socket] { return runServer(folder, socket); });
    for (int tries = 0; tries < 200; ++tries) {
        if (outputOf("pactl --server=" + address() + " info 2>/dev/null") != "") {
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    ADD_FAILURE() << "no sound server could be started; the tests need Debian's pulseaudio";
}

bool PulseServer::isDefaultSinkMuted() const {
    return outputOf("LC_ALL=C pactl --server=" + address() + " get-sink-mute @DEFAULT_SINK@") ==
           "Mute: yes\n";
}

} // namespace KLX::Host
