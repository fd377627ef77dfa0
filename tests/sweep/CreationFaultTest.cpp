#include "AllocationFaults.h"
#include "DeviceInfoManager.h"
#include "Documents.h"
#include "KnowingScene.h"
#include "LogMatchers.h"
#include "Operations.h"
#include "Stride.h"

#include <gmock/gmock.h>

#include <sys/wait.h>
#include <unistd.h>

using namespace klx::test;
namespace fake = klx::fake;

namespace {

/** How a process ended that made the first call of all. */
enum Ending : int { undisturbed, survived, wrong };

/** The instance is there, or is made now, and knows all properties. */
bool serves() {
    std::string document;
    return CDeviceInfoManager::Initialize() &&
           CDeviceInfoManager::GetDeviceInfo({{"Sound", {"*"}}}, document, "",
                                             CDeviceInfoManager::DATA_FORMAT_XML) &&
           entriesOf(document).count("/Sound/Mute") == 1 && allPaths().size() == 122;
}

bool wasTold() {
    return !fake::messages(5).empty() || !fake::messages(6).empty();
}

Ending makeFirstCall(const PreparedCall& call, int nth) {
    Answer answer;
    AllocationFaults faults(nth);
    call(answer);
    faults.disarm();
    if (!faults.metFault()) {
        return answer.done && serves() ? undisturbed : wrong;
    }
    return (answer.done || wasTold()) && serves() ? survived : wrong;
}

/** Runs the body in a process of its own. @return its ending, or minus the signal that ended it */
template <class Body>
int inOwnProcess(Body body) {
    const pid_t child = fork();
    if (child == 0) {
        _exit(body());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/** The first call of a process; this process itself never makes one. */
class CreationFaultTest : public ::testing::TestWithParam<Operation> {
protected:
    CreationFaultTest() { programServices(scene); }

    fake::Scene scene;
};

TEST_P(CreationFaultTest, IsTriedAgainAndToldInTheLogOnlyWhicheverAllocationFails) {
    const PreparedCall call = GetParam().prepare("/Sound/Mute");
    ::testing::internal::CaptureStderr();
    int ending = survived;
    int failed = 0;
    const Stride stride = strideForLongSweeps(KLX_CREATION_STRIDE);
    for (int nth = stride.first; ending == survived; nth += stride.step) {
        ending = inOwnProcess([&call, nth] { return makeFirstCall(call, nth); });
        EXPECT_THAT(ending, ::testing::AnyOf(survived, undisturbed)) << "allocation " << nth;
        failed += ending == survived ? 1 : 0;
    }
    EXPECT_GT(failed, 0);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_P(CreationFaultTest, SucceedsWhicheverLineTheLogRefuses) {
    const PreparedCall call = GetParam().prepare("/Sound/Mute");
    int ending = survived;
    for (int nth = 1; ending == survived; ++nth) {
        ending = inOwnProcess([this, &call, nth] {
            scene.failNth("__dlog_print", nth, -1);
            const Ending first = makeFirstCall(call, 0);
            const bool metFault = fake::logs().size() >= static_cast<std::size_t>(nth);
            return first == undisturbed && metFault ? survived : first;
        });
        EXPECT_THAT(ending, ::testing::AnyOf(survived, undisturbed)) << "line " << nth;
    }
}

TEST_P(CreationFaultTest, SucceedsWhenTheModelCannotBeTold) {
    const PreparedCall call = GetParam().prepare("/Sound/Mute");
    EXPECT_EQ(inOwnProcess([this, &call] {
                  scene.fail("system_info_get_custom_int", -1);
                  return makeFirstCall(call, 0);
              }),
              undisturbed);
}

template <CDeviceInfoManager::DataFormatType format>
PreparedCall restoring(const char* document) {
    return [text = std::string(document)](Answer& answer) mutable {
        answer.done = CDeviceInfoManager::SetDeviceInfo(std::move(text), format);
    };
}

PreparedCall restoringXml(const std::string&) {
    return restoring<CDeviceInfoManager::DATA_FORMAT_XML>(
        "<rm_as><deviceInfo><menu name=\"Sound\"><property name=\"Mute\" value=\"1\"/></menu>"
        "</deviceInfo></rm_as>");
}

PreparedCall restoringJson(const std::string&) {
    return restoring<CDeviceInfoManager::DATA_FORMAT_JSON>(
        "{\"Sound\": {\"Mute\": {\"Value\": \"1\"}}}");
}

bool needsTheInstance(const Operation& operation) {
    return ::testing::Matches(::testing::AnyOf("Initialize", "DescribeProperties",
                                               "ListInputDevices", "GetUnknown", "GetUsbDetail",
                                               "SetUnknown"))(std::string(operation.name));
}

/** Prepared without a call to the library. */
std::vector<Operation> firstCalls() {
    std::vector<Operation> calls = {{"RestoreXml", &restoringXml, true},
                                    {"RestoreJson", &restoringJson, true}};
    for (const Operation& operation : otherOperations()) {
        if (needsTheInstance(operation)) {
            calls.push_back(operation);
        }
    }
    for (const Operation& operation : operationsOnAProperty()) {
        if (std::string(operation.name).find("Restore") == std::string::npos) {
            calls.push_back(operation);
        }
    }
    return calls;
}

INSTANTIATE_TEST_SUITE_P(Each, CreationFaultTest, ::testing::ValuesIn(firstCalls()),
                         [](const auto& each) { return std::string(each.param.name); });

} // namespace
