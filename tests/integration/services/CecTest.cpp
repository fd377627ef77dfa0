#include "HostTest.h"

#include "cec.h"

namespace KLX::Host {
namespace {

class Cec : public HostTest {
protected:
    Cec() { unsetenv("KLX_HOST_CEC"); }
};

TEST_F(Cec, IsKeptInTheStoreWhereThereIsNoAdapter) {
    EXPECT_EQ(cec_init_proxy(), success);
    EXPECT_EQ(cec_is_enable(), 1);
    EXPECT_EQ(cec_set_enable(0), success);
    EXPECT_EQ(cec_is_enable(), 0);
    EXPECT_EQ(cec_close_proxy(), success);
    EXPECT_EQ(inOwnProcess([] { return cec_is_enable(); }), 0);
}

TEST_F(Cec, IsOnOrOff) {
    EXPECT_EQ(cec_set_enable(5), numberOf(HostError::OutOfRange));
    EXPECT_EQ(cec_is_enable(), 1);
}

TEST_F(Cec, DoesNotFallBackToTheStoreWhenANamedAdapterIsMissing) {
    ASSERT_EQ(setenv("KLX_HOST_CEC", m_folder.path("cec").c_str(), 1), 0);
    EXPECT_EQ(cec_is_enable(), numberOf(HostError::SystemFailure));
    EXPECT_EQ(cec_set_enable(1), numberOf(HostError::SystemFailure));
}

TEST_F(Cec, RefusesADeviceThatIsNoAdapter) {
    writeFile(m_folder.path("cec"), "");
    ASSERT_EQ(setenv("KLX_HOST_CEC", m_folder.path("cec").c_str(), 1), 0);
    EXPECT_EQ(cec_is_enable(), numberOf(HostError::SystemFailure));
    EXPECT_EQ(cec_set_enable(1), numberOf(HostError::SystemFailure));
}

} // namespace
} // namespace KLX::Host
