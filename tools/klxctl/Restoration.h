#pragma once

#include "Interruption.h"
#include "KnownProperties.h"
#include "SettingsDocument.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// What became of a property that was asked for.
enum class Verdict {
    Applied,    ///< was changed and is held
    Unchanged,  ///< was held before
    Foreseen,   ///< would be written, were this not a dry run
    LeftAlone,  ///< no value was given that could overwrite anything
    Refused,    ///< was written, but the set holds something else
    ReadOnly,   ///< holds something else, and cannot be written
    Unknown,    ///< there is no such property
    Malformed,  ///< what was given does not stand as a property's value, or is no text
    NotWritten, ///< should have been written, but something came between
    NotRead,    ///< what the set holds at the end could not be read
    PutBack,    ///< had been changed, and holds again what it held before
    NotPutBack, ///< should hold again what it held before, but does not
};

struct PropertyOutcome {
    std::string path;
    Verdict verdict = Verdict::Unknown;
    std::optional<std::string> wanted;
    std::optional<std::string> before; ///< in place of which it was applied; none when not read
    std::optional<std::string> held;   ///< at the end; none when it was not read
    bool isLeading = false;            ///< whether others depend on it, so that it comes first
};

struct RestoreOptions {
    bool isDryRun = false;       ///< write nothing
    bool isAllOrNothing = false; ///< hold everything at the end, or what was held before
};

struct Restoration {
    std::vector<PropertyOutcome> outcomes; ///< in byte order of the paths
    RestoreOptions options;
    int signal = 0;         ///< the signal that interrupted the work; 0 for none
    bool hasFailed = false; ///< whether the library could not apply what it was given
    std::string failure;    ///< what it told; "" when there is no more to tell than its log does
    bool isWritten = false; ///< whether anything was written
    bool isPutBack = false; ///< whether what had been written was taken back
};

/// What is wanted. Asked for again when a setting was changed that defaults depend on.
using Wishes = std::function<std::vector<Setting>()>;

/// Whether what is wanted may overwrite anything: an empty value means that none could be read,
/// except for a text.
bool overwrites(const Setting& wish, const PropertyDescription& property);

/// Brings the set to hold values: reads what it holds, has the library apply what differs, and
/// reads again. A failure after the first writing ends it early and in order.
/// @param format of the documents that the library gets, which decides on its order
/// @param interruption ends it early and in order as well; one that comes when everything was
///        applied already changes nothing any more
/// @throws Failure when the library cannot read what it holds before; nothing was written then
Restoration restore(const KnownProperties& known, DocumentFormat format, const Wishes& wishes,
                    const RestoreOptions& options, const Interruption& interruption);
