#include "ManagerTest.h"
#include "PropertyBinding.h"

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>

#include <set>
#include <type_traits>

using namespace klx::test;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

static_assert(
    std::is_same_v<PropertyAccessor, std::tuple<std::function<std::string(const std::string&)>,
                                                std::function<std::string(const std::string&)>,
                                                boost::optional<std::string>,
                                                std::function<void(const std::string&)>, bool>>);
static_assert(valueGetterElement == 0 && defaultGetterElement == 1 && fixedDefaultElement == 2 &&
              setterElement == 3 && flagElement == 4);
static_assert(std::is_same_v<PropertyAccessorMap, std::map<std::string, PropertyAccessor>>);

static_assert(integerValue == 0 && booleanValue == 1 && stringValue == 2);
static_assert(currentValue == 0 && defaultValue == 1);
static_assert(std::is_same_v<std::underlying_type_t<valueType>, int>);
static_assert(std::is_same_v<std::underlying_type_t<eMenuValueType>, int>);

static_assert(std::is_base_of_v<DeviceInfoNetwork, CDeviceProperty>);
static_assert(std::is_base_of_v<DeviceInfoGeneral, CDeviceProperty>);
static_assert(std::is_base_of_v<DeviceInfoInput, CDeviceProperty>);
static_assert(std::is_base_of_v<factoryInfo, CDeviceProperty>);
static_assert(!std::is_default_constructible_v<CDeviceProperty>);

const std::string somePath = "/Broadcasting/Service Provider";

class RegistryTest : public ::testing::Test {
protected:
    RegistryTest() { makeRegistry(); }

    static void fill(PropertyAccessorMap& properties) {
        CDeviceProperty::GetInstance()->createPropertyAccessor(properties);
    }

    static bool isReadOnly(const PropertyAccessor& accessor) {
        const auto* const function =
            std::get<setterElement>(accessor).target<void (*)(const std::string&)>();
        return function != nullptr && *function == &emptySetter;
    }

    static PropertyAccessor bound(const PropertyBinding& binding) {
        return binding.bindTo(*CDeviceProperty::GetInstance());
    }

    fake::Scene scene;
};

TEST_F(RegistryTest, HasOneInstance) {
    EXPECT_NE(CDeviceProperty::GetInstance(), nullptr);
    EXPECT_EQ(CDeviceProperty::GetInstance(), CDeviceProperty::GetInstance());
}

