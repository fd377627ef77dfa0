#include "Progress.h"

#include <gmock/gmock.h>

#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>

using namespace std::chrono_literals;
using testing::EndsWith;

namespace {

constexpr auto noPatience = 0ms;
constexpr auto greatPatience = 1h;
const std::string erased = "\r\033[K";

/// A terminal that this process has for its standard error.
class OwnTerminal {
public:
    explicit OwnTerminal(unsigned short columns) {
        winsize size = {};
        size.ws_col = columns;
        int inside = -1;
        if (openpty(&m_outside, &inside, nullptr, nullptr, &size) != 0) {
            throw std::runtime_error("no terminal");
        }
        m_former = dup(STDERR_FILENO);
        dup2(inside, STDERR_FILENO);
        close(inside);
    }
    OwnTerminal(const OwnTerminal&) = delete;
    OwnTerminal& operator=(const OwnTerminal&) = delete;
    ~OwnTerminal() {
        dup2(m_former, STDERR_FILENO);
        close(m_former);
        close(m_outside);
    }

    /// All that is shown up to a text that has to come, however long that takes.
    std::string shownUntil(const std::string& text) const {
        std::string shown;
        while (shown.find(text) == std::string::npos && appendMore(shown)) {
        }
        return shown;
    }

private:
    bool appendMore(std::string& shown) const {
        constexpr int longest = 60000;
        pollfd watched = {m_outside, POLLIN, 0};
        std::array<char, 256> buffer = {};
        const ssize_t size =
            poll(&watched, 1, longest) == 1 ? read(m_outside, buffer.data(), buffer.size()) : 0;
        shown.append(buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
        return size > 0;
    }

    int m_outside = -1;
    int m_former = -1;
};

class ProgressTest : public testing::Test {
protected:
    ProgressTest() {
        const char* const former = std::getenv("TERM");
        m_formerType = former != nullptr ? former : "";
        setenv("TERM", "xterm", 1);
    }
    ~ProgressTest() override { setenv("TERM", m_formerType.c_str(), 1); }

    /// What was shown since it was last asked for.
    std::string shownSoFar() const {
        const std::string end = "(end)";
        EXPECT_EQ(write(STDERR_FILENO, end.data(), end.size()), 5);
        const std::string shown = m_terminal.shownUntil(end);
        EXPECT_THAT(shown, EndsWith(end));
        return shown.substr(0, shown.size() - end.size());
    }

    static constexpr unsigned short columns = 20;
    const OwnTerminal m_terminal{columns};

private:
    std::string m_formerType;
};

} // namespace

TEST_F(ProgressTest, LongWorkShowsWhatItIsAtAndErasesIt) {
    {
        Progress progress(noPatience);
        progress.tell("reading 1 of 2");
        EXPECT_EQ(m_terminal.shownUntil("1 of 2"), erased + "reading 1 of 2");
        progress.tell("reading 2 of 2");
        EXPECT_EQ(m_terminal.shownUntil("2 of 2"), erased + "reading 2 of 2");
    }
    EXPECT_EQ(shownSoFar(), erased);
}

TEST_F(ProgressTest, ShortWorkShowsNothing) {
    {
        Progress progress(greatPatience);
        progress.tell("reading 1 of 1");
        // Whoever had less patience would show it now.
        std::this_thread::sleep_for(300ms);
    }
    EXPECT_EQ(shownSoFar(), "");
}

TEST_F(ProgressTest, LineIsCutToWhatTheTerminalCanErase) {
    {
        Progress progress(noPatience);
        progress.tell("reading a document of a very long name");
        EXPECT_EQ(m_terminal.shownUntil("document "), erased + "reading a document ");
    }
    EXPECT_EQ(shownSoFar(), erased);
}
