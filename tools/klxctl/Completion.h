#pragma once

#include <CLI/App.hpp>

#include <functional>
#include <string>
#include <vector>

/// What stands for the names of files, which a shell knows better.
inline const std::string anyFile = ":file";

/// The names that arguments take; each kind is asked for only where such a name may stand.
struct KnownNames {
    /// Full paths of all properties.
    std::function<std::vector<std::string>()> paths;
    /// Inputs at which something can be played.
    std::function<std::vector<std::string>()> ports;
};

/// What the last of some words could become: names of commands, of options, values of options,
/// paths of properties.
///
/// A path grows level by level, as the name of a file does: where several go on below the same
/// level, that level stands for them, with a slash at its end. Whenever there is one answer only,
/// it is a whole path.
/// @param app   the tool's commands, declared but not parsed
/// @param words what follows the tool's name; the last one may be empty
std::vector<std::string> completions(const CLI::App& app, const std::vector<std::string>& words,
                                     const KnownNames& known);
