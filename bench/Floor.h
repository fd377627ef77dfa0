#pragma once

#include "Settings.h"

#include <benchmark/benchmark.h>
#include <json/value.h>

#include <string>
#include <vector>

/// What the library's work costs without the library: the platform calls and log calls that an
/// operation makes, made directly, with the document built or parsed by the plain calls of libxml2
/// or jsoncpp from or into nothing, for a list of settings that is ready.
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

/// Builds a document over and over, when it was the library's own once.
template <class Build>
void repeat(benchmark::State& state, const std::string& document, Build build) {
    if (build() != document) {
        state.SkipWithError("the floor builds another document than the library");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(build());
    }
}

std::string xmlDocument(const std::vector<Element>& elements);
std::string jsonDocument();

/// Gives a property of a JSON document its default and value.
void addTo(Json::Value& property, const Setting& setting);

/// Writes a value as an operation that has found the property does.
void apply(const Setting& setting, const std::string& value);

/// Parses a document and applies the same value to every setting.
void restoreXml(const std::string& document, const std::string& value);
void restoreJson(const std::string& document, const std::string& value);

} // namespace floors
