#include "Exception.h"
#include "FailingCall.h"
#include "Locales.h"
#include "LogMatchers.h"

#include <boost/format/exceptions.hpp>
#include <gmock/gmock.h>

#include <string>

namespace fake = klx::fake;
using namespace klx::test;
using fake::LineIn;
using KLX::Exception;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class ExceptionFailureTest : public ::testing::Test {
protected:
    fake::Scene scene;
};

/** One warning of the composing function about a fault of the format. */
template <class Fault>
auto warningAbout(const Fault& fault) {
    return ElementsAre(LineIn("Exception.cpp", 5, "createMessage",
                              std::string("Caught exception: ") + fault.what()));
}

TEST_F(ExceptionFailureTest, FormatWithoutPlaceholderIsLogged) {
    EXPECT_STREQ(Exception("nothing to fill", 5).what(), "Out of memory");
    EXPECT_THAT(fake::logs(), warningAbout(boost::io::too_many_args(1, 0)));
}

TEST_F(ExceptionFailureTest, FormatWithTwoPlaceholdersIsLogged) {
    EXPECT_STREQ(Exception("%s and %s", "one").what(), "Out of memory");
    EXPECT_THAT(fake::logs(), warningAbout(boost::io::too_few_args(1, 2)));
}

TEST_F(ExceptionFailureTest, FormatWithTwoPlaceholdersIsLoggedForAString) {
    EXPECT_STREQ(Exception("%s and %s", std::string("one")).what(), "Out of memory");
    EXPECT_THAT(fake::logs(), warningAbout(boost::io::too_few_args(1, 2)));
}

TEST_F(ExceptionFailureTest, IllFormedFormatIsLogged) {
    EXPECT_STREQ(Exception("ends in %", 5).what(), "Out of memory");
    EXPECT_THAT(fake::logs(), warningAbout(boost::io::bad_format_string(0, 0)));
}

TEST_F(ExceptionFailureTest, NullFormatIsLogged) {
    const char* const nothing = nullptr;
    EXPECT_STREQ(Exception(nothing, 5).what(), "Out of memory");
    EXPECT_THAT(fake::logs(), warningAbout(boost::io::too_many_args(1, 0)));
}

TEST_F(ExceptionFailureTest, AnyOtherFaultOfComposingIsLogged) {
    const FailingCall fault(Failing::operatorNew);
    const Exception error("%d", 5);
    EXPECT_STREQ(error.what(), "Out of memory");
    EXPECT_THAT(fake::logs(), ElementsAre(LineIn("Exception.cpp", 5, "createMessage",
                                                 "Caught unknown exception.")));
}

TEST_F(ExceptionFailureTest, NoRoomForAComposedMessageIsNotLogged) {
    const FailingCall fault(Failing::malloc);
    const Exception error("Failed, status: %d", 5);
    EXPECT_STREQ(error.what(), "Out of memory");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TEST_F(ExceptionFailureTest, NoRoomForAPlainText) {
    const FailingCall fault(Failing::strdup);
    EXPECT_STREQ(Exception("text").what(), "Out of memory");
}

TEST_F(ExceptionFailureTest, NoRoomForAPlainString) {
    const FailingCall fault(Failing::strdup);
    EXPECT_STREQ(Exception(std::string("text")).what(), "Out of memory");
}

TEST_F(ExceptionFailureTest, NoRoomForACopy) {
    const Exception original("text");
    const FailingCall fault(Failing::strdup);
    EXPECT_STREQ(Exception(original).what(), "Out of memory");
}

TEST_F(ExceptionFailureTest, NumberIsTheSameInALocaleThatGroupsDigits) {
    const GroupingLocale locale;
    EXPECT_STREQ(Exception("Failed, status: %d", -1234567).what(), "Failed, status: -1234567");
}

} // namespace
