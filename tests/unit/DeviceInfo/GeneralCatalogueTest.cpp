#include "DeviceProperty.h"
#include "GeneralRows.h"
#include "ManagerTest.h"

#include <boost/optional/optional_io.hpp>
#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>

namespace fake = klx::fake;
using namespace klx::test;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

namespace {

using Lines = std::vector<std::string>;

std::string quoted(const std::string& text) {
    return '"' + text + '"';
}

/** What is asked of the platform for a value. */
Lines valueCalls(const GeneralRow& row) {
    switch (row.backing) {
    case Backing::integerKey:
        return {"vconf_get_int(" + quoted(row.key) + ")"};
    case Backing::booleanKey:
        return {"vconf_get_bool(" + quoted(row.key) + ")"};
    case Backing::textKey:
        return {"vconf_get_str(" + quoted(row.key) + ")"};
    default:
        return {"runtime_info_get_value_int(" + std::to_string(row.number) + ")"};
    }
}

/** What is asked of the platform for a default: the key, and the type as a number. */
Lines defaultCalls(const GeneralRow& row) {
    const std::string type = row.backing == Backing::textKey      ? "2"
                             : row.backing == Backing::booleanKey ? "1"
                                                                  : "0";
    return {"get_vconf_key_default_value(" + quoted(row.key) + ", " + type + ")"};
}

/** What is asked of the platform to set 3. */
Lines setterCalls(const GeneralRow& row) {
    switch (row.backing) {
    case Backing::integerKey:
        return {"vconf_set_int(" + quoted(row.key) + ", 3)"};
    case Backing::booleanKey:
        return {"vconf_set_bool(" + quoted(row.key) + ", 3)"};
    case Backing::textKey:
        return {"vconf_set_str(" + quoted(row.key) + ", \"3\")"};
    case Backing::usageMode:
        return {"system_settings_get_value_int(10008)", "system_settings_set_value_int(10008, 3)"};
    default:
        return {"system_settings_set_value_int(" + std::to_string(row.number) + ", 3)"};
    }
}

/** What a value reads as after `programValue`. */
std::string programmedValue(const GeneralRow& row) {
    return row.backing == Backing::booleanKey ? "1" : "27";
}

void programValue(fake::Scene& scene, const GeneralRow& row) {
    switch (row.backing) {
    case Backing::integerKey:
        scene.store(row.key, 27);
        break;
    case Backing::booleanKey:
        scene.store(row.key, true);
        break;
    case Backing::textKey:
        scene.store(row.key, std::string("27"));
        break;
    default:
        scene.runtimeInfo(row.number, 27);
    }
}

/** Names a row's test by the letters and digits of its path. */
std::string nameOfRow(const ::testing::TestParamInfo<GeneralRow>& row) {
    std::string name = row.param.path;
    name.erase(std::remove_if(name.begin(), name.end(),
                              [](unsigned char c) { return std::isalnum(c) == 0; }),
               name.end());
    return name;
}

/** One row of the catalogue, walked over the platform. */
class GeneralCatalogueTest : public ::testing::TestWithParam<GeneralRow> {
protected:
    GeneralCatalogueTest() {
        makeRegistry();
        PropertyAccessorMap properties;
        CDeviceProperty::GetInstance()->createPropertyAccessor(properties);
        accessor = properties.at(row.path);
    }

    const GeneralRow row = GetParam();
    fake::Scene scene;
    PropertyAccessor accessor;
};

TEST_P(GeneralCatalogueTest, ValueComesFromItsBacking) {
    programValue(scene, row);
    EXPECT_EQ(std::get<valueGetterElement>(accessor)("ignored"), programmedValue(row));
    EXPECT_THAT(fake::history(), ElementsAreArray(valueCalls(row)));
}

TEST_P(GeneralCatalogueTest, DefaultComesFromItsKey) {
    EXPECT_FALSE(std::get<fixedDefaultElement>(accessor));
    scene.storeDefault(row.key, "factory");
    EXPECT_EQ(std::get<defaultGetterElement>(accessor)("ignored"), "factory");
    EXPECT_THAT(fake::history(), ElementsAreArray(defaultCalls(row)));
}

TEST_P(GeneralCatalogueTest, ChangeGoesToItsBacking) {
    std::get<setterElement>(accessor)("3");
    EXPECT_THAT(fake::history(), ElementsAreArray(setterCalls(row)));
}

TEST_P(GeneralCatalogueTest, FlagIsAsListed) {
    EXPECT_EQ(std::get<flagElement>(accessor), row.flag);
}

INSTANTIATE_TEST_SUITE_P(Rows, GeneralCatalogueTest, ::testing::ValuesIn(expectedGeneralRows()),
                         nameOfRow);

TEST(GeneralCatalogueRowsTest, AreThirtyFourDifferentPaths) {
    std::vector<std::string> paths;
    for (const GeneralRow& row : expectedGeneralRows()) {
        paths.push_back(row.path);
    }
    std::sort(paths.begin(), paths.end());
    EXPECT_EQ(std::unique(paths.begin(), paths.end()), paths.end());
    EXPECT_EQ(paths.size(), 34u);
}

/** The settings of these menus that services of their own keep. */
class GeneralServiceTest : public ::testing::Test {
protected:
    GeneralServiceTest() {
        makeRegistry();
        CDeviceProperty::GetInstance()->createPropertyAccessor(properties);
    }

