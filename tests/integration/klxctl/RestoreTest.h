#pragma once

#include "KlxctlTest.h"

#include <json/json.h>

#include <string>
#include <vector>

/// The tool's report on what became of each property.
struct Report {
    int status = -1;
    std::string messages;
    Json::Value root;

    /// What became of a property; "" when the report does not name it.
    std::string resultOf(const std::string& path) const { return of(path, "result"); }

    /// A member of a property's entry; "" when there is none.
    std::string of(const std::string& path, const std::string& member) const;

    int count(const std::string& result) const { return root["summary"][result].asInt(); }
};

/// Documents for the tool, and the reports on what it did with them.
class RestoreTest : public KlxctlTest {
protected:
    inline static const std::string backlight = "/Picture/Backlight";
    inline static const std::string mute = "/Sound/Mute";
    inline static const std::string mode = "/Picture/Picture Mode";
    inline static const std::string fact = "/SetInformation/SerialNumber";

    /// Lets a sanitized tool run with something loaded before it.
    inline static const std::string sanitizerOptions = "verify_asan_link_order=0:detect_leaks=0";

    /// Writes a document to a file and names it.
    std::string fileOf(const std::string& document) const;

    /// Runs a command with "--json".
    Report report(std::vector<std::string> arguments) const;

    /// The tool over a disk that acts so whenever a setting is written.
    ToolRun toolOverDisk(const std::string& behaviour) const;

    Report restore(const std::string& document, const std::string& option = "") const;
};

Json::Value jsonFrom(const std::string& text);

/// What a command with "--json" printed.
Report reportIn(const Outcome& outcome);

/// A JSON document with the values of properties of one menu.
std::string jsonOf(const std::string& menu, const std::vector<std::vector<std::string>>& values);

/// An XML document that holds these elements.
std::string xmlOf(const std::string& elements);
