#include "DocumentsTest.h"
#include "HeapWatch.h"

#include "Exception.h"

namespace fake = klx::fake;
using fake::Line;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

/** What stands between the document's first three lines and its last two. */
std::string elementsOf(const std::string& document) {
    const std::string head = "<deviceInfo devicetype=\"TV\">\n";
    const std::size_t begin = document.find(head) + head.size();
    return document.substr(begin, document.rfind("  </deviceInfo>") - begin);
}

class XmlDocumentTest : public DocumentsTest {
protected:
    std::string elements(const Request& request) { return elementsOf(dump(request, xml)); }
};

TEST_F(XmlDocumentTest, RequestForNothingGivesAnEmptyDocument) {
    records.add("/Picture/A");
    EXPECT_EQ(dump({}, xml), "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                             "<rm_as version=\"2.5\">\n"
                             "  <deviceInfo devicetype=\"TV\"/>\n"
                             "</rm_as>\n");
}

TEST_F(XmlDocumentTest, PropertiesShareTheElementsOfTheirCommonSegments) {
    records.add("/M/A/B", "1").add("/M/C", "2").add("/M/A/D", "3");
    EXPECT_EQ(elements({{"M", {"A/B", "C", "A/D"}}}),
              R"(    <menu name="M">
      <property name="A">
        <property name="B" default="" value="1"/>
        <property name="D" default="" value="3"/>
      </property>
      <property name="C" default="" value="2"/>
    </menu>
)");
}

TEST_F(XmlDocumentTest, TreeIsAllocatedInOnePiece) {
    Request byName;
    for (int number = 100; number < 400; ++number) {
        const std::string name = std::to_string(number);
        records.add("/M/" + name).add("/N/" + name);
        byName["M"].push_back(name);
    }
    const Request ofACategory{{"M", {"*"}}};
    const Request ofAll{{"M", {"*"}}, {"N", {"*"}}};
    for (const Request& request : {byName, ofACategory, ofAll}) {
        const HeapWatch watch(16 * mebibyte);
        dump(request, xml);
        EXPECT_EQ(watch.piecesOfResources(), 1);
    }
}

TEST_F(XmlDocumentTest, FewPropertiesTakeLittleMemoryHoweverManyThereAre) {
    for (int number = 0; number < 5000; ++number) {
        records.add("/M/" + std::to_string(number));
    }
    records.add("/N/A");
    for (const Request& request : {Request{{"M", {"1", "unknown"}}}, Request{{"N", {"*"}}}}) {
        const HeapWatch watch(16 * mebibyte);
        dump(request, xml);
        EXPECT_LT(watch.peak(), mebibyte / 8);
    }
}

TEST_F(XmlDocumentTest, AskingForEverythingManyTimesTakesNoMoreMemory) {
    for (char name = 'A'; name <= 'Z'; ++name) {
        records.add(std::string("/M/") + name, std::string(1000, name));
    }
    const auto peakOf = [this](std::size_t times) {
        Request request{{"M", std::list<std::string>(times, "*")}};
        const HeapWatch watch(16 * mebibyte);
        dump(request, xml);
        fake::clearHistory();
        return watch.peak();
    };
    EXPECT_LT(peakOf(100), 2 * peakOf(1));
}

TEST_F(XmlDocumentTest, DoubledSlashIsASlashInTheName) {
    records.add("/M/A//B/C", "1").add("/M//N/D", "2");
    EXPECT_EQ(elements({{"M", {"A//B/C", "*"}}}),
              R"(    <menu name="M">
      <property name="A/B">
        <property name="C" default="" value="1"/>
      </property>
    </menu>
    <menu name="M/N">
      <property name="D" default="" value="2"/>
    </menu>
)");
}

TEST_F(XmlDocumentTest, PropertyThatIsAlsoAMenuOfOthersHoldsBoth) {
    records.add("/M/A", "1").add("/M/A/B", "2");
    EXPECT_EQ(elements({{"M", {"*"}}}), R"(    <menu name="M">
      <property name="A" default="" value="1">
        <property name="B" default="" value="2"/>
      </property>
    </menu>
)");
}

TEST_F(XmlDocumentTest, StarOfACategoryAlsoCollectsWhatItBegins) {
    records.add("/General/A", "1").add("/General & Privacy/B", "2").add("/Generic/C", "3");
    EXPECT_EQ(elements({{"General", {"*"}}}), R"(    <menu name="General &amp; Privacy">
      <property name="B" default="" value="2"/>
    </menu>
    <menu name="General">
      <property name="A" default="" value="1"/>
    </menu>
)");
}

TEST_F(XmlDocumentTest, CategoryBeyondTheTenWorksByName) {
    records.add("/General & Privacy/B", "2");
    EXPECT_THAT(elements({{"General & Privacy", {"B"}}}),
                HasSubstr("<menu name=\"General &amp; Privacy\">"));
}

