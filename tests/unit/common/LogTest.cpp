#include "Log.h"
#include "LogMatchers.h"

#include <gmock/gmock.h>

#include <string>
#include <string_view>

namespace fake = klx::fake;
using fake::Line;
using fake::LineIn;
using ::testing::ElementsAre;
using ::testing::Field;

namespace {

constexpr bool hasBaseName(const char* path, std::string_view expected) {
    return KLX::baseName(path) == expected;
}

static_assert(hasBaseName("/DeviceInfo/DeviceInfoManager.cpp", "DeviceInfoManager.cpp"));
static_assert(hasBaseName("common/Exception.cpp", "Exception.cpp"));
static_assert(hasBaseName("Exception.cpp", "Exception.cpp"));
static_assert(hasBaseName("folder/", ""));
static_assert(hasBaseName("", ""));

static_assert(KLX::LogDebug == 3 && KLX::LogInfo == 4 && KLX::LogWarning == 5 &&
              KLX::LogError == 6);

class LogTest : public ::testing::Test {
protected:
    fake::Scene scene;
};

struct Speaker {
    Speaker() { KLX_LOG(LogInfo, "constructed"); }
    void speak() const { KLX_LOG(LogInfo, "spoken"); }
    static void shout() { KLX_LOG(LogError, "shouted"); }
    template <class T>
    void tell(T) const {
        KLX_LOG(LogDebug, "told");
    }
};

void speakFreely() {
    KLX_LOG(LogWarning, "freely");
}

TEST_F(LogTest, NamesTheFunctionWithoutItsClass) {
    const Speaker speaker;
    speaker.speak();
    Speaker::shout();
    speaker.tell(1.5);
    speakFreely();
    EXPECT_THAT(fake::logs(),
                ElementsAre(Line(4, "Speaker", "constructed"), Line(4, "speak", "spoken"),
                            Line(6, "shout", "shouted"), Line(3, "tell", "told"),
                            Line(5, "speakFreely", "freely")));
}

TEST_F(LogTest, NamesTheFileByItsBaseName) {
    KLX_LOG(LogInfo, "here");
    EXPECT_THAT(fake::logs(), ElementsAre(LineIn("LogTest.cpp", 4, "TestBody", "here")));
}

TEST_F(LogTest, TellsTheLineNumber) {
    const int here = __LINE__ + 1;
    KLX_LOG(LogInfo, "here");
    EXPECT_THAT(fake::logs(), ElementsAre(Field("line", &fake::LogLine::line, here)));
}

TEST_F(LogTest, PutsThePrefixInFrontOfTheFormat) {
    KLX_LOG(LogInfo, "key=[%s] is %d", "a", 1);
    EXPECT_THAT(fake::logs(), ElementsAre(Field("format", &fake::LogLine::format,
                                                "%s: %s(%d) > key=[%s] is %d")));
}

TEST_F(LogTest, SpeaksInTheNameOfAnotherFunction) {
    const auto helper = [](const char* operation) {
        KLX_LOG_AS(operation, LogInfo, "%d", 7);
    };
    helper("GetDeviceInfo");
    EXPECT_THAT(fake::logs(), ElementsAre(LineIn("LogTest.cpp", 4, "GetDeviceInfo", "7")));
}

TEST_F(LogTest, PrintsValuesAsTheyAre) {
    KLX_LOG(LogInfo, "value=[%s]", "50% %s \"quoted\"\n[]");
    KLX_LOG(LogInfo, "value=[%s]", "");
    EXPECT_THAT(fake::messages(4), ElementsAre("value=[50% %s \"quoted\"\n[]]", "value=[]"));
}

TEST_F(LogTest, PrintsEveryKindOfArgument) {
    KLX_LOG(LogInfo, "%d %u %zu %s %c", -1, 2u, sizeof(char), "text", 'c');
    EXPECT_THAT(fake::messages(4), ElementsAre("-1 2 1 text c"));
}

TEST_F(LogTest, IsOneStatement) {
    bool told = false;
    if (!told)
        KLX_LOG(LogInfo, "told");
    else
        told = true;
    EXPECT_THAT(fake::messages(4), ElementsAre("told"));
}

} // namespace
