#include "HostTest.h"

#include "cec.h"

#include <filesystem>

namespace KLX::Host {
namespace {

struct Told {
    int state;
    std::string log;
};

class Cec : public HostTest {
protected:
    Cec() { unsetenv("KLX_HOST_CEC"); }

    std::string nameAdapter() const {
        std::string path = m_folder.path("cec");
        setenv("KLX_HOST_CEC", path.c_str(), 1);
        return path;
    }

    static Told told() {
        Told result{-1, ""};
        result.log = standardErrorOf([&] { result.state = cec_is_enable(); });
        return result;
    }
};

/** A machine without an adapter. */
class CecInStore : public Cec {
protected:
    void SetUp() override {
        if (std::filesystem::exists("/dev/cec0")) {
            GTEST_SKIP() << "the adapter of this machine would be switched";
        }
    }
};

TEST_F(CecInStore, IsKeptFromProcessToProcess) {
    EXPECT_EQ(cec_init_proxy(), success);
    EXPECT_EQ(cec_is_enable(), 1);
    EXPECT_EQ(cec_set_enable(0), success);
    EXPECT_EQ(cec_is_enable(), 0);
    EXPECT_EQ(cec_close_proxy(), success);
    EXPECT_EQ(inOwnProcess([] { return cec_is_enable(); }), 0);
}

TEST_F(CecInStore, IsOnOrOff) {
    EXPECT_EQ(cec_set_enable(5), numberOf(HostError::OutOfRange));
    EXPECT_EQ(cec_is_enable(), 1);
}

TEST_F(CecInStore, IsOffWhereTheStoreCannotBeRead) {
    setenv("KLX_STATE_DIR", "/proc/nowhere", 1);
    const auto [state, log] = told();
    EXPECT_EQ(state, 0);
    EXPECT_EQ(linesIn(log), 1) << log;
}

TEST_F(Cec, DoesNotFallBackToTheStoreWhenANamedAdapterIsMissing) {
    const std::string path = nameAdapter();
    const auto [state, log] = told();
    EXPECT_EQ(state, 0);
    EXPECT_EQ(log, "warning KLX_HOST: HDMI-CEC is told as off: cannot open the CEC adapter " +
                       path + ": No such file or directory\n");
    EXPECT_EQ(cec_set_enable(1), numberOf(HostError::SystemFailure));
}

TEST_F(Cec, RefusesADeviceThatIsNoAdapter) {
    const std::string path = nameAdapter();
    writeFile(path, "");
    const auto [state, log] = told();
    EXPECT_EQ(state, 0);
    EXPECT_EQ(log, "warning KLX_HOST: HDMI-CEC is told as off: cannot ask the CEC adapter " + path +
                       ": Inappropriate ioctl for device\n");
    EXPECT_EQ(cec_set_enable(1), numberOf(HostError::SystemFailure));
}

} // namespace
} // namespace KLX::Host