    const PropertyAccessor& at(const std::string& path) const { return properties.at(path); }

    fake::Scene scene;
    PropertyAccessorMap properties;
};

TEST_F(GeneralServiceTest, CordixIsTheStateOfHdmiCec) {
    const PropertyAccessor& cordix = at("/General/External Device Manager/Cordix+(HDMI-CEC)");
    scene.cec(1);
    EXPECT_EQ(std::get<valueGetterElement>(cordix)("ignored"), "1");
    EXPECT_THAT(fake::history(),
                ElementsAre("cec_init_proxy()", "cec_is_enable()", "cec_close_proxy()"));
    EXPECT_EQ(std::get<fixedDefaultElement>(cordix), std::string("1"));
    EXPECT_FALSE(std::get<flagElement>(cordix));
    std::get<setterElement>(cordix)("0");
    EXPECT_THAT(fake::callsTo("cec_set_enable"), ElementsAre("cec_set_enable(0)"));
}

TEST_F(GeneralServiceTest, RotationIsAnItemOfTheSettingsService) {
    const PropertyAccessor& rotation =
        at("/General & Privacy/Start screen option/Autorun Multi View When Rotating");
    scene.settingsItem("autorun-multiview-rotating", 3, "unused");
    EXPECT_EQ(std::get<valueGetterElement>(rotation)("ignored"), "3");
    EXPECT_THAT(fake::callsTo("SettingsService.GetItemValue"),
                ElementsAre("SettingsService.GetItemValue(\"autorun-multiview-rotating\", \"\")"));
    std::get<setterElement>(rotation)("1");
    EXPECT_THAT(
        fake::callsTo("SettingsService.SetItemValue"),
        ElementsAre("SettingsService.SetItemValue(\"autorun-multiview-rotating\", \"1\", true)"));
    EXPECT_TRUE(std::get<flagElement>(rotation));
}

TEST_F(GeneralServiceTest, GrayscaleIsKeptByThePictureLibrary) {
    const PropertyAccessor& grayscale = at("/General & Privacy/Accessibility/Grayscale");
    scene.pelm("video_gray_onoff", 1);
    EXPECT_EQ(std::get<valueGetterElement>(grayscale)("ignored"), "1");
    std::get<setterElement>(grayscale)("0");
    EXPECT_THAT(fake::calls(),
                ElementsAre("pelm_get_video_gray_onoff()", "pelm_set_video_gray_onoff(0)"));
    EXPECT_TRUE(std::get<flagElement>(grayscale));
}

TEST_F(GeneralServiceTest, RotationAndGrayscaleHaveNoDefault) {
    for (const char* path : {"/General & Privacy/Start screen option/Autorun Multi View When "
                             "Rotating",
                             "/General & Privacy/Accessibility/Grayscale"}) {
        EXPECT_FALSE(std::get<fixedDefaultElement>(at(path))) << path;
        EXPECT_FALSE(std::get<defaultGetterElement>(at(path))) << path;
    }
}

TEST(SharedKeyTest, ScreenSaverAndProtectionTimeShareADefault) {
    fake::Scene scene;
    scene.storeDefault("db/menu/system/auto_protection_time", "120");
    PropertyAccessorMap properties;
    CDeviceProperty::GetInstance()->createPropertyAccessor(properties);
    for (const char* path : {"/General/System Manager/Auto Protection Time",
                             "/General & Privacy/Power and Energy Saving/Screen Saver"}) {
        EXPECT_EQ(std::get<defaultGetterElement>(properties.at(path))(""), "120") << path;
    }
}

} // namespace
