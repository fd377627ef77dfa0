#include <gtest/gtest.h>

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

/**
 * Runs each test in a process of its own. The platform keeps one store, one set profile and one
 * log threshold for a process, and each test brings its own.
 */
namespace {

const char* const aloneVariable = "KLX_TEST_ALONE";

std::string ownProgram() {
    std::string path(4096, '\0');
    const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    return path;
}

struct PipeCloser {
    void operator()(FILE* pipe) const { ::pclose(pipe); }
};

// The list has suites in lines of their own, with a dot at the end, and their tests indented.
std::vector<std::string> selectedTests() {
    const std::string command =
        "'" + ownProgram() + "' --gtest_list_tests '--gtest_filter=" + GTEST_FLAG_GET(filter) + "'";
    const std::unique_ptr<FILE, PipeCloser> pipe(::popen(command.c_str(), "r"));
    std::vector<std::string> names;
    std::string suite;
    char line[1024];
    while (pipe && std::fgets(line, sizeof line, pipe.get()) != nullptr) {
        const std::string text(line);
        const std::string word = text.substr(0, text.find_first_of("#\n"));
        const std::size_t begin = word.find_first_not_of(' ');
        const std::size_t end = word.find_last_not_of(' ');
        if (begin == 0 && word[end] == '.') {
            suite = word.substr(0, end + 1);
        } else if (begin != std::string::npos && begin > 0) {
            names.push_back(suite + word.substr(begin, end - begin + 1));
        }
    }
    return names;
}

/** Copies what a test wrote, from the start of its file on. */
void show(int output) {
    ::lseek(output, 0, SEEK_SET);
    char buffer[4096];
    for (ssize_t size = 0; (size = ::read(output, buffer, sizeof buffer)) > 0;) {
        std::cout.write(buffer, size);
    }
}

bool passesAlone(const std::string& test) {
    const std::string program = ownProgram();
    const std::string filter = "--gtest_filter=" + test;
    const int output = ::memfd_create("output", MFD_CLOEXEC);
    const pid_t child = ::fork();
    if (child == 0) {
        ::dup2(output, STDOUT_FILENO);
        ::dup2(output, STDERR_FILENO);
        ::execl(program.c_str(), program.c_str(), filter.c_str(), nullptr);
        ::_exit(127);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    const bool passed = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    if (!passed) {
        show(output);
    }
    ::close(output);
    std::cout << (passed ? "[       OK ] " : "[  FAILED  ] ") << test << std::endl;
    return passed;
}

int runEachAlone() {
    ::setenv(aloneVariable, "1", 1);
    const std::vector<std::string> tests = selectedTests();
    int failed = 0;
    for (const std::string& test : tests) {
        failed += passesAlone(test) ? 0 : 1;
    }
    std::cout << tests.size() << " tests, " << failed << " failed" << std::endl;
    return failed == 0 && !tests.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    const bool isAlone = std::getenv(aloneVariable) != nullptr;
    return isAlone || GTEST_FLAG_GET(list_tests) ? RUN_ALL_TESTS() : runEachAlone();
}
