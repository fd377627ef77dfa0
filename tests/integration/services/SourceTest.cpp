#include "HostTest.h"

#include "TvControlService.h"

#include <filesystem>

namespace KLX::Host {
namespace {

ISourceControl* createSource(int profile = 1, int index = 0) {
    ISourceControl* control = nullptr;
    TvControlService::CreateSourceControl(profile, index, &control);
    return control;
}

int currentSource() {
    TvSourceInfo info{};
    EXPECT_GE(createSource()->GetCurrentSourceInfo(&info), 1);
    return info.sourceId;
}

class Sources : public HostTest {};

TEST_F(Sources, BeginWithTheProfilesOwn) {
    EXPECT_EQ(currentSource(), 0);
}

TEST_F(Sources, StayChosenInAnotherProcess) {
    EXPECT_GT(createSource()->ChangeSource(14, "NoAppId"), 0);
    EXPECT_EQ(inOwnProcess([] { return currentSource(); }), 14);
}

TEST_F(Sources, RefuseOneThatTheSetLacks) {
    EXPECT_LT(createSource()->ChangeSource(38, "NoAppId"), 1);
    EXPECT_EQ(currentSource(), 0);
}

TEST_F(Sources, AreMoreOnATessaSet) {
    ASSERT_EQ(setenv("KLX_PROFILE", "tessa", 1), 0);
    EXPECT_GT(createSource()->ChangeSource(39, "NoAppId"), 0);
    EXPECT_EQ(currentSource(), 39);
}

TEST_F(Sources, FallBackWhenAnotherProfileLacksTheChosenOne) {
    EXPECT_EQ(inOwnProcess([] {
                  setenv("KLX_PROFILE", "tessa", 1);
                  return createSource()->ChangeSource(39, "NoAppId") > 0 ? 0 : 1;
              }),
              0);
    EXPECT_EQ(currentSource(), 0);
}

TEST_F(Sources, BelongToTheMainScreen) {
    EXPECT_EQ(createSource(0, 0), nullptr);
    EXPECT_EQ(createSource(1, 1), nullptr);
    EXPECT_LT(createSource()->GetCurrentSourceInfo(nullptr), 1);
}

class Tuner : public HostTest {};

TEST_F(Tuner, TellsTheProfilesSignalWhereThereIsNoReceiver) {
    if (std::filesystem::exists("/dev/dvb")) {
        GTEST_SKIP() << "this machine has a receiver of its own";
    }
    ITunerControl* control = nullptr;
    TvControlService::CreateTunerControl(1, 0, &control);
    ASSERT_NE(control, nullptr);
    int level = 0;
    EXPECT_EQ(control->GetSNRLevel(&level), 1);
    EXPECT_EQ(level, 2534);
    EXPECT_NE(control->GetSNRLevel(nullptr), 1);
}

} // namespace
} // namespace KLX::Host
