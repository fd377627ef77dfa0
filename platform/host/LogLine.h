#pragma once

#include <string>

namespace KLX::Host {

/** What $KLX_LOG asks for. */
struct LogThreshold {
    int lowestPriority; ///< Lines below are not shown.
    bool understood;    ///< False when the text is none of the known words.
};

/** Reads a value of $KLX_LOG; null and "" stand for the default, "warning". */
LogThreshold parseLogThreshold(const char* text);

/** Tells whether a descriptor is the journal's stream, by the rules of $JOURNAL_STREAM. */
bool isJournalStream(int descriptor, const char* journalStream);

/**
 * Composes one line, line feed included: "priority tag: text", or "<n>tag: text" for the journal,
 * which takes the priority out of the angle brackets. A line feed at the end of the text is
 * dropped; other control characters are written as escapes so that one message is one line.
 */
std::string composeLogLine(int priority, const char* tag, const std::string& text, bool forJournal);

} // namespace KLX::Host
