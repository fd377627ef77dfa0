#include "DocumentsTest.h"

#include "Exception.h"

#include <libxml/parser.h>
#include <libxml/xmlerror.h>

#include <functional>

namespace fake = klx::fake;
using fake::Line;
using ::testing::_;
using ::testing::AllOf;
using ::testing::Contains;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

constexpr const char* operation = "SetDeviceInfo";

const std::string muteXml = xmlDocument(xmlMenu("Sound", xmlProperty("Mute", "1")));
const std::string muteJson = R"({"Sound": {"Mute": {"Value": "1"}}})";

class SetDeviceInfoTest : public DocumentsTest {
protected:
    SetDeviceInfoTest() { records.add("/Sound/Mute"); }

    /** Throws `exception` while the line with this message is being logged. */
    template <class E>
    void throwAtLine(const std::string& message, E exception) {
        scene.onCall("__dlog_print", [message, exception] {
            if (fake::logs().back().message == message) {
                throw exception;
            }
        });
    }
};

class BothFormatsTest : public SetDeviceInfoTest,
                        public ::testing::WithParamInterface<CDeviceInfoManager::DataFormatType> {};

TEST_P(BothFormatsTest, EmptyDocumentIsRefused) {
    EXPECT_FALSE(restore("", GetParam()));
    EXPECT_THAT(logText(), ElementsAre("4 SetDeviceInfo: SetDeviceInfo start",
                                       "4 SetDeviceInfo: deviceInfoData is empty"));
}

TEST_P(BothFormatsTest, EmptyDocumentDoesNotCreateTheInstance) {
    DeviceInfoManagerSeam::uninstall();
    EXPECT_FALSE(restore("", GetParam()));
    EXPECT_THAT(fake::logs(), Not(Contains(Line(4, _, "initializing deviceMap"))));
}

TEST_P(BothFormatsTest, FirstRestoreCreatesTheInstance) {
    DeviceInfoManagerSeam::uninstall();
    EXPECT_TRUE(restore(GetParam() == json ? muteJson : muteXml, GetParam()));
    EXPECT_THAT(linesOf(operation),
                ElementsAre("4 SetDeviceInfo start", "4 Not yet initialized, initializing..."));
    EXPECT_THAT(fake::logs(), Contains(Line(4, "CDeviceInfoManager", "initializing deviceMap")));
    EXPECT_THAT(fake::callsTo("sound_manager_set_master_mute"),
                ElementsAre("sound_manager_set_master_mute(true)"));
}

INSTANTIATE_TEST_SUITE_P(Formats, BothFormatsTest, ::testing::Values(json, xml),
                         [](const auto& test) { return nameOf(test.param); });

