#include "Exception.h"
#include "FailingCall.h"
#include "ManagerTest.h"
#include "MutexFault.h"

#include <cerrno>
#include <stdexcept>

using namespace klx::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

const auto creation = managerLine(4, "CDeviceInfoManager", "initializing deviceMap");

bool get() {
    std::string value;
    return CDeviceInfoManager::GetDevicePropertyValue("Picture", "Nothing", value);
}

bool set() {
    return CDeviceInfoManager::SetDevicePropertyValue("Picture", "Nothing", "1");
}

bool query() {
    std::string document;
    return CDeviceInfoManager::GetDeviceInfo({}, document, "", CDeviceInfoManager::DATA_FORMAT_XML);
}

/** The manager before and while its instance is created. */
class ManagerLifecycleTest : public ManagerTest {
protected:
    static fake::LineMatcher notYet(const std::string& operation) {
        return managerLine(4, operation, "Not yet initialized");
    }

    /** Whether an operation succeeds while the creation throws, which leaves no instance. */
    template <class E>
    bool succeedsWhileCreationThrows(bool (*operation)(), E exception) {
        throwAtLine("initializing deviceMap", exception);
        const bool succeeded = operation();
        EXPECT_EQ(seam->instance(), nullptr);
        scene.restore("__dlog_print");
        return succeeded;
    }
};

TEST_F(ManagerLifecycleTest, ExplicitInitialisationCreatesTheInstance) {
    EXPECT_TRUE(CDeviceInfoManager::Initialize());
    EXPECT_NE(seam->instance(), nullptr);
    EXPECT_THAT(fake::logs(), ElementsAre(creation));
}

TEST_F(ManagerLifecycleTest, SecondInitialisationKeepsTheInstance) {
    CDeviceInfoManager::Initialize();
    const void* const first = seam->instance();
    fake::clearHistory();
    EXPECT_TRUE(CDeviceInfoManager::Initialize());
    EXPECT_EQ(seam->instance(), first);
    EXPECT_THAT(fake::logs(), ElementsAre(managerLine(4, "Initialize", "Already initialized")));
}

TEST_F(ManagerLifecycleTest, FirstReadCreatesTheInstance) {
    EXPECT_TRUE(get());
    EXPECT_THAT(
        fake::logs(),
        ElementsAre(readLine("Picture", "Nothing"), notYet("GetDevicePropertyValue"), creation,
                    managerLine(5, "m_getPropValue", "key=[/Picture/Nothing] does not exist"),
                    gaveLine("")));
}

TEST_F(ManagerLifecycleTest, FirstWriteCreatesTheInstance) {
    EXPECT_TRUE(set());
    EXPECT_THAT(fake::logs(),
                ElementsAre(writeLine("Picture", "Nothing", "1"), notYet("SetDevicePropertyValue"),
                            creation, keyLine("/Picture/Nothing", "1"),
                            managerLine(4, "propertySet", "menuID [/Picture/Nothing] not found")));
}

TEST_F(ManagerLifecycleTest, FirstQueryCreatesTheInstance) {
    EXPECT_TRUE(query());
    EXPECT_THAT(fake::logs(),
                ElementsAre(managerLine(4, "GetDeviceInfo", "GetDeviceInfo retDataFormat = [1]"),
                            notYet("GetDeviceInfo"), creation));
}

TEST_F(ManagerLifecycleTest, InitialisationAfterAReadFindsTheInstance) {
    get();
    fake::clearHistory();
    EXPECT_TRUE(CDeviceInfoManager::Initialize());
    EXPECT_THAT(fake::messages(4), ElementsAre("Already initialized"));
}

TEST_F(ManagerLifecycleTest, LaterOperationsFindTheInstance) {
    CDeviceInfoManager::Initialize();
    const void* const first = seam->instance();
    fake::clearHistory();
    EXPECT_TRUE(get() && set() && query());
    EXPECT_EQ(seam->instance(), first);
    EXPECT_THAT(fake::messages(4), Not(Contains("Not yet initialized")));
    EXPECT_THAT(fake::messages(4), Not(Contains("Already initialized")));
}

TEST_F(ManagerLifecycleTest, InstanceHoldsTheCatalogue) {
    scene.store("db/menu/caption/caption", 1);
    std::string value;
    EXPECT_TRUE(CDeviceInfoManager::GetDevicePropertyValue("General & Privacy/Accessibility",
                                                           "Caption Settings/Caption", value));
    EXPECT_EQ(value, "1");
}

