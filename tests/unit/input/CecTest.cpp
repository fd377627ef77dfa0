#include "InputTest.h"

using fake::Line;
using fake::LineIn;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class CecTest : public InputTest {};

TEST_F(CecTest, StateIsReadBetweenInitAndClose) {
    scene.cec(1);
    EXPECT_EQ(input().getCordixHdmiCec(defaultValue, "ignored"), "1");
    EXPECT_THAT(fake::calls(),
                ElementsAre("cec_init_proxy()", "cec_is_enable()", "cec_close_proxy()"));
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(CecTest, ResultsOfInitAndCloseAreNotExamined) {
    scene.cec(3).answer("cec_init_proxy", 7).answer("cec_close_proxy", 8);
    EXPECT_EQ(input().getCordixHdmiCec(currentValue, ""), "3");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(CecTest, NumberIsWrittenAsItIs) {
    input().setCordixHdmiCec("5");
    EXPECT_THAT(fake::calls(),
                ElementsAre("cec_init_proxy()", "cec_set_enable(5)", "cec_close_proxy()"));
}

TEST_F(CecTest, TextThatIsNoNumberIsZero) {
    input().setCordixHdmiCec("on");
    EXPECT_THAT(fake::callsTo("cec_set_enable"), ElementsAre("cec_set_enable(0)"));
    EXPECT_THAT(fake::logs(),
                ElementsAre(LineIn("commonUtil.h", 6, "strToInt", "Exception ERR std::stoi")));
}

TEST_F(CecTest, RefusedWriteIsLogged) {
    scene.fail("cec_set_enable", 7);
    input().setCordixHdmiCec("1");
    EXPECT_THAT(fake::logs(), ElementsAre(Line(5, "setCordixHdmiCec", "Operation failed.")));
    EXPECT_EQ(fake::calls().back(), "cec_close_proxy()");
}

TEST_F(CecTest, StandardExceptionEndsTheWrite) {
    scene.throwFrom("cec_set_enable", std::runtime_error("gone"));
    input().setCordixHdmiCec("1");
    EXPECT_THAT(fake::logs(), ElementsAre(Line(5, "setCordixHdmiCec", "Conversion failed gone")));
    EXPECT_EQ(fake::calls().back(), "cec_close_proxy()");
}

} // namespace
