#include "CatalogueRow.h"
#include "DeviceInfoManager.h"
#include "LogMatchers.h"
#include "Machine.h"
#include "PropertyCatalogue.h"

#include <boost/optional.hpp>
#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <ostream>

namespace fake = klx::fake;

using ::testing::Contains;
using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

void PrintTo(const CatalogueRow& row, std::ostream* out) {
    *out << row.path;
}

namespace {

/** The path as the name of a test: letters and digits only. */
std::string testNameOf(const ::testing::TestParamInfo<CatalogueRow>& info) {
    std::string name;
    for (const char character : info.param.path) {
        if (std::isalnum(static_cast<unsigned char>(character)) != 0) {
            name += character;
        }
    }
    return name;
}

/** The registry's record of the row under test. */
class CatalogueTest : public ::testing::TestWithParam<CatalogueRow> {
protected:
    CatalogueTest() {
        PropertyAccessorMap records;
        CDeviceProperty::GetInstance()->createPropertyAccessor(records);
        record = records.at(GetParam().path);
        machine.files = {"/etc/perf"};
        GetParam().prepare(scene);
        fake::clearHistory();
    }

    void TearDown() override {
        EXPECT_THAT(fake::messages(5), IsEmpty());
        EXPECT_THAT(fake::messages(6), IsEmpty());
        EXPECT_THAT(fake::misuses(), IsEmpty());
    }

    const CatalogueRow& row = GetParam();
    fake::Scene scene;
    Machine machine;
    PropertyAccessor record;
};

TEST_P(CatalogueTest, ReadsItsValue) {
    EXPECT_EQ(std::get<valueGetterElement>(record)("any argument"), row.value);
    EXPECT_EQ(fake::calls(), row.valueCalls);
}

TEST_P(CatalogueTest, KnowsItsDefault) {
    const auto& fixed = std::get<fixedDefaultElement>(record);
    const auto& getter = std::get<defaultGetterElement>(record);
    ASSERT_EQ(fixed.has_value(), row.kindOfDefault == CatalogueRow::Default::fixed);
    ASSERT_EQ(getter != nullptr, row.kindOfDefault == CatalogueRow::Default::read);
    EXPECT_EQ(getter ? getter("any argument") : fixed.value_or(""), row.defaultText);
    EXPECT_EQ(fake::calls(), getter ? row.defaultCalls : PlatformCalls());
}

TEST_P(CatalogueTest, IsWrittenOrReadOnly) {
    const PropertySetter& setter = std::get<setterElement>(record);
    const auto* const plain = setter.target<void (*)(const std::string&)>();
    EXPECT_EQ(plain != nullptr && *plain == &emptySetter, row.written.empty());
    setter(row.written.empty() ? "7" : row.written);
    EXPECT_EQ(fake::calls(), row.writeCalls);
}

TEST_P(CatalogueTest, CarriesItsFlag) {
    EXPECT_EQ(std::get<flagElement>(record), row.flag);
}

TEST_P(CatalogueTest, IsDescribedAsItIs) {
    std::vector<PropertyDescription> all;
    ASSERT_TRUE(CDeviceInfoManager::DescribeProperties(all));
    const auto found = std::find_if(all.begin(), all.end(),
                                    [this](const auto& each) { return each.path == row.path; });
    ASSERT_NE(found, all.end());
    EXPECT_EQ(found->flag, row.flag);
    EXPECT_EQ(found->isWritable, !row.written.empty());
    EXPECT_EQ(found->hasDefault, row.kindOfDefault != CatalogueRow::Default::none);
    // A getter that asks nobody has the same answer on every set.
    const bool isAnswered =
        row.kindOfDefault == CatalogueRow::Default::read && row.defaultCalls.empty();
    ASSERT_EQ(found->fixedDefault.has_value(),
              isAnswered || row.kindOfDefault == CatalogueRow::Default::fixed);
    EXPECT_EQ(found->fixedDefault.value_or(row.defaultText), row.defaultText);
    if (row.valueCalls.empty()) {
        EXPECT_THAT(found->key, HasSubstr("/etc/perf"));
    } else {
        EXPECT_NE(found->key, "");
        EXPECT_THAT(row.valueCalls, Contains(HasSubstr(found->key)));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, CatalogueTest, ::testing::ValuesIn(expectedCatalogue()), testNameOf);

TEST(CatalogueOrderTest, IsTheMenusWithTheSourcesFirst) {
    std::vector<std::string> expected;
    for (const CatalogueRow& each : expectedCatalogue()) {
        expected.push_back(each.path);
    }
    std::vector<std::string> stored;
    for (const PropertyRow& each : propertyCatalogue()) {
        stored.emplace_back(each.path);
    }
    EXPECT_THAT(stored, ElementsAreArray(expected));
    EXPECT_EQ(stored.size(), 122U);
}

} // namespace
