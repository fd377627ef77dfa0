#include "ToolRun.h"

#include <fcntl.h>
#include <linux/capability.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace {

struct Pipe {
    Pipe() {
        if (pipe2(ends.data(), O_CLOEXEC) != 0) {
            throw std::runtime_error("no pipe");
        }
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;
    ~Pipe() {
        closeReading();
        closeWriting();
    }

    int reading() const { return ends[0]; }
    int writing() const { return ends[1]; }
    void closeReading() { closeEnd(ends[0]); }
    void closeWriting() { closeEnd(ends[1]); }

private:
    static void closeEnd(int& end) {
        if (end >= 0) {
            close(end);
            end = -1;
        }
    }

    std::array<int, 2> ends = {-1, -1};
};

std::vector<char*> pointersTo(const std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (const std::string& text : texts) {
        pointers.push_back(const_cast<char*>(text.c_str()));
    }
    pointers.push_back(nullptr);
    return pointers;
}

/// Appends what is there. Returns false at the end of the stream.
bool readMore(int descriptor, std::string& text) {
    std::array<char, 4096> buffer;
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count > 0) {
        text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return count > 0;
}

void readBoth(const Pipe& output, const Pipe& messages, Outcome& outcome) {
    std::array<pollfd, 2> watched = {pollfd{output.reading(), POLLIN, 0},
                                     pollfd{messages.reading(), POLLIN, 0}};
    const std::array<std::string*, 2> texts = {&outcome.output, &outcome.messages};
    while (watched[0].fd >= 0 || watched[1].fd >= 0) {
        poll(watched.data(), watched.size(), -1);
        for (std::size_t index = 0; index < watched.size(); ++index) {
            if (watched[index].revents != 0 && !readMore(watched[index].fd, *texts[index])) {
                watched[index].fd = -1;
            }
        }
    }
}

void waitFor(pid_t process, Outcome& outcome) {
    int state = 0;
    waitpid(process, &state, 0);
    if (WIFEXITED(state)) {
        outcome.status = WEXITSTATUS(state);
    } else {
        outcome.signal = WTERMSIG(state);
    }
}

std::vector<std::string> toolCommand(const std::vector<std::string>& arguments) {
    std::vector<std::string> command = {KLXCTL_TOOL};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

} // namespace

ToolRun& ToolRun::environment(const std::string& name, const std::string& value) {
    m_environment[name] = value;
    return *this;
}

ToolRun& ToolRun::outputTo(const std::string& path) {
    m_outputPath = path;
    return *this;
}

ToolRun& ToolRun::outputClosed() {
    m_outputClosed = true;
    return *this;
}

ToolRun& ToolRun::streamsClosed() {
    m_streamsClosed = true;
    return *this;
}

ToolRun& ToolRun::outputUnread() {
    m_outputUnread = true;
    return *this;
}

ToolRun& ToolRun::messagesUnread() {
    m_messagesUnread = true;
    return *this;
}

ToolRun& ToolRun::underFilePermissions() {
    m_underFilePermissions = true;
    return *this;
}

ToolRun& ToolRun::umask(unsigned mask) {
    m_umask = static_cast<int>(mask);
    return *this;
}

Outcome ToolRun::run(const std::vector<std::string>& arguments) const {
    return runProgram(toolCommand(arguments));
}

Outcome ToolRun::runProgram(const std::vector<std::string>& command) const {
    Pipe output;
    Pipe messages;
    if (m_outputUnread) {
        output.closeReading();
    }
    if (m_messagesUnread) {
        messages.closeReading();
    }
    const pid_t process = fork();
    if (process == 0) {
        dup2(output.writing(), STDOUT_FILENO);
        dup2(messages.writing(), STDERR_FILENO);
        becomeProgram(command);
    }
    output.closeWriting();
    messages.closeWriting();
    Outcome outcome;
    readBoth(output, messages, outcome);
    waitFor(process, outcome);
    return outcome;
}

int ToolRun::start(const std::vector<std::string>& arguments) const {
    const pid_t process = fork();
    if (process == 0) {
        const int nowhere = open("/dev/null", O_RDWR);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        becomeProgram(toolCommand(arguments));
    }
    return process;
}

void ToolRun::becomeProgram(const std::vector<std::string>& command) const {
    prepareStreams();
    for (const auto& [name, value] : m_environment) {
        setenv(name.c_str(), value.c_str(), 1);
    }
    if (m_underFilePermissions) {
        prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE, 0, 0, 0);
        prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH, 0, 0, 0);
    }
    if (m_umask >= 0) {
        ::umask(static_cast<mode_t>(m_umask));
    }
    signal(SIGPIPE, SIG_DFL);
    execvp(command.front().c_str(), pointersTo(command).data());
    _exit(127);
}

void ToolRun::prepareStreams() const {
    if (!m_outputPath.empty()) {
        dup2(open(m_outputPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600),
             STDOUT_FILENO);
    }
    if (m_outputClosed || m_streamsClosed) {
        close(STDOUT_FILENO);
    }
    if (m_streamsClosed) {
        close(STDIN_FILENO);
        close(STDERR_FILENO);
    }
}
