#include "KLXCommonUtil.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

#include <climits>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>

namespace fake = klx::fake;
using fake::LineIn;
using ::testing::ElementsAre;

namespace {

using Bytes = std::unique_ptr<unsigned char, decltype(&std::free)>;

struct Decoded {
    Bytes buffer;
    int count;

    std::string text() const {
        return {reinterpret_cast<const char*>(buffer.get()), static_cast<std::size_t>(count)};
    }
};

Decoded decode(const char* text, int length) {
    unsigned int count = 77;
    Bytes buffer(KLXCommonUtil::decodeBase64(text, length, count), &std::free);
    return {std::move(buffer), static_cast<int>(count)};
}

Decoded decode(const std::string& text) {
    return decode(text.data(), static_cast<int>(text.size()));
}

std::string encode(const std::string& bytes) {
    return KLXCommonUtil::encodeBase64(bytes.data(), bytes.size());
}

class Base64Test : public ::testing::Test {
protected:
    fake::Scene scene;
};

struct Pair {
    const char* plain;
    const char* encoded;
};

std::ostream& operator<<(std::ostream& out, const Pair& pair) {
    return out << pair.plain;
}

class Base64PairTest : public Base64Test, public ::testing::WithParamInterface<Pair> {};

TEST_P(Base64PairTest, Encodes) {
    EXPECT_EQ(encode(GetParam().plain), GetParam().encoded);
}

TEST_P(Base64PairTest, Decodes) {
    EXPECT_EQ(decode(GetParam().encoded).text(), GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(KnownTexts, Base64PairTest,
                         ::testing::Values(Pair{"f", "Zg=="}, Pair{"fo", "Zm8="},
                                           Pair{"foo", "Zm9v"}, Pair{"foob", "Zm9vYg=="},
                                           Pair{"fooba", "Zm9vYmE="}, Pair{"foobar", "Zm9vYmFy"}));

TEST_F(Base64Test, EncodesNothingAsNothing) {
    EXPECT_EQ(encode(""), "");
    EXPECT_EQ(KLXCommonUtil::encodeBase64(nullptr, 0), "");
}

TEST_F(Base64Test, EncodesSixtyBytesInOneLine) {
    std::string expected;
    for (int i = 0; i < 20; ++i) {
        expected += "YWJj";
    }
    std::string bytes;
    for (int i = 0; i < 20; ++i) {
        bytes += "abc";
    }
    EXPECT_EQ(encode(bytes), expected);
    EXPECT_EQ(expected.size(), 80u);
}

TEST_F(Base64Test, EncodesThousandsOfBytesInOneLine) {
    const std::string text = encode(std::string(5000, '\0'));
    EXPECT_EQ(text, std::string(6667, 'A') + "=");
}

TEST_F(Base64Test, EncodesBytesOfEveryKind) {
    EXPECT_EQ(encode(std::string("\x00\xFF\xFE\xFB\xEF\xBE", 6)), "AP/+++++");
}

TEST_F(Base64Test, EncodingIsLogged) {
    encode("foo");
    EXPECT_THAT(fake::logs(), ElementsAre(LineIn("KLXCommonUtil.cpp", 4, "encodeBase64", "start")));
}

TEST_F(Base64Test, DecodesBytesOfEveryKind) {
    EXPECT_EQ(decode("AP/+++++").text(), std::string("\x00\xFF\xFE\xFB\xEF\xBE", 6));
}

TEST_F(Base64Test, DecodesALongLine) {
    EXPECT_EQ(decode(encode(std::string(100000, 'x'))).text(), std::string(100000, 'x'));
}

TEST_F(Base64Test, DecodesAsManyCharactersAsItIsTold) {
    EXPECT_EQ(decode("Zm9vYmFy", 4).text(), "foo");
}

TEST_F(Base64Test, DecodedTextIsTerminated) {
    EXPECT_STREQ(reinterpret_cast<const char*>(decode("Zm9v").buffer.get()), "foo");
}

TEST_F(Base64Test, BufferIsZeroedBehindTheDecodedBytes) {
    const Decoded decoded = decode("Zm9vYmFy");
    ASSERT_EQ(decoded.count, 6);
    EXPECT_EQ(decoded.buffer.get()[6], 0);
    EXPECT_EQ(decoded.buffer.get()[7], 0);
}

TEST_F(Base64Test, DecodingIsLogged) {
    decode("Zm9v");
    EXPECT_THAT(fake::logs(),
                ElementsAre(LineIn("KLXCommonUtil.cpp", 4, "decodeBase64", "length=[4]"),
                            LineIn("KLXCommonUtil.cpp", 4, "decodeBase64", "outLen[3]")));
}

class Base64BadTextTest : public Base64Test, public ::testing::WithParamInterface<const char*> {};

TEST_P(Base64BadTextTest, GivesNoBytes) {
    const Decoded decoded = decode(std::string(GetParam()));
    ASSERT_NE(decoded.buffer, nullptr);
    EXPECT_LE(decoded.count, 0);
    EXPECT_THAT(fake::messages(4),
                ElementsAre("length=[" + std::to_string(std::string(GetParam()).size()) + "]",
                            "outLen[" + std::to_string(decoded.count) + "]"));
}

INSTANTIATE_TEST_SUITE_P(Texts, Base64BadTextTest,
                         ::testing::Values("!!!!", "A", "YWJ", "=", "YW Jj", "YWJj\nYWJj"));

class Base64LengthTest : public Base64Test, public ::testing::WithParamInterface<int> {};

TEST_P(Base64LengthTest, GivesOneZeroByte) {
    const Decoded decoded = decode("Zm9v", GetParam());
    ASSERT_NE(decoded.buffer, nullptr);
    EXPECT_EQ(decoded.buffer.get()[0], 0);
    EXPECT_EQ(decoded.count, 0);
    EXPECT_THAT(fake::messages(4),
                ElementsAre("length=[" + std::to_string(GetParam()) + "]", "outLen[0]"));
}

INSTANTIATE_TEST_SUITE_P(NotPositive, Base64LengthTest, ::testing::Values(0, -1, INT_MIN));

TEST_F(Base64Test, NullTextGivesNoBytes) {
    const Decoded decoded = decode(nullptr, 4);
    ASSERT_NE(decoded.buffer, nullptr);
    EXPECT_EQ(decoded.count, 0);
}

} // namespace
