#include "DocumentText.h"
#include "DocumentsTest.h"
#include "InputSeam.h"

#include <json/json.h>

#include <libxml/parserInternals.h>

#include <memory>

using ::testing::HasSubstr;
using namespace std::string_literals;

namespace {

const std::string replaced = "\xEF\xBF\xBD";

/** A text and the text that documents hold in its stead. */
struct Carried {
    std::string given;
    std::string written;
};

std::string times(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += replaced;
    }
    return text;
}

std::vector<Carried> uncarriable() {
    return {{"\0"s, times(1)},
            {"a\x01z", "a" + times(1) + "z"},
            {"\x08\x0B\x0C\x1F", times(4)},
            {"\x80", times(1)},
            {"\xFF\xFE", times(2)},
            {"a\xC3", "a" + times(1)},
            {"\xC3(", times(1) + "("},
            {"\xC0\xAF", times(2)},         // "/" in two bytes
            {"\xE0\x80\xAF", times(3)},     // "/" in three bytes
            {"\xF0\x80\x80\xAF", times(4)}, // "/" in four bytes
            {"\xE2\x82", times(2)},         // a euro sign without its end
            {"\xE2\x82z", times(2) + "z"},  //
            {"\xED\xA0\x80", times(1)},     // a surrogate
            {"\xEF\xBF\xBE", times(1)},     // U+FFFE
            {"\xEF\xBF\xBF", times(1)},     // U+FFFF
            {"\xF4\x90\x80\x80", times(1)}, // beyond U+10FFFF
            {"\xF5\x80\x80\x80", times(4)},
            {"\xC3\xB1\xFF\xC3\xB1", "\xC3\xB1" + times(1) + "\xC3\xB1"}};
}

std::vector<Carried> carriable() {
    std::vector<Carried> all;
    for (const std::string& text : {""s,
                                    "plain"s,
                                    "\t\n\r"s,
                                    "  two  blanks "s,
                                    "\"'<>&"s,
                                    "]]>"s,
                                    "&amp;"s,
                                    "&#10;"s,
                                    "%s%n"s,
                                    "\\u0041"s,
                                    "\x7F"s,
                                    "\xC2\x80"s,
                                    "\xC3\xB1"s,
                                    "\xE2\x82\xAC"s,
                                    "\xED\x9F\xBF"s,
                                    "\xEE\x80\x80"s,
                                    "\xEF\xBF\xBD"s,
                                    "\xF0\x90\x80\x80"s,
                                    "\xF0\x9F\x98\x80"s,
                                    "\xF4\x8F\xBF\xBF"s}) {
        all.push_back({text, text});
    }
    return all;
}

class DocumentTextTest : public DocumentsTest, public ::testing::WithParamInterface<Carried> {
protected:
    const std::string& given() const { return GetParam().given; }
    const std::string& written() const { return GetParam().written; }

    Json::Value parsed(const std::string& document) {
        Json::Value root;
        EXPECT_TRUE(DeviceInfoManagerSeam::createJsonNode(document, root));
        return root;
    }
};

TEST_P(DocumentTextTest, IsFitForXml) {
    EXPECT_EQ(documentText(given()), written());
}

TEST_P(DocumentTextTest, ValueIsRestoredFromBothFormats) {
    for (const auto format : {json, xml}) {
        records.add("/M/A", given());
        const std::string document = dump({{"M", {"A"}}}, format);
        records.setValueOf("/M/A", "other");
        EXPECT_TRUE(restore(document, format));
        EXPECT_EQ(records.valueOf("/M/A"), written());
    }
}

TEST_P(DocumentTextTest, BothFormatsHoldTheSameTexts) {
    records.add("/M/A", given(), given());
    const Json::Value property = parsed(dump({{"M", {"A"}}}, json))["M"]["A"];
    EXPECT_EQ(property["Value"].asString(), written());
    EXPECT_EQ(property["Default"].asString(), written());
    EXPECT_TRUE(restore(dump({{"M", {"A"}}}, xml), xml));
    EXPECT_EQ(records.valueOf("/M/A"), written());
}

TEST_P(DocumentTextTest, SinglePropertyIsReadUntouched) {
    records.add("/M/A", given());
    std::string value;
    EXPECT_TRUE(CDeviceInfoManager::GetDevicePropertyValue("M", "A", value));
    EXPECT_EQ(value, given());
}

TEST_P(DocumentTextTest, NameIsFitForJson) {
    records.add("/M" + given() + "/A" + given(), "1");
    const Json::Value root = parsed(dump({{"M" + given(), {"A" + given()}}}, json));
    EXPECT_EQ(root["M" + written()]["A" + written()]["Value"].asString(), "1");
}

std::string textOfTest(const ::testing::TestParamInfo<Carried>& info) {
    return std::to_string(info.index);
}

INSTANTIATE_TEST_SUITE_P(Uncarriable, DocumentTextTest, ::testing::ValuesIn(uncarriable()),
                         textOfTest);
INSTANTIATE_TEST_SUITE_P(Carriable, DocumentTextTest, ::testing::ValuesIn(carriable()), textOfTest);

TEST(DocumentTextByCharacter, IsReplacedExactlyWhereXmlHasNoSuchCharacter) {
    for (unsigned int code = 1; code <= 0x10FFFF; ++code) {
        xmlChar bytes[5] = {};
        const int size = xmlCopyCharMultiByte(bytes, static_cast<int>(code));
        const std::string text(bytes, bytes + (code < 0x80 ? 1 : size));
        const bool isXml = code == '\t' || code == '\n' || code == '\r' ||
                           (code >= 0x20 && code <= 0xD7FF) || (code >= 0xE000 && code <= 0xFFFD) ||
                           code >= 0x10000;
        ASSERT_EQ(documentText(text), isXml ? text : replaced) << std::hex << code;
    }
}

class OddNameTest : public DocumentsTest {};

TEST_F(OddNameTest, XmlDocumentOfUncarriableNamesCanBeReadBack) {
    for (const Carried& name : uncarriable()) {
        records.add("/M" + name.given + "/A" + name.given, "1");
    }
    const std::string document = dump({{"M", {"*"}}}, xml);
    EXPECT_THAT(document, HasSubstr("name=\"M" + replaced + "\""));
    EXPECT_TRUE(restore(document, xml));
}

TEST_F(OddNameTest, UncarriableNameOfADeviceIsFitForJson) {
    const InputSeam list({"HDMI\xFF"});
    records.add("/Input/Source_Connect/HDMI\xFF", "1");
    Json::Value root;
    DeviceInfoManagerSeam::createJsonNode(dump({{"Input", {"*"}}}, json), root);
    EXPECT_EQ(root["Input"]["Source_Connect"]["HDMI" + replaced]["Value"].asString(), "1");
}

} // namespace
