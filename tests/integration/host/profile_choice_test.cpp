#include "HostTest.h"

#include "system_info.h"
#include "vconf.h"

#include <cstdlib>
#include <string>

namespace KLX::Host {
namespace {

using ::testing::HasSubstr;

constexpr auto tessaFeature = "com.velmora/featureconf/the_tessa_version";

int feature(const char* name) {
    int value = -1;
    EXPECT_EQ(system_info_get_custom_int(name, &value), success) << name;
    return value;
}

class ProfileChoice : public HostTest {};

TEST_F(ProfileChoice, IsStandardWhenNothingIsNamed) {
    EXPECT_EQ(feature(tessaFeature), 0);
    int value = 0;
    EXPECT_EQ(vconf_get_int("memory/sysman/hdmi4", &value), success);
    EXPECT_EQ(vconf_get_int("memory/sysman/hdmi5", &value), numberOf(HostError::UnknownKey));
}

TEST_F(ProfileChoice, TakesAShippedProfileByName) {
    ::setenv("KLX_PROFILE", "tessa", 1);
    EXPECT_NE(feature(tessaFeature), 0);
    int value = 0;
    EXPECT_EQ(vconf_get_int("memory/sysman/hdmi6", &value), success);
}

TEST_F(ProfileChoice, TakesAFile) {
    const std::string file = m_folder.path("own.json");
    writeFile(file, R"({"extends": "tessa", "customFeatures": {"own": 17}})");
    ::setenv("KLX_PROFILE", file.c_str(), 1);
    EXPECT_EQ(feature("own"), 17);
    EXPECT_NE(feature(tessaFeature), 0);
}

TEST_F(ProfileChoice, ReportsAMistakeOnceAndAnswersAnErrorNumber) {
    const std::string file = m_folder.path("mistake.json");
    writeFile(file, R"({"extends": "standard", "settings": {"db/x": {"type": "integer"}}})");
    ::setenv("KLX_PROFILE", file.c_str(), 1);
    int value = 99;
    const std::string lines = standardErrorOf([&] {
        EXPECT_EQ(vconf_get_int("db/x", &value), numberOf(HostError::ProfileInvalid));
        EXPECT_EQ(vconf_set_int("db/x", 1), numberOf(HostError::ProfileInvalid));
        EXPECT_EQ(system_info_get_custom_int(tessaFeature, &value),
                  numberOf(HostError::ProfileInvalid));
    });
    EXPECT_EQ(linesIn(lines), 1) << lines;
    EXPECT_THAT(lines, HasSubstr("error KLX_HOST: " + file +
                                 ": settings[\"db/x\"].type: expected "
                                 "int, bool or string, found \"integer\""));
    EXPECT_EQ(value, 99);
}

TEST_F(ProfileChoice, ReportsAProfileThatIsNotThere) {
    ::setenv("KLX_PROFILE", "no-such-model", 1);
    int value = 0;
    const std::string lines = standardErrorOf(
        [&] { EXPECT_EQ(vconf_get_int("db/x", &value), numberOf(HostError::ProfileInvalid)); });
    EXPECT_THAT(lines, HasSubstr("no-such-model.json: cannot be opened"));
    EXPECT_THAT(lines, HasSubstr("KLX_PROFILE must name a file or a shipped profile"));
}

TEST_F(ProfileChoice, IsMadeOnceForAProcess) {
    EXPECT_EQ(feature(tessaFeature), 0);
    ::setenv("KLX_PROFILE", "tessa", 1);
    EXPECT_EQ(feature(tessaFeature), 0);
}

} // namespace
} // namespace KLX::Host
