#include "LogLine.h"

#include "dlog.h"

#include <sys/stat.h>

#include <array>
#include <cinttypes>
#include <cstdio>
#include <cstring>
#include <limits>

namespace KLX::Host {
namespace {

struct PriorityWord {
    const char* word;
    int priority;
};

constexpr std::array<PriorityWord, 5> priorityWords{{
    {"debug", DLOG_DEBUG},
    {"info", DLOG_INFO},
    {"warning", DLOG_WARNING},
    {"error", DLOG_ERROR},
    {"off", std::numeric_limits<int>::max()},
}};

const char* wordOf(int priority) {
    if (priority <= DLOG_DEBUG) {
        return "debug";
    }
    if (priority >= DLOG_ERROR) {
        return "error";
    }
    return priority == DLOG_INFO ? "info" : "warning";
}

int syslogNumberOf(int priority) {
    constexpr int syslogError = 3;
    constexpr int syslogInfo = 6;
    constexpr int syslogDebug = 7;
    if (priority <= DLOG_DEBUG) {
        return syslogDebug;
    }
    if (priority >= DLOG_ERROR) {
        return syslogError;
    }
    return priority == DLOG_INFO ? syslogInfo : syslogError + 1;
}

void appendEscaped(std::string& line, char character) {
    const auto byte = static_cast<unsigned char>(character);
    constexpr unsigned char deleteCharacter = 0x7f;
    if ((byte >= ' ' && byte != deleteCharacter) || character == '\t') {
        line += character;
    } else if (character == '\n') {
        line += "\\n";
    } else {
        std::array<char, 8> escape{};
        std::snprintf(escape.data(), escape.size(), "\\x%02x", static_cast<unsigned>(byte));
        line += escape.data();
    }
}

} // namespace

LogThreshold parseLogThreshold(const char* text) {
    if (text == nullptr || *text == '\0') {
        return {DLOG_WARNING, true};
    }
    for (const PriorityWord& known : priorityWords) {
        if (std::strcmp(text, known.word) == 0) {
            return {known.priority, true};
        }
    }
    return {DLOG_WARNING, false};
}

bool isJournalStream(int descriptor, const char* journalStream) {
    std::uintmax_t device = 0;
    std::uintmax_t inode = 0;
    if (journalStream == nullptr ||
        std::sscanf(journalStream, "%" SCNuMAX ":%" SCNuMAX, &device, &inode) != 2) {
        return false;
    }
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && status.st_dev == device && status.st_ino == inode;
}

std::string composeLogLine(int priority, const char* tag, const std::string& text,
                           bool forJournal) {
    std::string line = forJournal ? "<" + std::to_string(syslogNumberOf(priority)) + ">"
                                  : std::string(wordOf(priority)) + ' ';
    line += tag != nullptr ? tag : "-";
    line += ": ";
    const std::size_t length = !text.empty() && text.back() == '\n' ? text.size() - 1 : text.size();
    for (std::size_t i = 0; i < length; ++i) {
        appendEscaped(line, text[i]);
    }
    return line + '\n';
}

} // namespace KLX::Host
