#pragma once

#include "Settings.h"

#include <string>
#include <vector>

/// The least that the library's work can cost: the platform calls and log calls that an operation
/// makes, made directly, with the document built or parsed by the same library from or into
/// nothing, for a list of settings that is ready.
namespace floors {

std::string get(const Setting& setting);
void set(const Setting& setting, const std::string& value);
std::string getBacklight();

/// One element of an XML document, in document order.
struct Element {
    std::size_t depth;
    std::string kind;
    std::string name;
    const Setting* setting; ///< null where the element is no leaf
};

/// Reads the list off a document of the library's.
std::vector<Element> elementsOf(const std::string& document);

std::string xmlDocument(const std::vector<Element>& elements);
std::string jsonDocument();

/// Parses a document and applies the same value to every setting.
void restoreXml(const std::string& document, const std::string& value);
void restoreJson(const std::string& document, const std::string& value);

} // namespace floors
