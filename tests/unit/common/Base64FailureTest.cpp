#include "FailingCall.h"
#include "KLXCommonUtil.h"
#include "LogMatchers.h"
#include "Thrown.h"

#include <gmock/gmock.h>

#include <climits>
#include <cstdlib>
#include <memory>

namespace fake = klx::fake;
using namespace klx::test;
using fake::LineIn;
using ::testing::ElementsAre;

namespace {

class Base64FailureTest : public ::testing::Test {
protected:
    static std::string encodingThrows() {
        return thrownBy([] { KLXCommonUtil::encodeBase64("abc", 3); });
    }

    fake::Scene scene;
};

TEST_F(Base64FailureTest, NoFilterToEncode) {
    const FailingCall fault(Failing::bioNew, 1);
    EXPECT_EQ(encodingThrows(), "Could not allocate OpenSSL BIO");
}

TEST_F(Base64FailureTest, NoMemoryBioToEncodeInto) {
    const FailingCall fault(Failing::bioNew, 2);
    EXPECT_EQ(encodingThrows(), "Could not allocate memory for BIO");
}

TEST_F(Base64FailureTest, NoRoomForTheEncodedText) {
    const FailingCall fault(Failing::bioWrite);
    EXPECT_EQ(encodingThrows(), "Could not allocate memory for BIO");
}

TEST_F(Base64FailureTest, NoRoomForTheEndOfTheEncodedText) {
    const FailingCall fault(Failing::bioFlush);
    EXPECT_EQ(encodingThrows(), "Could not allocate memory for BIO");
}

TEST_F(Base64FailureTest, MoreThanOneWriteTakesIsEncodedInSeveral) {
    PretendedBioWrites writes;
    KLXCommonUtil::encodeBase64("", std::size_t{2} * INT_MAX + 1);
    EXPECT_THAT(writes.sizes, ElementsAre(INT_MAX, INT_MAX, 1));
}

TEST_F(Base64FailureTest, NoFilterToDecodeWithCountsNothing) {
    unsigned int count = 77;
    const FailingCall fault(Failing::bioNew);
    const std::unique_ptr<unsigned char, decltype(&std::free)> buffer(
        KLXCommonUtil::decodeBase64("Zm9v", 4, count), &std::free);
    EXPECT_NE(buffer, nullptr);
    EXPECT_EQ(count, 0u);
}

TEST_F(Base64FailureTest, NoBufferToDecodeInto) {
    unsigned int count = 77;
    const FailingCall fault(Failing::calloc);
    EXPECT_EQ(KLXCommonUtil::decodeBase64("Zm9v", 4, count), nullptr);
    EXPECT_EQ(count, 0u);
    EXPECT_THAT(fake::logs(),
                ElementsAre(LineIn("KLXCommonUtil.cpp", 4, "decodeBase64", "length=[4]"),
                            LineIn("KLXCommonUtil.cpp", 4, "decodeBase64", "outLen[0]")));
}

} // namespace
