#pragma once

#include <optional>
#include <string>
#include <vector>

/// Reads a property by its path.
/// @return the value, "" when the set gives none; nothing when there is no such property
/// @throws Failure when the library reports a failure
std::optional<std::string> readProperty(const std::string& path);

/// Changes a property. Whether the set holds the value shows when it is read again.
/// @throws Failure when the library reports a failure
void writeProperty(const std::string& path, const std::string& value);

/// Tells people which paths name no property, and the nearest ones that do.
/// @throws Failure when the library cannot tell which there are
void reportUnknownPaths(const std::vector<std::string>& unknown);

/// The message for a name that does not exist, with the nearest ones that do, or else with the
/// command that shows all.
std::string unknownName(const std::string& kind, const std::string& written,
                        const std::vector<std::string>& nearest,
                        const std::string& shownBy = "klxctl dump");
