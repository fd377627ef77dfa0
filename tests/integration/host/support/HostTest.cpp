#include "HostTest.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

namespace KLX::Host {
namespace {

constexpr int failedCheck = 100;

/** How many checks of the running test have failed; a fork takes the number along. */
int failedChecks() {
    const auto* const result = ::testing::UnitTest::GetInstance()->current_test_info()->result();
    int failed = 0;
    for (int i = 0; i < result->total_part_count(); ++i) {
        failed += result->GetTestPartResult(i).failed() ? 1 : 0;
    }
    return failed;
}

[[noreturn]] void runAndExit(const std::function<int()>& body) {
    const int failedBefore = failedChecks();
    int status = failedCheck;
    try {
        status = body();
    } catch (const std::exception& exception) {
        std::cerr << "exception in a child: " << exception.what() << std::endl;
    }
    std::cout.flush();
    ::_exit(failedChecks() > failedBefore ? failedCheck : status);
}

} // namespace

TemporaryFolder::TemporaryFolder() : TemporaryFolder(::testing::TempDir()) {}

TemporaryFolder::TemporaryFolder(const std::string& parent) : m_path(parent + "klx-XXXXXX") {
    if (::mkdtemp(m_path.data()) == nullptr) {
        throw std::runtime_error("cannot make " + m_path);
    }
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryFolder::path(const std::string& inside) const {
    return inside.empty() ? m_path : m_path + '/' + inside;
}

HostTest::HostTest() : HostTest(::testing::TempDir()) {}

HostTest::HostTest(const std::string& parent) : m_folder(parent) {
    ::mkdir(runtimeFolder().c_str(), S_IRWXU);
    ::setenv("KLX_STATE_DIR", stateFolder().c_str(), 1);
    ::setenv("XDG_RUNTIME_DIR", runtimeFolder().c_str(), 1);
    for (const char* name : {"KLX_PROFILE", "KLX_LOG", "KLX_HOST_MAP_SIZE", "JOURNAL_STREAM"}) {
        ::unsetenv(name);
    }
}

ChildProcess::ChildProcess(const std::function<int()>& body) : m_id(::fork()) {
    if (m_id == 0) {
        runAndExit(body);
    }
}

ChildProcess::~ChildProcess() {
    if (m_id > 0) {
        kill(SIGKILL);
        wait();
    }
}

int ChildProcess::wait() {
    int status = 0;
    if (m_id <= 0 || ::waitpid(m_id, &status, 0) != m_id) {
        return failedCheck;
    }
    m_id = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

void ChildProcess::kill(int signal) const {
    ::kill(m_id, signal);
}

int inOwnProcess(const std::function<int()>& body) {
    return ChildProcess(body).wait();
}

std::string standardErrorOf(const std::function<void()>& body) {
    ::testing::internal::CaptureStderr();
    body();
    return ::testing::internal::GetCapturedStderr();
}

long linesIn(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

void writeFile(const std::string& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
}

long countFiles(const std::string& folder, const std::string& prefix) {
    const std::filesystem::directory_iterator files(folder);
    return std::count_if(begin(files), end(files), [&](const auto& entry) {
        return entry.path().filename().string().rfind(prefix, 0) == 0;
    });
}

} // namespace KLX::Host
