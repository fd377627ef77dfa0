#include "CpuInfo.h"
#include "Exception.h"
#include "ManagerTest.h"
#include "ShellSeam.h"

#include <memory>
#include <stdexcept>

using namespace klx::test;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/** The operations that hand a question on and need no instance. */
class ForwardersTest : public ManagerTest {
protected:
    ~ForwardersTest() override { EXPECT_EQ(seam->instance(), nullptr); }

    /** Lets the first line that is logged throw. */
    template <class E>
    void throwAtFirstLine(E exception) {
        const auto first = std::make_shared<bool>(true);
        scene.onCall("__dlog_print", [first, exception] {
            if (std::exchange(*first, false)) {
                throw exception;
            }
        });
    }

    /** The log has this line of the operation's own edge. */
    static void expectEdgeLine(const std::string& operation, const std::string& message) {
        EXPECT_THAT(fake::logs(), Contains(managerLine(5, operation, message)));
        fake::clearHistory();
    }

    ShellSeam shell;
};

TEST_F(ForwardersTest, FmsTextIsAskedForByKeyAndType) {
    scene.feature("com.velmora/key", std::string("value"));
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("com.velmora/key", "string"), "value");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_custom_string(\"com.velmora/key\")"));
}

TEST_F(ForwardersTest, FmsTypeDecidesTheCall) {
    scene.feature("flag", true).feature("number", 7);
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("flag", "bool"), "1");
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("number", "int"), "7");
    EXPECT_THAT(fake::calls(), ElementsAre("system_info_get_custom_bool(\"flag\")",
                                           "system_info_get_custom_int(\"number\")"));
}

TEST_F(ForwardersTest, FmsValueIsSetWithKeyAndValueUnchanged) {
    CDeviceInfoManager::setFMSvalue("com.velmora/key", "a value");
    EXPECT_THAT(shell.asked, ElementsAre("system(\"fconfigd -s com.velmora/key a value\")"));
    EXPECT_THAT(fake::calls(), IsEmpty());
}

TEST_F(ForwardersTest, CpuInfoIsFilled) {
    CPU_INFO info{};
    EXPECT_EQ(CDeviceInfoManager::getCPUInfo(info), 1);
    EXPECT_GT(info.idle + info.user + info.system, 0u);
}

TEST_F(ForwardersTest, CpuUsageIsAPercentage) {
    int usage = -1;
    EXPECT_EQ(CDeviceInfoManager::getCPUusage(usage), 1);
    EXPECT_GE(usage, 0);
    EXPECT_LE(usage, 100);
}

TEST_F(ForwardersTest, MemInfoGivesFreeUsedAndTotal) {
    long long free = -1;
    long long used = -2;
    long long total = -3;
    EXPECT_EQ(CDeviceInfoManager::getMemInfo(free, used, total), 1);
    EXPECT_GE(free, 0);
    EXPECT_GT(used, 0);
    EXPECT_EQ(total, free + used);
}

TEST_F(ForwardersTest, NeverInitialise) {
    CPU_INFO info{};
    long long number = 0;
    CDeviceInfoManager::getFMSvalue("key", "string");
    CDeviceInfoManager::setFMSvalue("key", "value");
    CDeviceInfoManager::getCPUInfo(info);
    CDeviceInfoManager::getMemInfo(number, number, number);
    CDeviceInfoManager::getMemoryUsage(number);
    EXPECT_THAT(fake::messages(4), ::testing::Not(Contains("Not yet initialized")));
    EXPECT_THAT(fake::messages(4), ::testing::Not(Contains("initializing deviceMap")));
}

TEST_F(ForwardersTest, ExceptionOfAnFmsCallEndsThere) {
    throwAtFirstLine(KLX::Exception("broken"));
    EXPECT_EQ(CDeviceInfoManager::getFMSvalue("key", "string"), "");
    expectEdgeLine("getFMSvalue", "exception occured =[broken]");
    throwAtFirstLine(std::runtime_error("untold"));
    CDeviceInfoManager::setFMSvalue("key", "value");
    expectEdgeLine("setFMSvalue", "UNKNOWN exception occured");
    EXPECT_THAT(shell.asked, IsEmpty());
}

TEST_F(ForwardersTest, ExceptionOfADiagnosticCallIsZero) {
    CPU_INFO info{};
    int usage = 0;
    long long number = 0;
    throwAtFirstLine(5);
    EXPECT_EQ(CDeviceInfoManager::getCPUInfo(info), 0);
    expectEdgeLine("getCPUInfo", "UNKNOWN exception occured");
    throwAtFirstLine(5);
    EXPECT_EQ(CDeviceInfoManager::getCPUusage(usage), 0);
    expectEdgeLine("getCPUusage", "UNKNOWN exception occured");
    throwAtFirstLine(KLX::Exception("broken"));
    EXPECT_EQ(CDeviceInfoManager::getMemInfo(number, number, number), 0);
    expectEdgeLine("getMemInfo", "exception occured =[broken]");
    throwAtFirstLine(5);
    EXPECT_EQ(CDeviceInfoManager::getMemoryUsage(number), 0);
    expectEdgeLine("getMemoryUsage", "UNKNOWN exception occured");
}

} // namespace
