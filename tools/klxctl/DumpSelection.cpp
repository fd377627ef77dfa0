#include "DumpSelection.h"

#include "Categories.h"
#include "ExitStatus.h"
#include "Messages.h"
#include "NearestNames.h"
#include "PropertyAccess.h"
#include "PropertyDirectory.h"

#include <algorithm>

namespace {

const std::string wholeOf = "*";

PathParts partsOfWord(const std::string& word) {
    const std::string path = word.compare(0, 1, "/") == 0 ? word : "/" + word;
    const PathParts parts = partsOf(path).value_or(PathParts{path.substr(1), wholeOf});
    if (parts.category.empty()) {
        throw Failure(ExitStatus::WrongUsage,
                      quoted(word) + " names no category; write one such as \"Picture\"");
    }
    return parts.rest.empty() ? PathParts{parts.category, wholeOf} : parts;
}

/// A category of the menu may well be empty; any other name has to be the beginning of something.
bool isCategory(const std::string& name, const PropertyDirectory& found) {
    const std::vector<std::string>& known = menuCategories();
    return found.containsPrefix("/" + name) ||
           std::find(known.begin(), known.end(), name) != known.end();
}

} // namespace

DumpSelection::DumpSelection(const std::vector<std::string>& words) {
    for (const std::string& word : words) {
        m_parts.push_back(partsOfWord(word));
    }
    const auto asterisk = [](const PathParts& parts) {
        return parts.category == wholeOf;
    };
    if (std::none_of(m_parts.begin(), m_parts.end(), asterisk)) {
        return;
    }
    // The library would drop all that is asked for beside it.
    if (m_parts.size() > 1 || m_parts.front().rest != wholeOf) {
        throw Failure(ExitStatus::WrongUsage,
                      "\"*\" stands for everything by itself; write either it or names");
    }
    m_parts.clear();
}

DocumentRequest DumpSelection::request() const {
    DocumentRequest request;
    for (const PathParts& parts : m_parts) {
        request[parts.category].push_back(parts.rest);
    }
    return isEverything() ? DocumentRequest{{wholeOf, {wholeOf}}} : request;
}

bool DumpSelection::reportUnknown(const std::string& document) const {
    const PropertyDirectory found = PropertyDirectory::fromDocument(document);
    std::vector<std::string> unknownPaths;
    bool anyCategory = false;
    for (const PathParts& parts : m_parts) {
        const std::string path = "/" + parts.category + "/" + parts.rest;
        if (parts.rest != wholeOf && !found.contains(path)) {
            unknownPaths.push_back(path);
        } else if (parts.rest == wholeOf && !isCategory(parts.category, found)) {
            report(unknownName("category", parts.category,
                               nearestNames(parts.category, menuCategories())));
            anyCategory = true;
        }
    }
    if (!unknownPaths.empty()) {
        reportUnknownPaths(unknownPaths);
    }
    return anyCategory || !unknownPaths.empty();
}
