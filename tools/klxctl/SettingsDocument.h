#pragma once

#include "DocumentFormat.h"

#include <optional>
#include <string>
#include <vector>

/// What a document says of one property.
struct Setting {
    std::string path;
    std::optional<std::string> value; ///< none when the document tells none
    bool isMalformed = false;         ///< it stands where no value can, or its value is no text
};

/// The properties of one of the library's documents.
///
/// They stand in the order in which the library applies them, not counting those that it always
/// applies first, and each but once: of several mentions the last one holds, for it is applied
/// last.
class SettingsDocument {
public:
    /// @throws Failure when the text is no such document
    static SettingsDocument parse(const std::string& text, DocumentFormat format);

    DocumentFormat format() const { return m_format; }
    const std::vector<Setting>& settings() const { return m_settings; }

private:
    SettingsDocument(DocumentFormat format, std::vector<Setting> mentions);

    DocumentFormat m_format;
    std::vector<Setting> m_settings;
};

/// A value for a property.
struct Assignment {
    std::string path;
    std::string value;
};

/// A document that the library applies in this order (a JSON document by name, for its members have
/// no order). A JSON document carries any bytes, an XML document those that XML can carry.
std::string documentOf(const std::vector<Assignment>& assignments, DocumentFormat format);
