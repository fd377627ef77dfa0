#include "dlog.h"

#include "HostErrors.h"
#include "LogLine.h"

#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace KLX::Host {
namespace {

bool writeLine(const std::string& line) {
    std::size_t written = 0;
    while (written < line.size()) {
        const ssize_t count = ::write(STDERR_FILENO, line.data() + written, line.size() - written);
        if (count < 0 && errno != EINTR) {
            return false;
        }
        written += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    return true;
}

bool printLine(int priority, const char* tag, const std::string& text) {
    const char* const stream = std::getenv("JOURNAL_STREAM");
    return writeLine(composeLogLine(priority, tag, text, isJournalStream(STDERR_FILENO, stream)));
}

// No static that the language guards: a process forked while another thread makes one waits for it
// for ever.
constexpr int notYetRead = INT_MIN;
std::atomic<int> lowestShown{notYetRead};

int readThreshold() {
    const char* const text = std::getenv("KLX_LOG");
    const LogThreshold threshold = parseLogThreshold(text);
    int former = notYetRead;
    const bool isFirst = lowestShown.compare_exchange_strong(former, threshold.lowestPriority);
    if (isFirst && !threshold.understood) {
        printLine(DLOG_WARNING, "KLX_HOST",
                  "KLX_LOG is \"" + std::string(text) +
                      "\", but must be debug, info, warning, error or off; using warning");
    }
    return threshold.lowestPriority;
}

bool isShown(int priority) {
    const int threshold = lowestShown;
    return priority >= (threshold != notYetRead ? threshold : readThreshold());
}

// Most lines fit the buffer; a longer one is formatted once more, into a text of its own size.
__attribute__((format(printf, 1, 0))) std::string formatText(const char* format,
                                                             std::va_list arguments) {
    std::array<char, 512> buffer;
    std::va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(buffer.data(), buffer.size(), format, arguments);
    std::string text;
    if (length >= 0 && static_cast<std::size_t>(length) < buffer.size()) {
        text.assign(buffer.data(), static_cast<std::size_t>(length));
    } else if (length >= 0) {
        text.resize(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(text.data(), text.size(), format, again);
        text.pop_back();
    }
    va_end(again);
    return text;
}

__attribute__((format(printf, 3, 0))) HostError
printFormatted(int priority, const char* tag, const char* format, std::va_list arguments) {
    if (format == nullptr) {
        return HostError::NullPointer;
    }
    const int errnoForFormat = errno;
    try {
        if (!isShown(priority)) {
            return HostError::None;
        }
        errno = errnoForFormat; // for %m
        return printLine(priority, tag, formatText(format, arguments)) ? HostError::None
                                                                       : HostError::SystemFailure;
    } catch (const std::exception&) {
        return HostError::SystemFailure;
    }
}

} // namespace
} // namespace KLX::Host

int __dlog_print(int /*log_id*/, int priority, const char* tag, const char* format, ...) {
    // Callers log while they handle a failure and look at errno afterwards.
    const int errnoOfCaller = errno;
    std::va_list arguments;
    va_start(arguments, format);
    const auto result = KLX::Host::printFormatted(priority, tag, format, arguments);
    va_end(arguments);
    errno = errnoOfCaller;
    return static_cast<int>(result);
}
