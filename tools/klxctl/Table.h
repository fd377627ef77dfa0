#pragma once

#include <string>
#include <vector>

/// How a cell stands out where colours are shown.
enum class Tone { Plain, Faint, Good, Bad };

struct Cell {
    Cell(std::string cellText, Tone cellTone = Tone::Plain)
        : text(std::move(cellText)), tone(cellTone) {}
    Cell(const char* cellText) : text(cellText) {}

    std::string text;
    Tone tone = Tone::Plain;
};

/// Rows in columns that are as wide as their widest cell, under a line of headings. A cell that is
/// very wide moves the rest of its own row only.
class Table {
public:
    explicit Table(std::vector<std::string> headings) : m_headings(std::move(headings)) {}

    /// @param row as many cells as there are headings
    void add(std::vector<Cell> row) { m_rows.push_back(std::move(row)); }

    bool isEmpty() const { return m_rows.empty(); }

    /// The lines, each with its newline. Control characters in a cell are shown as escapes.
    std::string text(bool coloured) const;

private:
    std::vector<std::string> m_headings;
    std::vector<std::vector<Cell>> m_rows;
};

/// Whether what goes to a descriptor may be coloured: it is a terminal that knows colours, and
/// nobody asked for none by the variable NO_COLOR.
bool mayColour(int descriptor);
