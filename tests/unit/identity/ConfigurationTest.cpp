#include "IdentityTest.h"
#include "Machine.h"

using ::testing::ElementsAre;

namespace {

/** Writing a value of the set's configuration by its shell command. */
class ConfigurationWriteTest : public IdentityTest {
protected:
    void write(int status) {
        machine.shell = [status](const std::string&) {
            return status;
        };
        factoryInfo::setFMSvalueUtil("com.velmora/x", "12");
    }

    void expectLastLine(int priority, const std::string& message) {
        EXPECT_THAT(fake::logs().back(), factoryLine(priority, "setFMSvalueUtil", message));
    }

    Machine machine;
};

TEST_F(ConfigurationWriteTest, RunsTheCommand) {
    write(0);
    EXPECT_THAT(machine.asked, ElementsAre("system(\"fconfigd -s com.velmora/x 12\")"));
    EXPECT_THAT(
        fake::logs(),
        ElementsAre(factoryLine(4, "setFMSvalueUtil", "FMS key is [com.velmora/x]"),
                    factoryLine(4, "setFMSvalueUtil", "cmd [fconfigd -s com.velmora/x 12] ret=[0]"),
                    factoryLine(4, "setFMSvalueUtil",
                                "FMS key [com.velmora/x] has been set with value [12]")));
}

TEST_F(ConfigurationWriteTest, TextsStandInTheCommandAsTheyAre) {
    factoryInfo::setFMSvalueUtil("key%d", "a value; with $signs");
    EXPECT_THAT(machine.asked, ElementsAre("system(\"fconfigd -s key%d a value; with $signs\")"));
    expectLastLine(4, "FMS key [key%d] has been set with value [a value; with $signs]");
}

TEST_F(ConfigurationWriteTest, FailsOnThreeStatuses) {
    for (const int status : {-1, 127, 256}) {
        fake::clearHistory();
        write(status);
        EXPECT_THAT(
            fake::logs(),
            ElementsAre(factoryLine(4, "setFMSvalueUtil", "FMS key is [com.velmora/x]"),
                        factoryLine(4, "setFMSvalueUtil",
                                    "cmd [fconfigd -s com.velmora/x 12] ret=[" +
                                        std::to_string(status) + "]"),
                        factoryLine(5, "setFMSvalueUtil",
                                    "Failed to set FMS key  value " + std::to_string(status))));
    }
}

TEST_F(ConfigurationWriteTest, AnyOtherStatusIsASuccess) {
    for (const int status : {0, 1, 255, 257, 512, 32512}) {
        write(status);
        expectLastLine(4, "FMS key [com.velmora/x] has been set with value [12]");
    }
}

/** Reading a custom value of the system information. */
class ConfigurationReadTest : public IdentityTest {
protected:
    static std::string read(const std::string& type) {
        return factoryInfo::getFMSvalueUtil("com.velmora/x", type);
    }

    static void expectLines(const std::string& second, int priority = 4) {
        EXPECT_THAT(fake::logs(),
                    ElementsAre(factoryLine(4, "getFMSvalueUtil", "FMS key is [com.velmora/x]"),
                                factoryLine(priority, "getFMSvalueUtil", second)));
    }
};

TEST_F(ConfigurationReadTest, Text) {
    scene.feature("com.velmora/x", "on 100%");
    EXPECT_EQ(read("string"), "on 100%");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_custom_string(\"com.velmora/x\")"));
    expectLines("Fetched FMS key value is [on 100%]");
}

TEST_F(ConfigurationReadTest, NullTextIsEmpty) {
    scene.feature("com.velmora/x", nullptr);
    EXPECT_EQ(read("string"), "");
    expectLines("Fetched FMS key value is []");
}

TEST_F(ConfigurationReadTest, Flag) {
    scene.feature("com.velmora/x", true);
    EXPECT_EQ(read("bool"), "1");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_custom_bool(\"com.velmora/x\")"));
    expectLines("Fetched FMS key value is [1]");
    scene.feature("com.velmora/x", false);
    EXPECT_EQ(read("bool"), "0");
}

TEST_F(ConfigurationReadTest, Number) {
    scene.feature("com.velmora/x", -12);
    EXPECT_EQ(read("int"), "-12");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_custom_int(\"com.velmora/x\")"));
    expectLines("Fetched FMS key value is [-12]");
}

TEST_F(ConfigurationReadTest, AnyOtherTypeIsANumber) {
    scene.feature("com.velmora/x", 12);
    for (const char* type : {"", "double", "String", "boolean"}) {
        fake::clearHistory();
        EXPECT_EQ(read(type), "12") << type;
        EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_custom_int(\"com.velmora/x\")"));
    }
}

TEST_F(ConfigurationReadTest, FailureIsLoggedWithTypeAndStatus) {
    for (const char* type : {"string", "bool", "int"}) {
        fake::clearHistory();
        scene.fail(std::string("system_info_get_custom_") + type, 17);
        EXPECT_EQ(read(type), "");
        expectLines(std::string("Failed getting ") + type + ", status: 17", 5);
    }
}

TEST_F(ConfigurationReadTest, ValueOfAFailedReadIsNotUsed) {
    scene.feature("com.velmora/x", "on").answer("system_info_get_custom_string", 17);
    EXPECT_EQ(read("string"), "");
}

} // namespace