TEST_F(XmlDocumentTest, UnknownPathIsLeftOutWithoutALine) {
    records.add("/M/A", "1");
    EXPECT_EQ(elements({{"M", {"Nothing"}}}), elements({}));
    EXPECT_THAT(fake::messages(5), IsEmpty());
}

TEST_F(XmlDocumentTest, NameWithASingleQuoteEndsTheDocument) {
    records.add("/M/it's", "1");
    std::string document = "as before";
    EXPECT_FALSE(CDeviceInfoManager::GetDeviceInfo({{"M", {"*"}}}, document, "", xml));
    EXPECT_EQ(document, "as before");
    EXPECT_THAT(linesOf("GetDeviceInfo"),
                Contains("5 exception occured =[Failed to evaluate XPath: *[@name='it's']]"));
}

TEST_F(XmlDocumentTest, KeyWithoutALeadingSlashEndsTheDocument) {
    records.add("/M/A", "1").add("M/B", "1");
    std::string document;
    EXPECT_FALSE(CDeviceInfoManager::GetDeviceInfo({{"", {"*"}}}, document, "", xml));
    EXPECT_THAT(linesOf("GetDeviceInfo"),
                Contains("5 exception occured =[Invalid property name: M/B]"));
}

TEST_F(XmlDocumentTest, LinesTellWhatIsMadeAndWhereTheDefaultComesFrom) {
    records.add("/M/A", "1", boost::none).add("/M/B", "1", std::string("0"));
    dump({{"M", {"*"}}}, xml);
    EXPECT_THAT(logText(), ElementsAre("4 GetDeviceInfo: GetDeviceInfo retDataFormat = [1]",
                                       "3 createTree: Creating M", "3 createTree: Creating A",
                                       "3 m_getPropValue: There is NO fixed default value.",
                                       "3 createTree: Creating B"));
}

struct GetterFailure {
    PropertyGetter getter;
    std::string line;
};

class FailingXmlGetterTest : public XmlDocumentTest,
                             public ::testing::WithParamInterface<GetterFailure> {};

TEST_P(FailingXmlGetterTest, CostsItsOwnAttributeOnly) {
    records.answering("/M/A", argumentInBrackets, GetParam().getter);
    records.answering("/M/B", GetParam().getter, argumentInBrackets);
    EXPECT_EQ(elements({{"M", {"*"}}}), R"(    <menu name="M">
      <property name="A" default="" value="[]"/>
      <property name="B" default="[]" value=""/>
    </menu>
)");
    EXPECT_THAT(fake::logs(), Contains(Line(5, "m_getPropValue", GetParam().line)).Times(2));
}

INSTANTIATE_TEST_SUITE_P(
    Failures, FailingXmlGetterTest,
    ::testing::Values(GetterFailure{throwing(KLX::Exception("refused")), "Exception: refused"},
                      GetterFailure{PropertyGetter(), "Exception: bad_function_call"},
                      GetterFailure{throwing(std::runtime_error("broken")), "Exception: "},
                      GetterFailure{throwing(7), "Exception: "}));

class SourceConnectXmlTest : public XmlDocumentTest {};

TEST_F(SourceConnectXmlTest, DigitsOfTheKeyAreTheArgument) {
    records.answering("/Input/Source_Connect/HDMI12", argumentInBrackets, argumentInBrackets);
    EXPECT_THAT(elements({{"Input", {"*"}}}),
                HasSubstr("<property name=\"HDMI12\" default=\"[12]\" value=\"[12]\"/>"));
}

TEST_F(SourceConnectXmlTest, OtherKeysAreAskedWithTheEmptyArgument) {
    records.answering("/Input/Source_Connection2", argumentInBrackets, argumentInBrackets);
    EXPECT_THAT(elements({{"Input", {"*"}}}), HasSubstr("default=\"[]\" value=\"[]\""));
}

TEST_F(SourceConnectXmlTest, KeyWithoutDigitsHasItsFixedDefaultAndAnEmptyValue) {
    records.add("/Input/Source_Connect/HDMI", "1", std::string("0")).add("/Input/Z", "5");
    EXPECT_EQ(elements({{"Input", {"*"}}}), R"(    <menu name="Input">
      <property name="Source_Connect">
        <property name="HDMI" default="0" value=""/>
      </property>
      <property name="Z" default="" value="5"/>
    </menu>
)");
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: "));
}

TEST_F(SourceConnectXmlTest, KeyWithoutDigitsIsNotAskedAtAll) {
    bool asked = false;
    const auto getter = [&asked](const std::string&) {
        asked = true;
        return "1";
    };
    records.answering("/Input/Source_Connect/USB", getter, getter);
    EXPECT_THAT(elements({{"Input", {"*"}}}), HasSubstr("default=\"\" value=\"\""));
    EXPECT_FALSE(asked);
    EXPECT_THAT(fake::messages(5), ElementsAre("Exception: ", "Exception: "));
}

} // namespace
