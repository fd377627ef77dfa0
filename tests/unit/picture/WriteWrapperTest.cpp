#include "Families.h"
#include "PictureTest.h"

#include <functional>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

template <class Family>
class WriteWrapperTest : public PictureTest {
protected:
    using Setter = typename Family::Setter;

    void write(const std::string& text) { Family::write(Family::setter(library), text); }

    /** Writes through a library function that throws. */
    template <class E>
    void writeThrowing(E exception) {
        const Setter thrower = [exception](auto&&...) -> int {
            throw exception;
        };
        Family::write(thrower, "7");
    }

    Library library;
};

TYPED_TEST_SUITE(WriteWrapperTest, Instances, InstanceName);

TYPED_TEST(WriteWrapperTest, WritesTheStoredValue) {
    this->write("7");
    EXPECT_THAT(this->library.calls, ElementsAre(TypeParam::writeOf7));
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TYPED_TEST(WriteWrapperTest, ReadsTheNumberAtTheStartOfTheText) {
    this->write(" +7 of 10");
    EXPECT_THAT(this->library.calls, ElementsAre(TypeParam::writeOf7));
}

TYPED_TEST(WriteWrapperTest, FailureIsLogged) {
    this->library.status = 17;
    this->write("7");
    EXPECT_THAT(this->library.calls, ElementsAre(TypeParam::writeOf7));
    EXPECT_THAT(fake::logs(),
                ElementsAre(failureLine(TypeParam::writeName, "Operation failed, error: 17")));
}

TYPED_TEST(WriteWrapperTest, TextThatIsNoNumberIsNotWritten) {
    this->write("abc");
    this->write("");
    EXPECT_THAT(this->library.calls, IsEmpty());
    EXPECT_THAT(fake::logs(), ElementsAre(failureLine(TypeParam::writeName, "[ERROR] stoi"),
                                          failureLine(TypeParam::writeName, "[ERROR] stoi")));
}

TYPED_TEST(WriteWrapperTest, NumberBeyondAnIntIsNotWritten) {
    this->write("2147483648");
    this->write("-2147483649");
    EXPECT_THAT(this->library.calls, IsEmpty());
    EXPECT_THAT(fake::messages(6), ElementsAre("[ERROR] stoi", "[ERROR] stoi"));
}

TYPED_TEST(WriteWrapperTest, EmptyCallableIsLogged) {
    EXPECT_NO_THROW(TypeParam::write(nullptr, "7"));
    EXPECT_THAT(fake::logs(),
                ElementsAre(failureLine(TypeParam::writeName, "[ERROR] bad_function_call")));
}

TYPED_TEST(WriteWrapperTest, StandardExceptionIsLoggedWithItsMessage) {
    EXPECT_NO_THROW(this->writeThrowing(std::runtime_error("no tuner")));
    EXPECT_THAT(fake::logs(), ElementsAre(failureLine(TypeParam::writeName, "[ERROR] no tuner")));
}

TYPED_TEST(WriteWrapperTest, ExceptionOfAnotherKindPassesOn) {
    EXPECT_THROW(this->writeThrowing(5), int);
    EXPECT_THAT(fake::logs(), IsEmpty());
}

} // namespace
