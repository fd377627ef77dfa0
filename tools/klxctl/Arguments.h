#pragma once

#include <CLI/App.hpp>

#include <string>
#include <vector>

/// Declares a positional argument that takes one word or more, as they are written: an empty pair
/// of braces, for one, stays a word and is not taken for an empty list.
/// @param words receives them when the arguments are parsed
inline CLI::Option* addWords(CLI::App& command, const std::string& name,
                             std::vector<std::string>& words, const std::string& description) {
    const auto take = [&words](const CLI::results_t& given) {
        words = given;
        return true;
    };
    constexpr int anyNumber = -1;
    return command.add_option(name, take, description)
        ->expected(1, anyNumber)
        ->allow_extra_args()
        ->option_text("...");
}
