#include "store/Record.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace KLX::Host {
namespace {

std::vector<Value> everyKindOfValue() {
    return {0,
            -1,
            std::numeric_limits<int>::min(),
            std::numeric_limits<int>::max(),
            true,
            false,
            std::string(),
            std::string("text with \0 inside", 18),
            -59.94,
            std::numeric_limits<double>::infinity()};
}

TEST(Record, GivesBackWhatWasWritten) {
    for (const Value& value : everyKindOfValue()) {
        EXPECT_EQ(decodeRecord("db/key", encodeRecord("db/key", value)), value);
    }
}

TEST(Record, IsTheSameOnEveryMachine) {
    const std::string bytes = encodeRecord("db/key", 0x01020304);
    EXPECT_EQ(bytes.substr(0, 5), std::string("i\x04\x03\x02\x01"));
    EXPECT_EQ(bytes.size(), 9U);
}

TEST(Record, IsRefusedWhenOneBitIsDifferent) {
    for (const Value& value : everyKindOfValue()) {
        const std::string bytes = encodeRecord("db/key", value);
        for (std::size_t bit = 0; bit < bytes.size() * 8; ++bit) {
            std::string damaged = bytes;
            damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1 << bit % 8));
            EXPECT_FALSE(decodeRecord("db/key", damaged)) << "bit " << bit;
        }
    }
}

TEST(Record, IsRefusedUnderAnotherKey) {
    EXPECT_FALSE(decodeRecord("db/other", encodeRecord("db/key", 1)));
}

TEST(Record, IsRefusedWhenItIsCutOff) {
    const std::string bytes = encodeRecord("db/key", std::string("text"));
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_FALSE(decodeRecord("db/key", bytes.substr(0, length))) << length;
    }
}

} // namespace
} // namespace KLX::Host
