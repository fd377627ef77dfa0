#include "Progress.h"

#include "Streams.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>

namespace {

constexpr std::chrono::milliseconds interval(100);

const char* const erased = "\r\033[K";

bool isCapableTerminal() {
    const char* const terminal = std::getenv("TERM");
    return terminal != nullptr && std::string(terminal) != "dumb" && isatty(STDERR_FILENO) == 1;
}

/// What fits a line, for a longer one could not be erased.
std::string fitting(const std::string& text) {
    winsize size = {};
    const bool isKnown = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    const std::size_t columns = isKnown ? size.ws_col : 80U;
    return text.substr(0, columns - 1);
}

} // namespace

Progress::Progress(std::chrono::milliseconds patience)
    : m_patience(patience), m_isShown(isCapableTerminal()) {
    if (m_isShown) {
        m_thread = std::thread([this] { show(); });
    }
}

Progress::~Progress() {
    if (!m_isShown) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isOver = true;
    }
    m_end.notify_one();
    m_thread.join();
}

void Progress::tell(const std::string& work) {
    if (m_isShown) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_work = work;
    }
}

void Progress::show() {
    std::unique_lock<std::mutex> lock(m_mutex);
    std::string shown;
    for (auto wait = m_patience; !m_end.wait_for(lock, wait, [this] { return m_isOver; });
         wait = interval) {
        if (m_work != shown) {
            shown = m_work;
            writeAll(STDERR_FILENO, erased + fitting(shown));
        }
    }
    if (!shown.empty()) {
        writeAll(STDERR_FILENO, erased);
    }
}
