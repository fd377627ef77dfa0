#include "Program.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace KLX::Host {

Program::Program(const std::string& file, const std::vector<std::string>& arguments) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    std::vector<char*> raw{const_cast<char*>(file.c_str())};
    for (const std::string& argument : arguments) {
        raw.push_back(const_cast<char*>(argument.c_str()));
    }
    raw.push_back(nullptr);
    m_id = ::fork();
    if (m_id == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::execv(file.c_str(), raw.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    m_output = ends[0];
    ::fcntl(m_output, F_SETFL, O_NONBLOCK);
}

Program::~Program() {
    kill();
    ::close(m_output);
}

bool Program::waitForOutput() {
    pollfd wanted{m_output, POLLIN, 0};
    constexpr int milliseconds = 30000;
    return ::poll(&wanted, 1, milliseconds) == 1 && (wanted.revents & POLLIN) != 0;
}

void Program::kill() {
    if (m_id > 0) {
        ::kill(m_id, SIGKILL);
        ::waitpid(m_id, nullptr, 0);
        m_id = -1;
    }
}

std::string Program::takeOutput() {
    std::string output;
    char buffer[4096];
    for (ssize_t size = 0; (size = ::read(m_output, buffer, sizeof buffer)) > 0;) {
        output.append(buffer, static_cast<std::size_t>(size));
    }
    return output;
}

} // namespace KLX::Host
