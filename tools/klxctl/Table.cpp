#include "Table.h"

#include "Messages.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr std::size_t gap = 2;

// What one cell may make every other row pay for. All paths of the set are shorter.
constexpr std::size_t widestColumn = 100;

/// Characters that take a column, with UTF-8 taken for granted.
std::size_t widthOf(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char character) {
        return (static_cast<unsigned char>(character) & 0xC0) != 0x80;
    }));
}

const char* startOf(Tone tone) {
    switch (tone) {
    case Tone::Faint:
        return "\033[2m";
    case Tone::Good:
        return "\033[32m";
    case Tone::Bad:
        return "\033[31m";
    case Tone::Plain:
        break;
    }
    return "";
}

std::string toned(const std::string& text, Tone tone, bool coloured) {
    const std::string start = coloured ? startOf(tone) : "";
    return start.empty() || text.empty() ? text : start + text + "\033[0m";
}

/// One line; nothing is appended behind the last cell.
std::string lineOf(const std::vector<Cell>& row, const std::vector<std::size_t>& widths,
                   bool coloured) {
    std::string line;
    std::size_t missing = 0;
    for (std::size_t column = 0; column < row.size(); ++column) {
        const std::string text = escaped(row[column].text);
        if (!text.empty()) {
            line += std::string(missing, ' ') + toned(text, row[column].tone, coloured);
            missing = 0;
        }
        const std::size_t width = widthOf(text);
        missing += std::max(widths[column], width) - width + gap;
    }
    return line + "\n";
}

} // namespace

std::string Table::text(bool coloured) const {
    const std::vector<Cell> headings(m_headings.begin(), m_headings.end());
    std::vector<std::size_t> widths(headings.size(), 0);
    const auto widen = [&widths](const std::vector<Cell>& row) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::size_t width = widthOf(escaped(row[column].text));
            widths[column] = std::max(widths[column], std::min(width, widestColumn));
        }
    };
    widen(headings);
    std::for_each(m_rows.begin(), m_rows.end(), widen);
    std::string lines = lineOf(headings, widths, coloured);
    for (const std::vector<Cell>& row : m_rows) {
        lines += lineOf(row, widths, coloured);
    }
    return lines;
}

bool mayColour(int descriptor) {
    const char* const refusal = std::getenv("NO_COLOR");
    const char* const terminal = std::getenv("TERM");
    const bool isRefused = refusal != nullptr && *refusal != '\0';
    const bool isDumb = terminal == nullptr || std::string(terminal) == "dumb";
    return !isRefused && !isDumb && isatty(descriptor) == 1;
}
