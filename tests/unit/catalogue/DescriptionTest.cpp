#include "ManagerTest.h"

#include <optional>
#include <stdexcept>

using namespace klx::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const PropertyDescription& at(const std::vector<PropertyDescription>& all,
                              const std::string& path) {
    for (const PropertyDescription& each : all) {
        if (each.path == path) {
            return each;
        }
    }
    throw std::out_of_range(path);
}

/** What the library tells of the properties of its catalogue. */
class DescriptionTest : public ManagerTest {
protected:
    DescriptionTest() {
        EXPECT_TRUE(CDeviceInfoManager::DescribeProperties(all));
        fake::clearHistory();
    }

    const PropertyDescription& of(const std::string& path) const { return at(all, path); }

    std::vector<PropertyDescription> all;
};

TEST_F(DescriptionTest, CoversEveryPropertyInByteOrder) {
    PropertyAccessorMap records;
    CDeviceProperty::GetInstance()->createPropertyAccessor(records);
    std::vector<std::string> expected;
    for (const auto& [path, accessor] : records) {
        expected.push_back(path);
    }
    std::vector<std::string> paths;
    for (const PropertyDescription& each : all) {
        paths.push_back(each.path);
    }
    EXPECT_EQ(paths, expected);
    EXPECT_EQ(paths.size(), 122U);
}

TEST_F(DescriptionTest, AsksThePlatformForNothing) {
    std::vector<PropertyDescription> again;
    EXPECT_TRUE(CDeviceInfoManager::DescribeProperties(again));
    EXPECT_THAT(fake::history(), IsEmpty());
}

TEST_F(DescriptionTest, ReplacesWhatTheListHeld) {
    std::vector<PropertyDescription> again(500);
    EXPECT_TRUE(CDeviceInfoManager::DescribeProperties(again));
    EXPECT_EQ(again.size(), 122U);
}

TEST_F(DescriptionTest, NamesTheKindAndTheKeyOfAStoredSetting) {
    EXPECT_EQ(of("/General & Privacy/Accessibility/Colour Inversion").kind, "integer setting");
    EXPECT_EQ(of("/General & Privacy/Accessibility/Colour Inversion").key,
              "db/menu/system/accessibility/nagative_colors");
    EXPECT_EQ(of("/Broadcasting/Apply Channel Lock").kind, "flag setting");
    EXPECT_EQ(of("/Broadcasting/Service Provider").kind, "text setting");
}

TEST_F(DescriptionTest, NamesTheNumberOfAnInformation) {
    EXPECT_EQ(of("/SetInformation/SerialNumber").kind, "system information");
    EXPECT_EQ(of("/SetInformation/SerialNumber").key, "187");
    EXPECT_EQ(of("/SetInformation/Fan Error Count").kind, "runtime information");
    EXPECT_EQ(of("/SetInformation/Fan Error Count").key, "10037");
}

TEST_F(DescriptionTest, NamesTheCallOfAService) {
    EXPECT_EQ(of("/Picture/Gamma Value").kind, "picture control");
    EXPECT_EQ(of("/Picture/Gamma Value").key, "pelm_get_gamma");
    EXPECT_EQ(of("/Network/IP").kind, "network connection");
    EXPECT_EQ(of("/Network/IP").key, "connection_profile_get_ip_address");
}

TEST_F(DescriptionTest, NamesTheFilesThatTellTheImage) {
    EXPECT_EQ(of("/Factory/Image Type").key, "/etc/release, /etc/perf, /etc/debug");
}

TEST_F(DescriptionTest, EveryPropertyHasAKindAndAKey) {
    for (const PropertyDescription& each : all) {
        EXPECT_NE(each.kind, "") << each.path;
        EXPECT_NE(each.key, "") << each.path;
    }
}

TEST_F(DescriptionTest, TellsWritableFromReadOnly) {
    EXPECT_TRUE(of("/Picture/Backlight").isWritable);
    EXPECT_TRUE(of("/Picture/Backlight").flag);
    EXPECT_FALSE(of("/Network/IP").isWritable);
    EXPECT_FALSE(of("/Network/IP").flag);
}

TEST_F(DescriptionTest, FlagMayBeClearForWhatCanBeWritten) {
    EXPECT_TRUE(of("/Sound/Sound Output").isWritable);
    EXPECT_FALSE(of("/Sound/Sound Output").flag);
}

TEST_F(DescriptionTest, TellsWhichAreTexts) {
    EXPECT_TRUE(of("/Broadcasting/Service Provider").isText);
    EXPECT_FALSE(of("/Broadcasting/Apply Channel Lock").isText);
    EXPECT_FALSE(of("/Factory/Language").isText);
}

TEST_F(DescriptionTest, TellsWhatRestoringAppliesFirst) {
    std::vector<std::string> first;
    for (const PropertyDescription& each : all) {
        if (each.isRestoredFirst) {
            first.push_back(each.path);
        }
    }
    EXPECT_THAT(first, ElementsAre("/Picture/Picture Mode"));
}

TEST_F(DescriptionTest, TellsAFixedDefaultFromOneThatIsAskedForAndFromNone) {
    EXPECT_EQ(of("/Network/IPMode").fixedDefault, std::string("DHCP"));
    EXPECT_EQ(of("/Network/IP").fixedDefault, std::string());
    EXPECT_TRUE(of("/Network/IP").hasDefault);
    EXPECT_EQ(of("/Picture/Backlight").fixedDefault, std::nullopt);
    EXPECT_TRUE(of("/Picture/Backlight").hasDefault);
    EXPECT_EQ(of("/SetInformation/ProductType").fixedDefault, std::nullopt);
    EXPECT_FALSE(of("/SetInformation/ProductType").hasDefault);
}

TEST_F(DescriptionTest, ADefaultThatNobodyIsAskedForIsFixedThoughAGetterAnswersIt) {
    EXPECT_EQ(of("/Sound/Mute").fixedDefault, std::string("0"));
    EXPECT_EQ(of("/Sound/Digital Output Audio Format").fixedDefault, std::string());
    EXPECT_TRUE(of("/Sound/Digital Output Audio Format").hasDefault);
}

/** Descriptions of records that the catalogue does not have, and of none. */
class DescribedRecordsTest : public ManagerTest {};

TEST_F(DescribedRecordsTest, ComeFromTheManagersOwnRecords) {
    use({{"/Own/path", recordWithDefault("7", answering(""))}});
    std::vector<PropertyDescription> all;
    EXPECT_TRUE(CDeviceInfoManager::DescribeProperties(all));
    ASSERT_EQ(all.size(), 1U);
    EXPECT_EQ(all[0].path, "/Own/path");
    EXPECT_EQ(all[0].fixedDefault, std::string("7"));
    EXPECT_EQ(all[0].kind, "");
    EXPECT_EQ(all[0].key, "");
}

TEST_F(DescribedRecordsTest, FirstCallCreatesTheInstance) {
    std::vector<PropertyDescription> all;
    EXPECT_TRUE(CDeviceInfoManager::DescribeProperties(all));
    EXPECT_NE(seam->instance(), nullptr);
}

TEST_F(DescribedRecordsTest, AreLeftAloneWhenTheCreationFails) {
    std::vector<PropertyDescription> all(3);
    throwAtLine("initializing deviceMap", std::runtime_error("no memory"));
    EXPECT_FALSE(CDeviceInfoManager::DescribeProperties(all));
    EXPECT_EQ(all.size(), 3U);
    EXPECT_THAT(fake::logs(),
                Contains(fake::LineIn("PropertyDescription.cpp", 5, "DescribeProperties",
                                      "exception: [no memory]")));
}

} // namespace
