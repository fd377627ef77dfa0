#pragma once

/**
 * @file
 * The settings service: items known by name, such as "autorun-multiview-rotating".
 */

#include <string>

#pragma GCC visibility push(default)

/** The service. It owns itself, lives as long as the process, and may be used from any thread. */
class SettingsService {
public:
    /** The one instance; never null, never released by the caller. */
    static SettingsService* Get();

    /**
     * Reads an item.
     *
     * @param item     its name
     * @param value    receives its text; the library does not use it
     * @param context  whose item is meant; empty for the set's own
     * @return a number of the service's own meaning, which the library passes on as the value
     */
    int GetItemValue(const std::string& item, std::string& value, const std::string& context);

    /**
     * Changes an item.
     *
     * @param item    its name
     * @param value   the new text
     * @param enable  whether the item is to be on
     * @return a number of the service's own meaning; the library does not look at it
     */
    int SetItemValue(const std::string& item, const std::string& value, bool enable);
};

#pragma GCC visibility pop
