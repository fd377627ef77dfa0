#pragma once

#include "ValueTypes.h"

#include <vector>

/// A property that is a key of the settings store, for the benchmarks to ask for.
struct Setting {
    const char* category;
    const char* path;
    const char* key;
    valueType type;
};

/// The menu settings that are kept in the settings store.
const std::vector<Setting>& settings();

/// The first of them that is an integer.
const Setting& integerSetting();
