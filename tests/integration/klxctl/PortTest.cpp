#include "KlxctlTest.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

TEST_F(KlxctlTest, PortThatResemblesNoneTellsHowToSeeAll) {
    const Outcome outcome = run({"port", "Loudspeaker", "1"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.messages,
                HasSubstr("there is no port \"Loudspeaker\", nor one of a similar name; "
                          "\"klxctl inputs\" shows what there is"));
}
