#pragma once

#include <optional>
#include <string>

/// What the library knows of one property before anybody asks the platform for its value.
struct PropertyDescription {
    /// The full path, such as "/Picture/Backlight".
    std::string path;

    /// What answers for the property, in readable words: "integer setting", "flag setting" and
    /// "text setting" for keys of the settings store, "system information", "picture control", ...;
    /// "" when that is not known. Meant for people; no program should decide on it.
    std::string kind;

    /// What is asked there: the settings store's key, the number of an information or setting, the
    /// name of the platform's call, or the files that are looked for; "" when that is not known.
    std::string key;

    /// The record's flag: set for writable settings of the menu. A few properties that can be
    /// written have it clear.
    bool flag = false;

    /// Whether writing the property has any effect. The platform may still refuse a value.
    bool isWritable = false;

    /// Whether the value is a text of the settings store, for which the empty text is a value, too.
    /// Of anything else an empty value tells that it could not be read.
    bool isText = false;

    /// Whether restoring applies the property before all others, because other settings and their
    /// defaults depend on it.
    bool isRestoredFirst = false;

    /// The default that is the same on every set, "" where it is an empty text; none when the
    /// platform is asked for it or when there is no default at all.
    std::optional<std::string> fixedDefault;

    /// Whether there is a default: the fixed one, which may be empty, or one that the platform is
    /// asked for. Where there is none, documents show an empty text.
    bool hasDefault = false;
};
