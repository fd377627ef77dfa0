#include "DocumentText.h"
#include "ManagerTest.h"
#include "XmlText.h"

using namespace klx::test;
using ::testing::ElementsAre;

namespace {

const std::string replaced = "\xEF\xBF\xBD";

struct Bytes {
    std::string given;
    std::string written;
};

std::ostream& operator<<(std::ostream& out, const Bytes& bytes) {
    return out << ::testing::PrintToString(bytes.given);
}

class DocumentTextTest : public ::testing::TestWithParam<Bytes> {};

TEST_P(DocumentTextTest, ReplacesWhatXmlCannotCarry) {
    EXPECT_EQ(documentText(GetParam().given), GetParam().written);
}

const std::string nul("\0", 1);

INSTANTIATE_TEST_SUITE_P(
    Kept, DocumentTextTest,
    ::testing::Values(Bytes{"", ""}, Bytes{"plain <&\"'> \x7F", "plain <&\"'> \x7F"},
                      Bytes{"\t\n\r", "\t\n\r"}, Bytes{"\xC2\x80\xDF\xBF", "\xC2\x80\xDF\xBF"},
                      Bytes{"\xE0\xA0\x80\xED\x9F\xBF", "\xE0\xA0\x80\xED\x9F\xBF"},
                      Bytes{"\xEE\x80\x80\xEF\xBF\xBD", "\xEE\x80\x80\xEF\xBF\xBD"},
                      Bytes{"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF",
                            "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"}));

INSTANTIATE_TEST_SUITE_P(
    ControlCharacters, DocumentTextTest,
    ::testing::Values(Bytes{nul, replaced}, Bytes{"a\x01z", "a" + replaced + "z"},
                      Bytes{"\x08\x0B\x0C\x0E\x1F",
                            replaced + replaced + replaced + replaced + replaced}));

INSTANTIATE_TEST_SUITE_P(CharactersOutsideXml, DocumentTextTest,
                         ::testing::Values(Bytes{"\xEF\xBF\xBE", replaced},
                                           Bytes{"\xEF\xBF\xBF", replaced},
                                           Bytes{"\xED\xA0\x80", replaced},
                                           Bytes{"\xED\xBF\xBF", replaced},
                                           Bytes{"\xF4\x90\x80\x80", replaced}));

INSTANTIATE_TEST_SUITE_P(
    BrokenSequences, DocumentTextTest,
    ::testing::Values(Bytes{"\x80", replaced}, Bytes{"\xFF", replaced}, Bytes{"\xC3", replaced},
                      Bytes{"\xC3(", replaced + "("}, Bytes{"\xE2\x82", replaced + replaced},
                      Bytes{"\xE2\x82z", replaced + replaced + "z"},
                      Bytes{"\xF0\x9F\x98", replaced + replaced + replaced},
                      Bytes{"\xC3\xC3\xA9", replaced + "\xC3\xA9"},
                      Bytes{"\xC0\xAF", replaced + replaced},
                      Bytes{"\xE0\x80\xAF", replaced + replaced + replaced},
                      Bytes{"\xF0\x80\x80\xAF", replaced + replaced + replaced + replaced},
                      Bytes{"\xF5\x80\x80\x80", replaced + replaced + replaced + replaced}));

/** Values and names that hold any bytes, in a document. */
class XmlBytesTest : public ManagerTest {
protected:
    /** The attribute of the leaf "/A/p" as a parser reads it back. */
    std::string readBack(const PropertyAccessor& accessor, const char* attribute) {
        use({{"/A/p", accessor}});
        const XmlTree tree = parseXml(documentFor({{"A", {"p"}}}));
        if (!tree) {
            return "(no document)";
        }
        return attributeOf(firstElement(firstElement(deviceOf(tree)->children)->children),
                           attribute);
    }
};

TEST_F(XmlBytesTest, ValueThatXmlCarriesIsReadBackAsItWas) {
    const std::string value = "<&\"'>\t\r\n caf\xC3\xA9 \xF0\x9F\x98\x80 ]]> &amp; %s";
    EXPECT_EQ(readBack(record(answering(value)), "value"), value);
}

TEST_F(XmlBytesTest, ValueThatXmlCannotCarryIsReadBackWithReplacements) {
    const std::string value("a\x01"
                            "b\xFF"
                            "c\0d",
                            7);
    EXPECT_EQ(readBack(record(answering(value)), "value"),
              "a" + replaced + "b" + replaced + "c" + replaced + "d");
}

TEST_F(XmlBytesTest, FixedDefaultIsMadeFitToo) {
    EXPECT_EQ(readBack(recordWithDefault("\x02", answering("")), "default"), replaced);
}

TEST_F(XmlBytesTest, DefaultOfAGetterIsMadeFitToo) {
    EXPECT_EQ(readBack(record(answering(""), answering("\x02")), "default"), replaced);
}

TEST_F(XmlBytesTest, NamesAreMadeFitToo) {
    use({{"/A\x01/p\xFF", record(answering("v"))}});
    EXPECT_THAT(leafPaths(documentFor({{"", {"*"}}})),
                ElementsAre("/A" + replaced + "/p" + replaced));
}

TEST_F(XmlBytesTest, PathsShareAMenuWhoseNameWasMadeFit) {
    use({{"/A\x01/p", record(answering("v"))}, {"/A\x01/q", record(answering("v"))}});
    EXPECT_EQ(insideDevice(documentFor({{"", {"*"}}})),
              "    <menu name=\"A" + replaced +
                  "\">\n"
                  "      <property name=\"p\" default=\"\" value=\"v\"/>\n"
                  "      <property name=\"q\" default=\"\" value=\"v\"/>\n"
                  "    </menu>\n");
}

} // namespace
