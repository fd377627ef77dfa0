#include "HostTest.h"

#include "profile/HostFacts.h"

#include <filesystem>

namespace KLX::Host {
namespace {

constexpr int firmwareVersion = 128;
constexpr int serialNumber = 187;

class HostFactsTest : public HostTest {
protected:
    HostFactsTest() {
        for (const char* folder : {"etc", "usr/lib", "sys/class/dmi/id"}) {
            std::filesystem::create_directories(m_folder.path(folder));
        }
    }

    std::optional<std::string> find(int number) const {
        return HostFacts(m_folder.path()).find(number);
    }
};

TEST_F(HostFactsTest, TakesTheFirmwareVersionFromOsRelease) {
    writeFile(m_folder.path("usr/lib/os-release"), "PRETTY_NAME='Vendor 1'\n");
    EXPECT_EQ(find(firmwareVersion), "Vendor 1");
    writeFile(m_folder.path("etc/os-release"), "NAME=x\nPRETTY_NAME=\"Local 2 (a b)\" \nID=y\n");
    EXPECT_EQ(find(firmwareVersion), "Local 2 (a b)");
}

TEST_F(HostFactsTest, TakesTheSerialNumberFromTheBoard) {
    writeFile(m_folder.path("sys/class/dmi/id/product_serial"), "  AB-1234 \n");
    EXPECT_EQ(find(serialNumber), "AB-1234");
}

TEST_F(HostFactsTest, HasNoSerialNumberWhereTheBoardMakerLeftAPlaceholder) {
    for (const char* text : {"", "\n", "0\n", "None\n", "To be filled by O.E.M.\n",
                             "System Serial Number\n", "Default string\n", "Not Specified\n"}) {
        writeFile(m_folder.path("sys/class/dmi/id/product_serial"), text);
        EXPECT_EQ(find(serialNumber), std::nullopt) << text;
    }
}

TEST_F(HostFactsTest, HasNothingWhereTheMachineTellsNothing) {
    EXPECT_EQ(find(firmwareVersion), std::nullopt);
    EXPECT_EQ(find(serialNumber), std::nullopt);
    EXPECT_EQ(find(8), std::nullopt);
    EXPECT_FALSE(HostFacts::covers(8));
}

} // namespace
} // namespace KLX::Host
