#include "FakeTest.h"
#include "IPowerControl.h"
#include "appserver.h"
#include "esn.h"

#include <array>

namespace klx {
namespace {

using ::testing::Each;
using ::testing::ElementsAre;

class IdentityTest : public FakeTest {};

TEST_F(IdentityTest, UnprogrammedReadsFail) {
    int count = 7;
    char* text = nullptr;
    appserver_app_info_s app{};
    appserver_debug_info_s debug{};
    std::array<char, 4> buffer{};
    int length = 4;
    EXPECT_EQ(IPowerControl::getInstance()->getPowerFailCount(&count), fake::kNotProgrammed);
    EXPECT_EQ(IPowerControl::getInstance()->getWatchdogCount(&count), fake::kNotProgrammed);
    EXPECT_EQ(appserver_get_app_info("1", &app), fake::kNotProgrammed);
    EXPECT_EQ(appserver_get_debug_info(&debug), fake::kNotProgrammed);
    EXPECT_EQ(appserver_get_used_memory(&text), fake::kNotProgrammed);
    EXPECT_EQ(esn_get(buffer.data(), &length), fake::kNotProgrammed);
    EXPECT_EQ(count, 7);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(length, 4);
}

TEST_F(IdentityTest, CountersAreApart) {
    scene.powerFailCount(3).watchdogCount(4);
    int power = 0;
    int watchdog = 0;
    EXPECT_EQ(IPowerControl::getInstance()->getPowerFailCount(&power), 0);
    EXPECT_EQ(IPowerControl::getInstance()->getWatchdogCount(&watchdog), 0);
    EXPECT_EQ(power, 3);
    EXPECT_EQ(watchdog, 4);
}

TEST_F(IdentityTest, ThePowerControlCanBeMissing) {
    scene.fail("PowerControl.getInstance", 0);
    EXPECT_EQ(IPowerControl::getInstance(), nullptr);
}

TEST_F(IdentityTest, AVersionBelongsToItsApplication) {
    scene.appVersion("10140000000", "1.2");
    appserver_app_info_s info{};
    EXPECT_EQ(appserver_get_app_info("10140000000", &info), 0);
    EXPECT_STREQ(info.version, "1.2");
    EXPECT_EQ(appserver_get_app_info("1", &info), fake::kNotProgrammed);
}

TEST_F(IdentityTest, ATextThatFillsItsRecordIsNotTerminated) {
    scene.hubSite(std::string(sizeof(appserver_debug_info_s::hub_site) + 10, 'x'));
    std::array<appserver_debug_info_s, 2> records{};
    EXPECT_EQ(appserver_get_debug_info(records.data()), 0);
    EXPECT_THAT(records[0].hub_site, Each('x'));
    EXPECT_THAT(records[0].reserved, Each('\0'));
    EXPECT_EQ(records[1].reserved[0], '\0');
}

TEST_F(IdentityTest, UsedMemoryIsATextOrNull) {
    scene.usedMemory("12 MB");
    int status = -1;
    EXPECT_STREQ(take(&status, appserver_get_used_memory).get(), "12 MB");
    scene.usedMemory(nullptr);
    EXPECT_EQ(take(&status, appserver_get_used_memory), nullptr);
    EXPECT_EQ(status, 0);
}

TEST_F(IdentityTest, TheSerialNumberStaysInsideTheRoom) {
    scene.esn("ABCDEF");
    std::array<char, 8> buffer{};
    int length = 4;
    EXPECT_EQ(esn_get(buffer.data(), &length), 0);
    EXPECT_EQ(length, 4);
    EXPECT_STREQ(buffer.data(), "ABCD");
    EXPECT_THAT(fake::calls(), ElementsAre("esn_get(4)"));
}

TEST_F(IdentityTest, TheSerialNumbersLengthCanBeALie) {
    scene.esn("AB", 20000);
    std::array<char, 8> buffer{};
    int length = 8;
    EXPECT_EQ(esn_get(buffer.data(), &length), 0);
    EXPECT_EQ(length, 20000);
    EXPECT_STREQ(buffer.data(), "AB");
    scene.esn("AB", 0);
    EXPECT_EQ(esn_get(buffer.data(), &length), 0);
    EXPECT_EQ(length, 0);
}

} // namespace
} // namespace klx
