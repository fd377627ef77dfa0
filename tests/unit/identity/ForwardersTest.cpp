#include "DeviceInfoManager.h"
#include "Exception.h"
#include "IdentityTest.h"
#include "Machine.h"

#include <stdexcept>

using ::testing::Contains;
using ::testing::ElementsAre;

/** Looks whether there is an instance of the manager. */
struct DeviceInfoManagerSeam {
    static bool hasInstance() { return CDeviceInfoManager::m_pDeviceInfoManager.load() != nullptr; }
};

namespace {

fake::LineMatcher managerLine(const std::string& function, const std::string& message) {
    return fake::LineIn("DeviceInfoManager.cpp", 5, function, message);
}

/** The manager's diagnostics, none of which creates its instance. */
class ForwardersTest : public IdentityTest {
protected:
    void TearDown() override { EXPECT_FALSE(DeviceInfoManagerSeam::hasInstance()); }

    /** Lets the log throw when it is given a line that begins with this message. */
    template <class E>
    void throwAtLine(const std::string& message, E exception) {
        scene.onCall("__dlog_print", [message, exception] {
            if (fake::logs().back().message.rfind(message, 0) == 0) {
                throw exception;
            }
        });
    }

    static int cpuInfo() {
        CPU_INFO info{};
        return CDeviceInfoManager::getCPUInfo(info);
    }

    static int cpuUsage() {
        int usage = 0;
        return CDeviceInfoManager::getCPUusage(usage);
    }

    static int memInfo() {
        long long free = 0;
        long long used = 0;
        long long total = 0;
        return CDeviceInfoManager::getMemInfo(free, used, total);
    }

    static int memoryUsage() {
        long long used = 0;
        return CDeviceInfoManager::getMemoryUsage(used);
    }

    Machine machine;
};

TEST_F(ForwardersTest, ConfigurationIsRead) {
    scene.feature("com.velmora/x", "on");
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("com.velmora/x", "string"), "on");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_custom_string(\"com.velmora/x\")"));
}

TEST_F(ForwardersTest, ConfigurationIsWritten) {
    CDeviceInfoManager::setFMSvalue("com.velmora/x", "12");
    EXPECT_THAT(machine.asked, ElementsAre("system(\"fconfigd -s com.velmora/x 12\")"));
}

TEST_F(ForwardersTest, ProcessorTimes) {
    machine.processorTimes = {"cpu  1 2 3 4 5 6 7 8 9 10\n"};
    CPU_INFO info{};
    EXPECT_EQ(CDeviceInfoManager::getCPUInfo(info), 1);
    EXPECT_EQ(info.user, 1U);
    EXPECT_EQ(info.softirq, 7U);
}

TEST_F(ForwardersTest, ProcessorUsage) {
    machine.processorTimes = {"cpu  0 0 0 0 0 0 0 0 0 0\n", "cpu  25 0 0 75 0 0 0 0 0 0\n"};
    int usage = -1;
    EXPECT_EQ(CDeviceInfoManager::getCPUusage(usage), 1);
    EXPECT_EQ(usage, 25);
}

TEST_F(ForwardersTest, Storage) {
    machine.storage.emplace();
    machine.storage->f_bsize = 100;
    machine.storage->f_blocks = 10;
    machine.storage->f_bfree = 4;
    machine.storage->f_bavail = 3;
    long long free = 0;
    long long used = 0;
    long long total = 0;
    EXPECT_EQ(CDeviceInfoManager::getMemInfo(free, used, total), 1);
    EXPECT_EQ(free, 230);
    EXPECT_EQ(used, 670);
    EXPECT_EQ(total, 900);
}

TEST_F(ForwardersTest, Memory) {
    machine.memory.emplace();
    machine.memory->totalram = 10;
    machine.memory->freeram = 4;
    machine.memory->mem_unit = 100;
    long long used = 0;
    EXPECT_EQ(CDeviceInfoManager::getMemoryUsage(used), 1);
    EXPECT_EQ(used, 600);
}

TEST_F(ForwardersTest, FailuresArePassedOn) {
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("com.velmora/x", "int"), "");
    EXPECT_EQ(cpuInfo(), 0);
    EXPECT_EQ(cpuUsage(), 0);
    EXPECT_EQ(memInfo(), 0);
    EXPECT_EQ(memoryUsage(), 0);
}

TEST_F(ForwardersTest, ExceptionFromThePlatformGivesNothing) {
    scene.throwFrom("system_info_get_custom_int", KLX::Exception("no service"));
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("com.velmora/x", "int"), "");
    scene.throwFrom("system_info_get_custom_bool", std::runtime_error("standard"));
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("com.velmora/x", "bool"), "");
    scene.throwFrom("system_info_get_custom_string", 5);
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("com.velmora/x", "string"), "");
    EXPECT_THAT(fake::logs(),
                Contains(managerLine("getFMSvalue", "exception occured =[no service]")));
    EXPECT_THAT(fake::logs(),
                Contains(managerLine("getFMSvalue", "UNKNOWN exception occured")).Times(2));
}

TEST_F(ForwardersTest, ExceptionFromTheShellIsLogged) {
    machine.shell = [](const std::string&) -> int {
        throw KLX::Exception("no shell");
    };
    CDeviceInfoManager::setFMSvalue("com.velmora/x", "12");
    machine.shell = [](const std::string&) -> int {
        throw 5;
    };
    CDeviceInfoManager::setFMSvalue("com.velmora/x", "12");
    EXPECT_THAT(fake::messages(5),
                ElementsAre("exception occured =[no shell]", "UNKNOWN exception occured"));
    EXPECT_THAT(fake::logs(), Contains(managerLine("setFMSvalue", "UNKNOWN exception occured")));
}

TEST_F(ForwardersTest, ExceptionFromTheLogGivesZero) {
    throwAtLine("getCPUInfo", KLX::Exception("full"));
    EXPECT_EQ(cpuInfo(), 0);
    throwAtLine("getCPUusage", std::runtime_error("full"));
    EXPECT_EQ(cpuUsage(), 0);
    throwAtLine("statvfs failed", 5);
    EXPECT_EQ(memInfo(), 0);
    throwAtLine("getMemoryUsage", KLX::Exception("full"));
    EXPECT_EQ(memoryUsage(), 0);
    EXPECT_THAT(fake::logs(), ::testing::IsSupersetOf(
                                  {managerLine("getCPUInfo", "exception occured =[full]"),
                                   managerLine("getCPUusage", "UNKNOWN exception occured"),
                                   managerLine("getMemInfo", "UNKNOWN exception occured"),
                                   managerLine("getMemoryUsage", "exception occured =[full]")}));
}

} // namespace