TEST_F(RegistryTest, FillingTouchesNoService) {
    PropertyAccessorMap properties;
    fill(properties);
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(RegistryTest, EveryPathBeginsWithASlash) {
    PropertyAccessorMap properties;
    fill(properties);
    for (const auto& [path, accessor] : properties) {
        EXPECT_EQ(path.compare(0, 1, "/"), 0) << path;
    }
}

TEST_F(RegistryTest, EveryRecordCanBeCalled) {
    PropertyAccessorMap properties;
    fill(properties);
    for (const auto& [path, accessor] : properties) {
        EXPECT_TRUE(std::get<valueGetterElement>(accessor)) << path;
        EXPECT_TRUE(std::get<setterElement>(accessor)) << path;
    }
}

TEST_F(RegistryTest, HoldsAHundredAndTwentyTwoRecords) {
    PropertyAccessorMap properties;
    fill(properties);
    EXPECT_EQ(properties.size(), 122u);
}

TEST_F(RegistryTest, FlagIsSetForWhatCanBeWrittenButFiveRecords) {
    const std::set<std::string> cleared = {
        "/Sound/Sound Output", "/General/External Device Manager/Cordix+(HDMI-CEC)",
        "/Factory/Language", "/Support/SoftwareUpdate_AutoUpdate", "/Factory/TCON_PMIC_ErrorCount"};
    PropertyAccessorMap properties;
    fill(properties);
    for (const auto& [path, accessor] : properties) {
        const bool expected = !isReadOnly(accessor) && cleared.count(path) == 0;
        EXPECT_EQ(std::get<flagElement>(accessor), expected) << path;
    }
    for (const std::string& path : cleared) {
        EXPECT_FALSE(isReadOnly(properties.at(path))) << path;
    }
}

TEST_F(RegistryTest, EverySourceHasAReadOnlyStatus) {
    PropertyAccessorMap properties;
    fill(properties);
    for (const char* source : {"HDMI", "AV", "COMP", "SCART", "USB"}) {
        const PropertyAccessor& accessor =
            properties.at(std::string("/Input/Source_Connect/") + source);
        EXPECT_EQ(std::get<fixedDefaultElement>(accessor), std::string("0")) << source;
        EXPECT_TRUE(isReadOnly(accessor)) << source;
        EXPECT_FALSE(std::get<flagElement>(accessor)) << source;
    }
}

TEST_F(RegistryTest, StatusOfASourceIsThatOfTheNamedPort) {
    PropertyAccessorMap properties;
    fill(properties);
    scene.store("memory/sysman/scart2", 1);
    EXPECT_EQ(std::get<valueGetterElement>(properties.at("/Input/Source_Connect/SCART"))("SCART2"),
              "1");
    EXPECT_THAT(fake::calls(), ElementsAre("vconf_get_int(\"memory/sysman/scart2\")"));
}

TEST_F(RegistryTest, SettingAReadOnlyPropertyDoesNothing) {
    PropertyAccessorMap properties;
    fill(properties);
    std::get<setterElement>(properties.at("/SetInformation/DUID"))("another");
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(RegistryTest, UnknownPathHasNoRecord) {
    PropertyAccessorMap properties;
    fill(properties);
    EXPECT_EQ(properties.count("/Broadcasting/Service  Provider"), 0u);
}

TEST_F(RegistryTest, PresentPathIsOverwritten) {
    PropertyAccessorMap properties{{somePath, recordWithDefault("old", answering("old"))}};
    fill(properties);
    scene.store("db/ontv/menu_entry_support", std::string("new"));
    EXPECT_EQ(std::get<valueGetterElement>(properties[somePath])(""), "new");
    EXPECT_FALSE(std::get<fixedDefaultElement>(properties[somePath]));
}

TEST_F(RegistryTest, OtherPathsAreLeftAlone) {
    PropertyAccessorMap properties{{"/Own/path", record(answering("own"))}};
    fill(properties);
    EXPECT_EQ(std::get<valueGetterElement>(properties["/Own/path"])(""), "own");
}

TEST_F(RegistryTest, FillingTwiceDuplicatesNothing) {
    PropertyAccessorMap properties;
    fill(properties);
    const std::size_t once = properties.size();
    fill(properties);
    EXPECT_EQ(properties.size(), once);
}

TEST_F(RegistryTest, CopiesOfRecordsOutliveTheMap) {
    PropertyAccessor copy;
    {
        PropertyAccessorMap properties;
        fill(properties);
        copy = properties.at(somePath);
    }
    scene.store("db/ontv/menu_entry_support", std::string("still"));
    EXPECT_EQ(std::get<valueGetterElement>(copy)(""), "still");
}

TEST_F(RegistryTest, EmptySetterDoesNothing) {
    emptySetter("any value");
    emptySetter("");
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(RegistryTest, FixedDefaultTakesTheDefaultGettersPlace) {
    const PropertyAccessor accessor = bound(setting("db/key", integerValue).withDefault("3"));
    EXPECT_EQ(std::get<fixedDefaultElement>(accessor), std::string("3"));
    EXPECT_FALSE(std::get<defaultGetterElement>(accessor));
    EXPECT_TRUE(std::get<flagElement>(accessor));
}

TEST_F(RegistryTest, FixedDefaultMayBeEmpty) {
    const PropertyAccessor accessor = bound(setting("db/key", integerValue).withDefault(""));
    EXPECT_EQ(std::get<fixedDefaultElement>(accessor), std::string());
}

TEST_F(RegistryTest, FlagMayBeCleared) {
    const PropertyAccessor accessor = bound(setting("db/key", integerValue).withFlagClear());
    EXPECT_FALSE(std::get<flagElement>(accessor));
    EXPECT_FALSE(std::get<fixedDefaultElement>(accessor));
    EXPECT_TRUE(std::get<defaultGetterElement>(accessor));
}

} // namespace
