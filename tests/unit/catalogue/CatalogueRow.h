#pragma once

#include "FakePlatform.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

constexpr bool flagSet = true;
constexpr bool flagClear = false;

using PlatformCalls = std::vector<std::string>;

/**
 * What one property of the catalogue must do.
 *
 * @code
 * row("/Picture/Backlight", flagSet)
 *     .given([](Scene& scene) { scene.pelm("backlight", 5).pelmDefault("backlight", 6); })
 *     .reads({"pelm_get_backlight(1, 1)"}, "5")
 *     .readsDefault({"pelm_get_backlight(1, 2)"}, "6")
 *     .writes("7", {"pelm_set_backlight(0, 7, 1)"}),
 * @endcode
 */
struct CatalogueRow {
    enum class Default { none, fixed, read };

    /** @param program  lets the platform have what the property is asked for */
    CatalogueRow& given(std::function<void(klx::fake::Scene&)> program) {
        prepare = std::move(program);
        return *this;
    }

    CatalogueRow& reads(PlatformCalls calls, std::string text) {
        valueCalls = std::move(calls);
        value = std::move(text);
        return *this;
    }

    CatalogueRow& fixedDefault(std::string text) {
        kindOfDefault = Default::fixed;
        defaultText = std::move(text);
        return *this;
    }

    CatalogueRow& readsDefault(PlatformCalls calls, std::string text) {
        kindOfDefault = Default::read;
        defaultCalls = std::move(calls);
        defaultText = std::move(text);
        return *this;
    }

    CatalogueRow& writes(std::string text, PlatformCalls calls) {
        written = std::move(text);
        writeCalls = std::move(calls);
        return *this;
    }

    std::string path;
    bool flag = flagClear;
    std::function<void(klx::fake::Scene&)> prepare = [](klx::fake::Scene&) {
    };
    PlatformCalls valueCalls;
    std::string value;
    Default kindOfDefault = Default::none;
    PlatformCalls defaultCalls;
    std::string defaultText;
    std::string written; ///< Empty for a read-only property.
    PlatformCalls writeCalls;
};

inline CatalogueRow row(std::string path, bool flag) {
    CatalogueRow start;
    start.path = std::move(path);
    start.flag = flag;
    return start;
}

/**
 * Every property of the menu, in storing order: what is asked of the platform for its value and its
 * default and to change it, and what stands in its record.
 */
std::vector<CatalogueRow> expectedCatalogue();
