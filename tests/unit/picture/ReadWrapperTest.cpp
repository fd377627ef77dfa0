#include "Families.h"
#include "PictureTest.h"

#include <functional>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

template <class Family>
class ReadWrapperTest : public PictureTest {
protected:
    std::string read(pelm_save_type_e save = PELM_SAVE_STORED) {
        return Family::read(Family::getter(library), save);
    }

    Library library;
};

TYPED_TEST_SUITE(ReadWrapperTest, Instances, InstanceName);

TYPED_TEST(ReadWrapperTest, GivesTheValueInDecimal) {
    this->library.value = 42;
    EXPECT_EQ(this->read(), "42");
    EXPECT_THAT(fake::logs(), IsEmpty());
}

TYPED_TEST(ReadWrapperTest, AsksForTheStoredValue) {
    this->read(PELM_SAVE_STORED);
    EXPECT_THAT(this->library.calls, ElementsAre(TypeParam::readOfStored));
}

TYPED_TEST(ReadWrapperTest, AsksForTheDefault) {
    this->read(PELM_SAVE_DEFAULT);
    EXPECT_THAT(this->library.calls, ElementsAre(TypeParam::readOfDefault));
}

TYPED_TEST(ReadWrapperTest, StartsAtZero) {
    this->library.writes = false;
    EXPECT_EQ(this->read(), "0");
    EXPECT_THAT(this->library.before, ElementsAre(0));
}

TYPED_TEST(ReadWrapperTest, FailureIsLoggedAndGivesNothing) {
    this->library.value = 42;
    this->library.status = 17;
    EXPECT_EQ(this->read(), "");
    EXPECT_THAT(fake::logs(),
                ElementsAre(failureLine(TypeParam::readName, "Operation failed, error: 17")));
}

TYPED_TEST(ReadWrapperTest, NegativeStatusIsAFailure) {
    this->library.status = -1;
    EXPECT_EQ(this->read(), "");
    EXPECT_THAT(fake::logs(),
                ElementsAre(failureLine(TypeParam::readName, "Operation failed, error: -1")));
}

TYPED_TEST(ReadWrapperTest, EmptyCallableIsABadFunctionCall) {
    EXPECT_THROW(TypeParam::read(nullptr, PELM_SAVE_STORED), std::bad_function_call);
    EXPECT_THAT(fake::logs(), IsEmpty());
}

} // namespace
