#pragma once

#include "FakePlatform.h"
#include "Records.h"

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <string>

/**
 * A television whose properties store what is written, for one process; what a target finds wrong
 * ends the process.
 */
class FuzzedSet {
public:
    /** @param paths  the properties that there are */
    explicit FuzzedSet(const std::list<std::string>& paths);

    /** All values as they were in the beginning; what was recorded is forgotten. */
    void reset();

    /**
     * When anything was applied, dumps everything in both formats. The documents must be readable,
     * and restoring each must end in the same document again.
     */
    void requireReadableDumps();

    Records& records() { return m_records; }

private:
    void requireReadableDump(CDeviceInfoManager::DataFormatType format);

    klx::fake::Scene m_scene;
    Records m_records;
    std::list<std::string> m_paths;
};

/** Ends the process with the message unless the condition holds. */
void require(bool condition, const char* message);

/** The document of every property. */
std::string dumpOf(CDeviceInfoManager::DataFormatType format);

/** @return whether the text is a document that can be read */
bool isXml(const std::string& text);
bool isJson(const std::string& text);

/** The input of a target as a text. */
inline std::string textOf(const std::uint8_t* data, std::size_t size) {
    return {data, data + size};
}

/** Menus and properties of every form that a path can have, those that go first included. */
std::list<std::string> typicalPaths();
