#include "InputTest.h"

#include <thread>

using fake::Line;
using fake::LineIn;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class SourceTest : public InputTest {};

TEST_F(SourceTest, CurrentOneIsReadThroughAControlOfItsOwn) {
    scene.source(14);
    EXPECT_EQ(input().getSourceList(currentValue, "ignored"), "14");
    EXPECT_THAT(fake::calls(),
                ElementsAre("CreateSourceControl(1, 0)", "SourceControl.GetCurrentSourceInfo()",
                            "Destroy(SourceControl)"));
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(SourceTest, DefaultIsZeroWithoutAControl) {
    scene.source(14);
    EXPECT_EQ(input().getSourceList(defaultValue, ""), "0");
    EXPECT_THAT(fake::calls(), IsEmpty());
}

TEST_F(SourceTest, OtherKindsReadTheCurrentOne) {
    scene.source(14);
    EXPECT_EQ(input().getSourceList(static_cast<eMenuValueType>(2), ""), "14");
}

TEST_F(SourceTest, FailedQueryIsLoggedAndTheControlDestroyed) {
    for (const int status : {0, -1, -404}) {
        scene.source(14).answer("SourceControl.GetCurrentSourceInfo", status);
        DeviceInfoInput inputs = input();
        EXPECT_EQ(inputs.getSourceList(currentValue, ""), "");
        EXPECT_THAT(fake::logs(), ElementsAre(LineIn("DeviceInfoInput.cpp", 5, "getSourceList",
                                                     "GetCurrentSourceInfo error")));
        EXPECT_EQ(fake::calls().back(), "Destroy(SourceControl)");
    }
}

TEST_F(SourceTest, AnyAnswerFromOneUpIsSuccess) {
    scene.source(38).answer("SourceControl.GetCurrentSourceInfo", 2);
    EXPECT_EQ(input().getSourceList(currentValue, ""), "38");
}

TEST_F(SourceTest, MissingControlIsAFailedQuery) {
    scene.fail("CreateSourceControl", -1);
    EXPECT_EQ(input().getSourceList(currentValue, ""), "");
    EXPECT_THAT(fake::messages(5), ElementsAre("GetCurrentSourceInfo error"));
    EXPECT_THAT(fake::callsTo("Destroy"), IsEmpty());
}

TEST_F(SourceTest, QueriesWaitForEachOtherAndChangesDoNot) {
    scene.source(14);
    DeviceInfoInput inputs = input();
    fake::Gate gate("SourceControl.GetCurrentSourceInfo");
    std::thread first([&] { inputs.getSourceList(currentValue, ""); });
    ASSERT_TRUE(gate.waitForCaller());
    std::thread second([&] { inputs.getSourceList(currentValue, ""); });
    inputs.setSourceList("15");
    EXPECT_EQ(fake::callsTo("SourceControl.ChangeSource").size(), 1U);
    EXPECT_FALSE(gate.waitForCaller(2, std::chrono::milliseconds(100)));
    gate.open();
    first.join();
    second.join();
    EXPECT_EQ(fake::callsTo("SourceControl.GetCurrentSourceInfo").size(), 2U);
}

TEST_F(SourceTest, ChangeNamesTheApplicationThatIsNone) {
    input().setSourceList("15");
    EXPECT_THAT(fake::calls(), ElementsAre("CreateSourceControl(1, 0)",
                                           "SourceControl.ChangeSource(15, \"NoAppId\")",
                                           "Destroy(SourceControl)"));
}

TEST_F(SourceTest, SuccessfulChangeIsToldAndOthersAreNot) {
    scene.answer("SourceControl.ChangeSource", 1);
    input().setSourceList("15");
    EXPECT_THAT(fake::logs(), ElementsAre(Line(3, "setSourceList", "Source set to: 15")));
    scene.answer("SourceControl.ChangeSource", 0);
    input().setSourceList("16");
    EXPECT_THAT(fake::logs(), IsEmpty());
    EXPECT_EQ(fake::calls().back(), "Destroy(SourceControl)");
}

TEST_F(SourceTest, ChangeToNoNumberTouchesNothing) {
    input().setSourceList("x");
    EXPECT_THAT(fake::logs(), ElementsAre(Line(5, "setSourceList", "ERR: stoi")));
    EXPECT_THAT(fake::calls(), IsEmpty());
}

TEST_F(SourceTest, ChangeWithoutAControlDoesNothing) {
    scene.fail("CreateSourceControl", -1);
    input().setSourceList("15");
    EXPECT_THAT(fake::logs(), IsEmpty());
    EXPECT_THAT(fake::callsTo("Destroy"), IsEmpty());
}

} // namespace