TEST_F(ManagerLifecycleTest, FailedCreationIsLoggedByTheOperationThatNeedsIt) {
    EXPECT_FALSE(succeedsWhileCreationThrows(&CDeviceInfoManager::Initialize, KLX::Exception("a")));
    EXPECT_FALSE(succeedsWhileCreationThrows(&get, KLX::Exception("b")));
    EXPECT_FALSE(succeedsWhileCreationThrows(&query, KLX::Exception("c")));
    EXPECT_FALSE(succeedsWhileCreationThrows(&set, KLX::Exception("d")));
    EXPECT_THAT(
        fake::logs(),
        ::testing::IsSupersetOf({managerLine(5, "Initialize", "exception occured =[a]"),
                                 managerLine(5, "GetDevicePropertyValue", "exception occured =[b]"),
                                 managerLine(5, "GetDeviceInfo", "exception occured =[c]"),
                                 managerLine(5, "SetDevicePropertyValue", "exception: [d]")}));
}

TEST_F(ManagerLifecycleTest, FailedCreationOfAnotherKindIsUnknown) {
    EXPECT_FALSE(succeedsWhileCreationThrows(&CDeviceInfoManager::Initialize, 5));
    EXPECT_FALSE(succeedsWhileCreationThrows(&get, 5));
    EXPECT_FALSE(succeedsWhileCreationThrows(&query, std::runtime_error("standard")));
    EXPECT_FALSE(succeedsWhileCreationThrows(&set, 5));
    EXPECT_THAT(
        fake::logs(),
        ::testing::IsSupersetOf(
            {managerLine(5, "Initialize", "UNKNOWN exception occured"),
             managerLine(5, "GetDevicePropertyValue", "UNKNOWN exception occured"),
             managerLine(5, "GetDeviceInfo", "UNKNOWN exception occured"),
             managerLine(5, "SetDevicePropertyValue", "Exception in SetDevicePropertyValue")}));
}

TEST_F(ManagerLifecycleTest, FailedCreationIsTriedAgainByTheNextCall) {
    EXPECT_FALSE(succeedsWhileCreationThrows(&get, 5));
    fake::clearHistory();
    EXPECT_TRUE(get());
    EXPECT_THAT(fake::logs(), Contains(notYet("GetDevicePropertyValue")));
    EXPECT_THAT(fake::logs(), Contains(creation));
    EXPECT_NE(seam->instance(), nullptr);
}

TEST_F(ManagerLifecycleTest, CreationWithoutMemoryFailsAndIsTriedAgain) {
    {
        const FailingCall fault(Failing::operatorNew);
        EXPECT_FALSE(CDeviceInfoManager::Initialize());
    }
    EXPECT_THAT(fake::logs(),
                ElementsAre(managerLine(5, "Initialize", "UNKNOWN exception occured")));
    EXPECT_EQ(seam->instance(), nullptr);
    EXPECT_TRUE(CDeviceInfoManager::Initialize());
}

TEST_F(ManagerLifecycleTest, CreationSurvivesTheFailureOfEveryAllocation) {
    bool created = false;
    int nth = 0;
    for (; !created && nth < 100000; nth += nth < 50 ? 1 : 97) {
        const FailingCall fault(Failing::operatorNew, nth + 1);
        created = CDeviceInfoManager::Initialize();
        EXPECT_EQ(created, seam->instance() != nullptr) << "allocation " << nth;
        EXPECT_TRUE(CDeviceInfoManager::Initialize()) << "after allocation " << nth;
        seam->forget();
        fake::clearHistory();
    }
    EXPECT_TRUE(created);
    EXPECT_GT(nth, 50);
}

TEST_F(ManagerLifecycleTest, InterruptedLockIsTriedAgain) {
    const MutexFault fault(EINTR);
    EXPECT_TRUE(CDeviceInfoManager::Initialize());
    EXPECT_THAT(fake::logs(), ElementsAre(creation));
}

TEST_F(ManagerLifecycleTest, LockThatCannotBeTakenFailsTheInitialisation) {
    {
        const MutexFault fault(EINVAL);
        EXPECT_FALSE(CDeviceInfoManager::Initialize());
    }
    EXPECT_THAT(fake::logs(),
                ElementsAre(managerLine(5, "Initialize", "UNKNOWN exception occured")));
    EXPECT_TRUE(CDeviceInfoManager::Initialize());
}

} // namespace
