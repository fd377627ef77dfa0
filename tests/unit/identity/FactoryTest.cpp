#include "IdentityTest.h"
#include "Machine.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

struct Markers {
    std::set<std::string> files;
    const char* image;
};

class ImageTypeTest : public IdentityTest, public ::testing::WithParamInterface<Markers> {
protected:
    Machine machine;
};

TEST_P(ImageTypeTest, FirstMarkerWins) {
    machine.files = GetParam().files;
    EXPECT_EQ(factory.imageType(), GetParam().image);
    EXPECT_THAT(fake::history(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Combinations, ImageTypeTest,
                         ::testing::Values(Markers{{"/etc/release"}, "Release Image"},
                                           Markers{{"/etc/release", "/etc/perf"}, "Release Image"},
                                           Markers{{"/etc/release", "/etc/debug"}, "Release Image"},
                                           Markers{{"/etc/release", "/etc/perf", "/etc/debug"},
                                                   "Release Image"},
                                           Markers{{"/etc/perf"}, "Perf Image"},
                                           Markers{{"/etc/perf", "/etc/debug"}, "Perf Image"},
                                           Markers{{"/etc/debug"}, "Debug Image"}));

TEST_F(ImageTypeTest, WithoutMarkerIsLogged) {
    EXPECT_EQ(factory.imageType(), "");
    EXPECT_THAT(machine.asked,
                ElementsAre("access(\"/etc/release\", 0)", "access(\"/etc/perf\", 0)",
                            "access(\"/etc/debug\", 0)"));
    EXPECT_THAT(fake::logs(),
                ElementsAre(factoryLine(5, "imageType", "FAILURE while getting image type")));
}

class ServerTypeTest : public IdentityTest {
protected:
    static constexpr int key = 126;

    void expectDevelopment() { EXPECT_EQ(factory.getServerType(), "Development"); }
};

TEST_F(ServerTypeTest, ZeroIsOperating) {
    scene.systemInfo(key, 0);
    EXPECT_EQ(factory.getServerType(), "Operating");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_value_int(126)"));
    EXPECT_THAT(fake::logs(),
                ElementsAre(factoryLine(4, "getSystemInfoValue", "System info key value is [126]"),
                            factoryLine(4, "getServerType", "server type= [Operating]")));
}

TEST_F(ServerTypeTest, AnyOtherNumberIsDevelopment) {
    for (const int number : {1, -1, 10, 100}) {
        scene.systemInfo(key, number);
        expectDevelopment();
    }
    EXPECT_THAT(fake::logs(),
                ::testing::Contains(factoryLine(4, "getServerType", "server type= [Development]")));
}

TEST_F(ServerTypeTest, ValueThatIsNoIntegerIsDevelopment) {
    scene.systemInfo(key, "0");
    expectDevelopment();
    EXPECT_THAT(fake::messages(6),
                ElementsAre("Failed getting int, status: " + std::to_string(fake::kWrongType)));
}

TEST_F(ServerTypeTest, FailureIsDevelopment) {
    scene.systemInfo(key, 0).answer("system_info_get_value_int", 17);
    expectDevelopment();
    EXPECT_THAT(fake::logs(),
                ElementsAre(factoryLine(4, "getSystemInfoValue", "System info key value is [126]"),
                            factoryLine(6, "getSystemInfoValue", "Failed getting int, status: 17"),
                            factoryLine(4, "getServerType", "server type= [Development]")));
}

TEST(ServerTypeOfTextTest, IsOperatingForExactlyZero) {
    EXPECT_EQ(factoryInfo::serverTypeOf("0"), "Operating");
    for (const char* text : {"00", "", " 0", "0 ", "+0", "1", "Operating"}) {
        EXPECT_EQ(factoryInfo::serverTypeOf(text), "Development") << '"' << text << '"';
    }
}

using LanguageTest = IdentityTest;

TEST_F(LanguageTest, IsTheSettingsText) {
    scene.systemSetting(13, "de_DE");
    EXPECT_EQ(factory.getLanguage(), "de_DE");
    EXPECT_THAT(fake::calls(), ElementsAre("system_settings_get_value_string(13)"));
    EXPECT_THAT(fake::logs(), ElementsAre(factoryLine(4, "getLanguage", "language is  [de_DE]")));
}

TEST_F(LanguageTest, NullTextIsEmpty) {
    scene.systemSetting(13, nullptr);
    EXPECT_EQ(factory.getLanguage(), "");
    EXPECT_THAT(fake::logs(), ElementsAre(factoryLine(4, "getLanguage", "language is  []")));
}

TEST_F(LanguageTest, FailureIsLogged) {
    scene.systemSetting(13, "de_DE").answer("system_settings_get_value_string", 17);
    EXPECT_EQ(factory.getLanguage(), "");
    EXPECT_THAT(fake::logs(),
                ElementsAre(factoryLine(5, "getLanguage", "FAILURE while getting language\n")));
}

TEST_F(LanguageTest, IsWritten) {
    factory.setLanguage("fr_FR");
    EXPECT_THAT(fake::history(), ElementsAre("log(4) setLanguage: lang=[fr_FR]",
                                             "system_settings_set_value_string(13, \"fr_FR\")"));
    EXPECT_THAT(fake::logs(), ElementsAre(factoryLine(4, "setLanguage", "lang=[fr_FR]")));
}

TEST_F(LanguageTest, FailedWriteIsLogged) {
    scene.fail("system_settings_set_value_string", 17);
    factory.setLanguage("");
    EXPECT_THAT(fake::logs(), ElementsAre(factoryLine(4, "setLanguage", "lang=[]"),
                                          factoryLine(5, "setLanguage", "Language set failed")));
}

} // namespace
