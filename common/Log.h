#pragma once

#include <dlog.h>

#include <utility>

namespace KLX {

/// Priorities of the platform's log.
enum LogPriority : int { LogDebug = 3, LogInfo = 4, LogWarning = 5, LogError = 6 };

/// The part of a path behind its last slash, worked out by the compiler.
constexpr const char* baseName(const char* path) {
    const char* base = path;
    for (const char* at = path; *at != '\0'; ++at) {
        if (*at == '/') {
            base = at + 1;
        }
    }
    return base;
}

/// Where a line of the log comes from: the three values that begin every line.
struct LogOrigin {
    const char* file;
    const char* function;
    int line;
};

/// Never called: lets the compiler compare a format with its arguments.
[[gnu::format(printf, 1, 2)]] inline void checkLogFormat(const char*, ...) {}

template <class... Arguments>
void logLine(LogPriority priority, LogOrigin origin, const char* format, Arguments&&... arguments) {
    constexpr int mainLog = 0;
    __dlog_print(mainLog, priority, "KLX", format, origin.file, origin.function, origin.line,
                 std::forward<Arguments>(arguments)...);
}

} // namespace KLX

/// Writes one line to the platform's log: the priority, a printf format (a literal) and its
/// arguments. The line begins with the file's base name, the function's name and the line number.
///
/// @code
/// KLX_LOG(LogWarning, "key=[%s] does not exist", key.c_str());
/// @endcode
#define KLX_LOG(priority, ...) KLX_LOG_AS(__func__, priority, __VA_ARGS__)

/// The same in the name of another function, for a line that belongs to the operation that a helper
/// works for.
#define KLX_LOG_AS(function, priority, ...)                                                        \
    do {                                                                                           \
        constexpr const char* klxLogFile = ::KLX::baseName(__FILE__);                              \
        if (false) {                                                                               \
            ::KLX::checkLogFormat(__VA_ARGS__);                                                    \
        }                                                                                          \
        ::KLX::logLine(::KLX::priority, {klxLogFile, function, __LINE__},                          \
                       "%s: %s(%d) > " __VA_ARGS__);                                               \
    } while (false)
