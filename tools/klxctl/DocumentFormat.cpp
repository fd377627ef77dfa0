#include "DocumentFormat.h"

#include "Messages.h"

#include <map>

namespace {

const std::map<std::string, DocumentFormat>& formats() {
    static const std::map<std::string, DocumentFormat> byName = {
        {"json", CDeviceInfoManager::DATA_FORMAT_JSON},
        {"xml", CDeviceInfoManager::DATA_FORMAT_XML},
    };
    return byName;
}

bool startsWith(const std::string& text, const std::string& start, std::size_t at = 0) {
    return text.compare(at, start.size(), start) == 0;
}

} // namespace

std::string formatNames() {
    std::string names;
    for (const auto& format : formats()) {
        names += (names.empty() ? "" : " or ") + format.first;
    }
    return names;
}

DocumentFormat formatNamed(const std::string& name) {
    return formats().at(name);
}

std::string checkFormat(const std::string& name) {
    return formats().count(name) > 0
               ? ""
               : "there is no format " + quoted(name) + "; write " + formatNames();
}

std::optional<DocumentFormat> guessedFormat(const std::string& text) {
    if (startsWith(text, "\xFF\xFE") || startsWith(text, "\xFE\xFF")) {
        return CDeviceInfoManager::DATA_FORMAT_XML; // in UTF-16, which JSON is not read in
    }
    const std::size_t mark = startsWith(text, "\xEF\xBB\xBF") ? 3 : 0;
    const std::size_t begin = text.find_first_not_of(" \t\r\n", mark);
    if (begin == std::string::npos) {
        return std::nullopt;
    }
    if (text[begin] == '<') {
        return CDeviceInfoManager::DATA_FORMAT_XML;
    }
    // The library writes a document without properties as null, and reads comments.
    if (text[begin] == '{' || text[begin] == '/' || startsWith(text, "null", begin)) {
        return CDeviceInfoManager::DATA_FORMAT_JSON;
    }
    return std::nullopt;
}
