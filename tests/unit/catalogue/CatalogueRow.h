#pragma once

/**
 * @file
 * What one property of the catalogue must do, written down row by row in a test, and a fixture that
 * holds the registry's record of the same path to it.
 *
 * @code
 * row("/Picture/Backlight", flagSet)
 *     .reads({"pelm_get_backlight(1, 1)"}, "5")
 *     .readsDefault({"pelm_get_backlight(1, 2)"}, "6")
 *     .writes("7", {"pelm_set_backlight(0, 7, 1)"}),
 * @endcode
 */

#include "DeviceProperty.h"
#include "LogMatchers.h"

#include <boost/optional.hpp>
#include <gmock/gmock.h>

#include <cctype>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

using PlatformCalls = std::vector<std::string>;

struct CatalogueRow {
    enum class Default { none, fixed, read };

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
    bool flag;
    PlatformCalls valueCalls;
    std::string value;
    Default kindOfDefault = Default::none;
    PlatformCalls defaultCalls;
    std::string defaultText;
    std::string written; ///< Empty for a read-only property.
    PlatformCalls writeCalls;
};

constexpr bool flagSet = true;
constexpr bool flagClear = false;

inline CatalogueRow row(std::string path, bool flag) {
    CatalogueRow start{};
    start.path = std::move(path);
    start.flag = flag;
    return start;
}

inline void PrintTo(const CatalogueRow& row, std::ostream* out) {
    *out << row.path;
}

/** The path as the name of a test: letters and digits only. */
inline std::string testNameOf(const ::testing::TestParamInfo<CatalogueRow>& info) {
    std::string name;
    for (const char character : info.param.path) {
        if (std::isalnum(static_cast<unsigned char>(character)) != 0) {
            name += character;
        }
    }
    return name;
}

inline std::vector<std::string> pathsOf(const std::vector<CatalogueRow>& rows) {
    std::vector<std::string> paths;
    for (const CatalogueRow& each : rows) {
        paths.push_back(each.path);
    }
    return paths;
}

/** The registry's record of the row under test. Derived fixtures program the scene. */
class CatalogueRowTest : public ::testing::TestWithParam<CatalogueRow> {
protected:
    CatalogueRowTest() {
        PropertyAccessorMap records;
        CDeviceProperty::GetInstance()->createPropertyAccessor(records);
        record = records.at(GetParam().path);
        klx::fake::clearHistory();
    }

    void checkValue() {
        EXPECT_EQ(std::get<valueGetterElement>(record)("any argument"), GetParam().value);
        EXPECT_EQ(klx::fake::calls(), GetParam().valueCalls);
        expectNoFailure();
    }

    void checkDefault() {
        const auto& fixed = std::get<fixedDefaultElement>(record);
        const auto& getter = std::get<defaultGetterElement>(record);
        ASSERT_EQ(fixed.has_value(), GetParam().kindOfDefault == CatalogueRow::Default::fixed);
        if (fixed) {
            EXPECT_EQ(*fixed, GetParam().defaultText);
            return;
        }
        ASSERT_EQ(getter != nullptr, GetParam().kindOfDefault == CatalogueRow::Default::read);
        EXPECT_EQ(getter ? getter("any argument") : "", GetParam().defaultText);
        EXPECT_EQ(klx::fake::calls(), GetParam().defaultCalls);
        expectNoFailure();
    }

    void checkWrite() {
        const PropertySetter& setter = std::get<setterElement>(record);
        const auto* const plain = setter.target<void (*)(const std::string&)>();
        EXPECT_EQ(plain != nullptr && *plain == &emptySetter, GetParam().written.empty());
        setter(GetParam().written.empty() ? "7" : GetParam().written);
        EXPECT_EQ(klx::fake::calls(), GetParam().writeCalls);
        expectNoFailure();
    }

    void checkFlag() { EXPECT_EQ(std::get<flagElement>(record), GetParam().flag); }

    klx::fake::Scene scene;
    PropertyAccessor record;

private:
    static void expectNoFailure() {
        EXPECT_THAT(klx::fake::messages(5), ::testing::IsEmpty());
        EXPECT_THAT(klx::fake::messages(6), ::testing::IsEmpty());
    }
};
