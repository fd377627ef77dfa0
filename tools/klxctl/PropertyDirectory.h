#pragma once

#include <set>
#include <string>

/// The paths of properties, learned from what the library puts into its documents.
///
/// A copyable value without ties to the library; one that is not changed may be read from several
/// threads.
class PropertyDirectory {
public:
    /// Every property that the library knows. It reads each of them, which can take seconds.
    /// @throws Failure when the library cannot tell
    static PropertyDirectory everything();

    /// Every property of the categories whose names begin so. It reads each of them.
    /// @throws Failure when the library cannot tell
    static PropertyDirectory ofCategory(const std::string& name);

    /// The properties in one XML document of the library.
    /// @throws Failure when the text is no such document
    static PropertyDirectory fromDocument(const std::string& document);

    bool contains(const std::string& path) const { return m_paths.count(path) > 0; }

    /// @return whether any path starts with the text
    bool containsPrefix(const std::string& text) const;

    /// In byte order.
    const std::set<std::string>& paths() const { return m_paths; }

private:
    std::set<std::string> m_paths;
};