TEST_F(SetDeviceInfoTest, OtherFormatsAreRefused) {
    for (const int format : {-1, 2, 1000}) {
        EXPECT_FALSE(restore(muteXml, static_cast<CDeviceInfoManager::DataFormatType>(format)));
        EXPECT_THAT(linesOf(operation),
                    ElementsAre("4 SetDeviceInfo start", "4 invalid data format"));
    }
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(SetDeviceInfoTest, EmptyDocumentIsToldBeforeAnInvalidFormat) {
    EXPECT_FALSE(restore("", static_cast<CDeviceInfoManager::DataFormatType>(2)));
    EXPECT_THAT(linesOf(operation), Contains("4 deviceInfoData is empty"));
}

TEST_F(SetDeviceInfoTest, DocumentOfTheOtherFormatIsRefused) {
    EXPECT_FALSE(restore(muteJson, xml));
    EXPECT_FALSE(restore(muteXml, json));
    EXPECT_THAT(records.applied(), IsEmpty());
}

TEST_F(SetDeviceInfoTest, TextThatIsNoXmlIsLoggedAsTheException) {
    EXPECT_FALSE(restore("nonsense", xml));
    EXPECT_THAT(linesOf(operation), ElementsAre("4 SetDeviceInfo start",
                                                "5 exception: [Failed to parse XML from string]"));
}

TEST_F(SetDeviceInfoTest, TextThatIsNoJsonIsLoggedByItsReader) {
    EXPECT_FALSE(restore("nonsense", json));
    EXPECT_THAT(fake::logs(),
                ElementsAre(Line(4, operation, "SetDeviceInfo start"),
                            Line(5, "createJsonNode",
                                 "could not read json data = [* Line 1, Column 1\n"
                                 "  Syntax error: value, object or array expected.\n]"),
                            Line(4, operation, "could not create jsonNode")));
}

TEST_F(SetDeviceInfoTest, JsonReaderThatThrowsIsLogged) {
    EXPECT_FALSE(restore(std::string(2000, '['), json));
    EXPECT_THAT(fake::logs(), ElementsAre(Line(4, operation, "SetDeviceInfo start"),
                                          Line(5, "createJsonNode",
                                               "exception: [Exceeded stackLimit in readValue().]"),
                                          Line(4, operation, "could not create jsonNode")));
}

TEST_F(SetDeviceInfoTest, JsonReaderThatThrowsAnythingIsLogged) {
    fake::clearHistory();
    scene.onCall("__dlog_print", [] {
        if (fake::logs().back().message.find("could not read") == 0) {
            throw 7;
        }
    });
    EXPECT_FALSE(restore("nonsense", json));
    EXPECT_THAT(linesOf("createJsonNode"), Contains("5 unknown error occured"));
}

TEST_F(SetDeviceInfoTest, FailureWhileJsonIsAppliedIsLoggedAndNoFailureOfTheCall) {
    throwAtLine("menu=[Sound]", KLX::Exception("log is full"));
    EXPECT_TRUE(restore(R"({"Alarm": {"A": {"Value": "1"}}, "Sound": {}})", json));
    EXPECT_THAT(linesOf("parseJsonData"), ElementsAre("4 start", "4 menu=[Alarm]", "4 menu=[Sound]",
                                                      "5 exception: [log is full]"));
}

TEST_F(SetDeviceInfoTest, AnythingThrownWhileJsonIsAppliedIsLogged) {
    throwAtLine("menu=[Sound]", 7);
    EXPECT_TRUE(restore(muteJson, json));
    EXPECT_THAT(linesOf("parseJsonData"), Contains("6 Exception in parseJsonData"));
}

TEST_F(SetDeviceInfoTest, NothingEscapesWhateverIsThrown) {
    throwAtLine("SetDeviceInfo start", 7);
    EXPECT_FALSE(restore(muteXml, xml));
    EXPECT_THAT(linesOf(operation), Contains("6 Exception in setDeviceInfo"));
    throwAtLine("SetDeviceInfo start", std::runtime_error("log is full"));
    EXPECT_FALSE(restore(muteXml, xml));
    EXPECT_THAT(linesOf(operation), Contains("5 exception: [log is full]"));
}

class ParserNoiseTest : public SetDeviceInfoTest {};

TEST_F(ParserNoiseTest, GoesToTheLogAtDebugPriority) {
    EXPECT_FALSE(restore("<rm_as><open></rm_as>", xml));
    EXPECT_THAT(fake::logs(),
                Contains(Line(3, _, "Opening and ending tag mismatch: open line 1 and rm_as")));
}

TEST_F(ParserNoiseTest, OfADocumentThatIsAcceptedGoesToTheLogToo) {
    EXPECT_TRUE(restore("<x:rm_as/>", xml));
    EXPECT_THAT(fake::messages(3), ElementsAre("Namespace prefix x on rm_as is not defined"));
}

TEST_F(ParserNoiseTest, NeverReachesStandardError) {
    ::testing::internal::CaptureStderr();
    restore("<rm_as><open></rm_as>", xml);
    restore("<x:rm_as>&undefined;</x:rm_as>", xml);
    restore("{", json);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

int structuredCalls = 0;
int genericCalls = 0;
void countStructured(void*, xmlErrorPtr) {
    ++structuredCalls;
}
void countGeneric(void*, const char*, ...) {
    ++genericCalls;
}

/** libxml2's handlers as the caller has set them. */
class CallersHandlersTest : public SetDeviceInfoTest {
protected:
    CallersHandlersTest() { structuredCalls = genericCalls = 0; }
    ~CallersHandlersTest() override {
        xmlSetStructuredErrorFunc(nullptr, nullptr);
        xmlSetGenericErrorFunc(nullptr, nullptr);
    }
};

TEST_F(CallersHandlersTest, AreNotCalled) {
    xmlSetStructuredErrorFunc(this, &countStructured);
    xmlSetGenericErrorFunc(this, &countGeneric);
    restore("<rm_as><open></rm_as>", xml);
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    restore("<rm_as><open></rm_as>", xml);
    EXPECT_EQ(structuredCalls, 0);
    EXPECT_EQ(genericCalls, 0);
}

TEST_F(CallersHandlersTest, AreInPlaceAgainAfterSuccessAndFailure) {
    for (const std::string& document : {muteXml, std::string("<open>"), std::string("<rm_as>")}) {
        xmlSetStructuredErrorFunc(this, &countStructured);
        xmlSetGenericErrorFunc(&scene, &countGeneric);
        restore(document, xml);
        EXPECT_EQ(xmlStructuredError, &countStructured);
        EXPECT_EQ(xmlStructuredErrorContext, this);
        EXPECT_EQ(xmlGenericError, &countGeneric);
        EXPECT_EQ(xmlGenericErrorContext, &scene);
    }
}

TEST_F(CallersHandlersTest, AreInPlaceAgainAfterAnExceptionBetweenTheElements) {
    xmlSetStructuredErrorFunc(this, &countStructured);
    EXPECT_FALSE(restore(xmlDocument("<menu/>"), xml));
    EXPECT_EQ(xmlStructuredError, &countStructured);
    EXPECT_EQ(xmlStructuredErrorContext, this);
}

TEST_F(CallersHandlersTest, AreInForceWhenNoneWasSetEither) {
    restore("<open>", xml);
    EXPECT_EQ(xmlStructuredError, nullptr);
    EXPECT_EQ(xmlStructuredErrorContext, nullptr);
}

} // namespace
