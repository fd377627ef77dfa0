#pragma once

#include "LibraryDocument.h"
#include "PathParts.h"

#include <string>
#include <vector>

/// What a document shall hold: categories and single properties, as somebody wrote them, or all
/// that the library collects for "*".
class DumpSelection {
public:
    /// @param words "Sound", "Picture/Backlight" or "/Picture/Backlight" each; none for everything
    /// @throws Failure when a word names no category, or "*" is mixed with others
    explicit DumpSelection(const std::vector<std::string>& words);

    bool isEverything() const { return m_parts.empty(); }

    DocumentRequest request() const;

    /// Tells people which of the words name nothing, for the library leaves that out in silence.
    /// @param document the library's XML document for `request`
    /// @return whether there was any
    bool reportUnknown(const std::string& document) const;

private:
    std::vector<PathParts> m_parts;
};
