#pragma once

#include "PropertyDescription.h"

#include <string>

/// A property's value, as the set tells it and as the library's documents show it, which cannot
/// carry every byte.
struct Reading {
    std::string value;
    std::string shown;
};

/// @param path of a property that there is
/// @throws Failure when the library reports a failure
Reading readingOf(const std::string& path);

/// Whether two values of a property are the same: for a text byte by byte, for anything else also
/// as whole numbers, however they are written.
bool areSame(const PropertyDescription& property, const std::string& left,
             const std::string& right);
