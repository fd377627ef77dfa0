#include "FakeTest.h"
#include "dlog.h"
#include "vconf.h"

#include <thread>

namespace klx {
namespace {

class InsideTest : public FakeTest {
protected:
    /** Whether a call's own work sees the thread inside the platform. */
    bool sawItselfInside = false;
};

TEST_F(InsideTest, NobodyIsInsideBetweenCalls) {
    vconf_set_int("k", 1);
    EXPECT_FALSE(fake::isInside());
}

TEST_F(InsideTest, ACallerIsInsideDuringItsCall) {
    scene.onCall("vconf_set_int", [this] { sawItselfInside = fake::isInside(); });
    vconf_set_int("k", 1);
    EXPECT_TRUE(sawItselfInside);
}

TEST_F(InsideTest, AWriterIsInsideWhileItsLineIsKept) {
    scene.onCall("__dlog_print", [this] { sawItselfInside = fake::isInside(); });
    __dlog_print(0, 4, "KLX", "line");
    EXPECT_TRUE(sawItselfInside);
    EXPECT_FALSE(fake::isInside());
}

TEST_F(InsideTest, ACallThatThrowsLeadsOutAgain) {
    scene.throwFrom("vconf_set_int", 5);
    EXPECT_THROW(vconf_set_int("k", 1), int);
    EXPECT_FALSE(fake::isInside());
}

TEST_F(InsideTest, AnotherThreadIsNotInside) {
    bool other = true;
    scene.onCall("vconf_set_int",
                 [&other] { std::thread([&other] { other = fake::isInside(); }).join(); });
    vconf_set_int("k", 1);
    EXPECT_FALSE(other);
}

} // namespace
} // namespace klx
