#pragma once

#include "Settings.h"

#include <string>
#include <vector>

/// The least that the library's work can cost: the platform calls and log calls that an operation
/// makes, made directly, and a document that libxml2 builds from a list that is ready.
namespace floors {

std::string get(const Setting& setting);
void set(const Setting& setting, const std::string& value);
std::string getBacklight();

/// One element of a document, in document order.
struct Element {
    std::size_t depth;
    std::string kind;
    std::string name;
    const Setting* setting; ///< null where the element is no leaf
};

/// Reads the list off a document of the library's.
std::vector<Element> elementsOf(const std::string& document);

std::string document(const std::vector<Element>& elements);

} // namespace floors
