#include "FakeCore.h"
#include "dlog.h"

#include <cstdarg>
#include <cstdio>
#include <ostream>
#include <stdexcept>

namespace klx::fake {
namespace {

const std::string kPrefix = "%s: %s(%d) > ";

std::string orEmpty(const char* text) {
    return text == nullptr ? "" : text;
}

std::string formatted(const char* format, va_list arguments) {
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return text;
}

/** Takes the three leading arguments off, so that the rest is the message alone. */
void readLine(LogLine& line, va_list arguments) {
    line.conforming = line.format.compare(0, kPrefix.size(), kPrefix) == 0;
    std::size_t messageStart = 0;
    if (line.conforming) {
        line.file = orEmpty(va_arg(arguments, const char*));
        line.function = orEmpty(va_arg(arguments, const char*));
        line.line = va_arg(arguments, int);
        messageStart = kPrefix.size();
    }
    line.message = formatted(line.format.c_str() + messageStart, arguments);
}

std::string inHistory(const LogLine& line) {
    return "log(" + std::to_string(line.priority) + ") " + line.function + ": " + line.message;
}

template <typename Result, typename Pick>
std::vector<Result> collect(Pick pick) {
    std::vector<Result> picked;
    const Access state;
    for (const Event& event : state->events) {
        if (const std::optional<Result> result = pick(event)) {
            picked.push_back(*result);
        }
    }
    return picked;
}

} // namespace

std::vector<std::string> calls() {
    return collect<std::string>([](const Event& event) {
        return event.line ? std::nullopt : std::make_optional(event.call);
    });
}

std::vector<std::string> callsTo(const std::string& function) {
    requireKnown(function);
    if (function == "__dlog_print") {
        throw std::invalid_argument("klx::fake: log lines are no calls, ask logs()");
    }
    return collect<std::string>([&](const Event& event) {
        return event.function == function ? std::make_optional(event.call) : std::nullopt;
    });
}

std::vector<LogLine> logs() {
    return collect<LogLine>([](const Event& event) { return event.line; });
}

std::vector<std::string> messages(int priority) {
    return collect<std::string>([&](const Event& event) {
        return event.line && event.line->priority == priority
                   ? std::make_optional(event.line->message)
                   : std::nullopt;
    });
}

std::vector<std::string> history() {
    return collect<std::string>([](const Event& event) {
        return std::make_optional(event.line ? inHistory(*event.line) : event.call);
    });
}

void clearHistory() {
    const Access state;
    state->events.clear();
    state->handles.clearMisuses();
}

std::vector<std::string> openHandles() {
    const Access state;
    std::vector<std::string> open = state->handles.open();
    if (state->usbSessions > 0) {
        open.emplace_back("usb session");
    }
    if (state->cecSessions > 0) {
        open.emplace_back("cec session");
    }
    return open;
}

std::vector<std::string> misuses() {
    return Access()->handles.misuses();
}

bool operator==(const LogLine& left, const LogLine& right) {
    return left.logId == right.logId && left.priority == right.priority && left.tag == right.tag &&
           left.file == right.file && left.function == right.function && left.line == right.line &&
           left.message == right.message && left.format == right.format &&
           left.conforming == right.conforming;
}

bool operator!=(const LogLine& left, const LogLine& right) {
    return !(left == right);
}

std::ostream& operator<<(std::ostream& out, const LogLine& line) {
    out << line.tag << '/' << line.priority << ' ';
    if (line.conforming) {
        out << line.file << ": " << line.function << '(' << line.line << ") > ";
    } else {
        out << "(without file, function and line) ";
    }
    return out << line.message;
}

} // namespace klx::fake

int __dlog_print(int log_id, int priority, const char* tag, const char* format, ...) {
    using namespace klx::fake;
    const Inside platform;
    LogLine line;
    line.logId = log_id;
    line.priority = priority;
    line.tag = orEmpty(tag);
    line.format = format;
    va_list arguments;
    va_start(arguments, format);
    readLine(line, arguments);
    va_end(arguments);
    Access()->events.push_back({"__dlog_print", "", line});
    const int ordinal = pass("__dlog_print");
    const Access state;
    return plannedFailure(*state, "__dlog_print", ordinal)
        .value_or(plannedAnswer(*state, "__dlog_print", 0));
}
