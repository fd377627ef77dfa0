#include "HostTest.h"

#include "dlog.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace KLX::Host {
namespace {

using ::testing::HasSubstr;

int print(int priority, const char* text) {
    return __dlog_print(DLOG_ID_MAIN, priority, "KLX", "%s", text);
}

void printAll() {
    print(DLOG_DEBUG, "d");
    print(DLOG_INFO, "i");
    print(DLOG_WARNING, "w");
    print(DLOG_ERROR, "e");
}

class Log : public HostTest {};

TEST_F(Log, ShowsWarningsAndErrorsUnlessToldOtherwise) {
    EXPECT_EQ(standardErrorOf(printAll), "warning KLX: w\nerror KLX: e\n");
}

TEST_F(Log, ShowsEverythingFromDebugOn) {
    ::setenv("KLX_LOG", "debug", 1);
    EXPECT_EQ(standardErrorOf(printAll),
              "debug KLX: d\ninfo KLX: i\nwarning KLX: w\nerror KLX: e\n");
}

TEST_F(Log, ShowsInformationFromInfoOn) {
    ::setenv("KLX_LOG", "info", 1);
    EXPECT_EQ(standardErrorOf(printAll), "info KLX: i\nwarning KLX: w\nerror KLX: e\n");
}

TEST_F(Log, ShowsOnlyErrorsAtError) {
    ::setenv("KLX_LOG", "error", 1);
    EXPECT_EQ(standardErrorOf(printAll), "error KLX: e\n");
}

TEST_F(Log, ShowsNothingWhenItIsOff) {
    ::setenv("KLX_LOG", "off", 1);
    EXPECT_EQ(standardErrorOf(printAll), "");
}

TEST_F(Log, ReportsAnUnknownPriorityOnceAndShowsWarnings) {
    ::setenv("KLX_LOG", "loud", 1);
    const std::string lines = standardErrorOf([] {
        printAll();
        printAll();
    });
    EXPECT_THAT(lines, HasSubstr("KLX_LOG is \"loud\", but must be debug, info, warning, error or "
                                 "off; using warning\n"));
    EXPECT_EQ(linesIn(lines), 5) << lines;
}

TEST_F(Log, FillsTheFormat) {
    EXPECT_EQ(standardErrorOf([] {
                  __dlog_print(DLOG_ID_MAIN, DLOG_ERROR, "KLX", "%s: %s(%d) > %c", "a.cpp", "f", 12,
                               'x');
              }),
              "error KLX: a.cpp: f(12) > x\n");
}

TEST_F(Log, WritesALongTextWhole) {
    const std::string text(100000, 'x');
    EXPECT_EQ(standardErrorOf([&] { print(DLOG_ERROR, text.c_str()); }),
              "error KLX: " + text + '\n');
}

TEST_F(Log, LeavesErrnoAlone) {
    standardErrorOf([] {
        errno = EBUSY;
        printAll();
        EXPECT_EQ(errno, EBUSY);
    });
}

TEST_F(Log, AnswersAnErrorNumberWhenNothingCanBeWritten) {
    EXPECT_EQ(inOwnProcess([] {
                  ::close(STDERR_FILENO);
                  return print(DLOG_ERROR, "x") == numberOf(HostError::SystemFailure) ? 0 : 1;
              }),
              0);
    EXPECT_EQ(__dlog_print(DLOG_ID_MAIN, DLOG_ERROR, "KLX", nullptr),
              numberOf(HostError::NullPointer));
}

// A pipe in packet mode keeps the bounds of each write.
TEST_F(Log, WritesEachLineAtOnceFromSeveralThreads) {
    constexpr int threadCount = 8;
    constexpr int lineCount = 25; // each takes a page of the pipe
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_DIRECT), 0);
    ASSERT_GE(::fcntl(ends[1], F_SETPIPE_SZ, 1 << 20), threadCount * lineCount * 4096)
        << "the pipe cannot hold what nobody reads before the threads have ended";
    const int original = ::dup(STDERR_FILENO);
    ::dup2(ends[1], STDERR_FILENO);
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([i] {
            for (int j = 0; j < lineCount; ++j) {
                __dlog_print(DLOG_ID_MAIN, DLOG_ERROR, "KLX", "%d.%d", i, j);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    ::dup2(original, STDERR_FILENO);
    ::close(original);
    ::close(ends[1]);
    char packet[4096];
    int packets = 0;
    for (ssize_t size = 0; (size = ::read(ends[0], packet, sizeof packet)) > 0; ++packets) {
        const std::string line(packet, static_cast<std::size_t>(size));
        EXPECT_EQ(line.rfind("error KLX: ", 0), 0U) << line;
        EXPECT_EQ(linesIn(line), 1) << line;
    }
    ::close(ends[0]);
    EXPECT_EQ(packets, threadCount * lineCount);
}

TEST_F(Log, SpeaksToTheJournalWhereStandardErrorIsConnectedToIt) {
    const std::string file = m_folder.path("journal");
    EXPECT_EQ(inOwnProcess([&] {
                  const int stream = ::open(file.c_str(), O_CREAT | O_WRONLY, S_IRUSR | S_IWUSR);
                  ::dup2(stream, STDERR_FILENO);
                  struct stat status {};
                  ::fstat(stream, &status);
                  const std::string name =
                      std::to_string(status.st_dev) + ':' + std::to_string(status.st_ino);
                  ::setenv("JOURNAL_STREAM", name.c_str(), 1);
                  return print(DLOG_ERROR, "x");
              }),
              success);
    EXPECT_EQ(contentOf(file), "<3>KLX: x\n");
}

TEST_F(Log, SpeaksPlainlyWhereStandardErrorWasRedirectedAwayFromTheJournal) {
    ::setenv("JOURNAL_STREAM", "1:1", 1);
    EXPECT_EQ(standardErrorOf([] { print(DLOG_ERROR, "x"); }), "error KLX: x\n");
}

} // namespace
} // namespace KLX::Host
