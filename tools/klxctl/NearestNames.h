#pragma once

#include <string>
#include <vector>

/// The names that somebody may have meant who wrote another one: those that are almost it, then
/// those that begin with it, contain it, or have its last segment. Upper and lower case are one.
/// @return the best first, five at most
std::vector<std::string> nearestNames(const std::string& written,
                                      const std::vector<std::string>& names);
