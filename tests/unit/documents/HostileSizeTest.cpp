#include "DocumentsTest.h"
#include "HeapWatch.h"

namespace fake = klx::fake;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

namespace {

std::string repeated(const std::string& text, int times) {
    std::string all;
    for (int i = 0; i < times; ++i) {
        all += text;
    }
    return all;
}

/** Documents that are large or deep beyond reason. */
class HostileSizeTest : public DocumentsTest {
protected:
    HostileSizeTest() {
        records.add("/Sound/Mute");
        // A log that is kept would be counted as the library's memory.
        scene.onCall("__dlog_print", &fake::clearHistory);
    }

    void keepLog() { scene.restore("__dlog_print"); }
};

TEST_F(HostileSizeTest, HundredThousandUnknownElements) {
    const std::string document =
        xmlDocument(xmlMenu("Nowhere", repeated(xmlProperty("Nothing", "1"), 100000)) +
                    xmlMenu("Sound", xmlProperty("Mute", "1")));
    const HeapWatch watch(256 * mebibyte);
    EXPECT_TRUE(restore(document, xml));
    EXPECT_LT(watch.peak(), 128 * mebibyte);
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(HostileSizeTest, HundredThousandUnknownMembers) {
    std::string document = "{";
    for (int i = 0; i < 100000; ++i) {
        document += "\"Nowhere" + std::to_string(i) + "\":{\"Nothing\":{\"Value\":\"1\"}},";
    }
    document += R"("Sound":{"Mute":{"Value":"1"}}})";
    const HeapWatch watch(512 * mebibyte);
    EXPECT_TRUE(restore(document, json));
    EXPECT_LT(watch.peak(), 256 * mebibyte);
    EXPECT_THAT(records.applied(), ElementsAre("/Sound/Mute = 1"));
}

TEST_F(HostileSizeTest, ElementsNestedTenThousandDeep) {
    keepLog();
    const std::string document =
        xmlDocument(xmlMenu("Sound", xmlProperty("Mute", "1")) +
                    repeated("<menu name=\"A\">", 10000) + repeated("</menu>", 10000));
    const HeapWatch watch(64 * mebibyte);
    EXPECT_FALSE(restore(document, xml));
    EXPECT_LT(watch.peak(), 32 * mebibyte);
    EXPECT_THAT(records.applied(), IsEmpty());
    EXPECT_THAT(fake::messages(5), ElementsAre("exception: [Failed to parse XML from string]"));
}

TEST_F(HostileSizeTest, ElementsNestedTwoHundredDeepAreRead) {
    std::string path;
    for (int i = 0; i < 200; ++i) {
        path += "/A";
    }
    records.add(path);
    const std::string document = xmlDocument(repeated("<menu name=\"A\">", 199) +
                                             xmlProperty("A", "1") + repeated("</menu>", 199));
    EXPECT_TRUE(restore(document, xml));
    EXPECT_THAT(records.applied(), ElementsAre(path + " = 1"));
}

TEST_F(HostileSizeTest, MembersNestedTenThousandDeep) {
    keepLog();
    const std::string document = R"({"Sound":{"Mute":{"Value":"1"}},"A":)" +
                                 repeated("{\"A\":", 10000) + "1" + repeated("}", 10000) + "}";
    const HeapWatch watch(64 * mebibyte);
    EXPECT_FALSE(restore(document, json));
    EXPECT_LT(watch.peak(), 32 * mebibyte);
    EXPECT_THAT(records.applied(), IsEmpty());
    EXPECT_THAT(fake::messages(5), ElementsAre("exception: [Exceeded stackLimit in readValue().]"));
}

TEST_F(HostileSizeTest, ArraysNestedTenThousandDeep) {
    const HeapWatch watch(64 * mebibyte);
    EXPECT_FALSE(restore(repeated("[", 10000) + repeated("]", 10000), json));
    EXPECT_LT(watch.peak(), 32 * mebibyte);
}

/** A value of 64 MiB. The setter keeps only how long it was, so that nothing else is counted. */
class HugeValueTest : public HostileSizeTest {
protected:
    HugeValueTest() {
        std::get<setterElement>(DeviceInfoManagerSeam::records()["/Sound/Mute"]) =
            [this](const std::string& value) {
                sizes.push_back(value.size());
            };
    }

    static constexpr std::size_t size = 64 * mebibyte;
    std::vector<std::size_t> sizes;
};

TEST_F(HugeValueTest, InXmlIsAParseFailure) {
    keepLog();
    const std::string document =
        xmlDocument(xmlMenu("Sound", xmlProperty("Mute", std::string(size, 'x'))));
    const HeapWatch watch(8 * size);
    EXPECT_FALSE(restore(document, xml));
    EXPECT_LT(watch.peak(), 4 * size);
    EXPECT_THAT(sizes, IsEmpty());
    EXPECT_THAT(fake::messages(5), ElementsAre("exception: [Failed to parse XML from string]"));
}

TEST_F(HugeValueTest, InJsonIsApplied) {
    const std::string document =
        R"({"Sound":{"Mute":{"Value":")" + std::string(size, 'x') + R"("}}})";
    const HeapWatch watch(16 * size);
    EXPECT_TRUE(restore(document, json));
    EXPECT_LT(watch.peak(), 12 * size);
    EXPECT_THAT(sizes, ElementsAre(size));
}

TEST_F(HugeValueTest, OfEscapesInJsonIsApplied) {
    const std::string document = R"({"Sound":{"Mute":{"Value":")" +
                                 repeated("\\u00f1", static_cast<int>(size / 6)) + R"("}}})";
    const HeapWatch watch(16 * size);
    EXPECT_TRUE(restore(document, json));
    EXPECT_LT(watch.peak(), 12 * size);
    EXPECT_THAT(sizes, ElementsAre(size / 6 * 2));
}

TEST_F(HugeValueTest, NameInBothFormatsIsUnknownOrRefused) {
    const std::string name(size, 'x');
    const HeapWatch watch(16 * size);
    EXPECT_FALSE(restore(xmlDocument(xmlMenu(name, "")), xml));
    EXPECT_TRUE(restore("{\"" + name + "\":{\"a\":{\"Value\":\"1\"}}}", json));
    EXPECT_LT(watch.peak(), 12 * size);
    EXPECT_THAT(sizes, IsEmpty());
}

TEST_F(HugeValueTest, TextAndCommentsOfXmlAreIgnoredOrRefused) {
    const HeapWatch watch(16 * size);
    const std::string mute = xmlMenu("Sound", xmlProperty("Mute", "1"));
    EXPECT_FALSE(restore(xmlDocument(mute + "<!--" + std::string(size, 'x') + "-->"), xml));
    EXPECT_TRUE(restore(xmlDocument(mute + std::string(size, ' ')), xml));
    EXPECT_LT(watch.peak(), 12 * size);
    EXPECT_THAT(sizes, ElementsAre(1u));
}

} // namespace
