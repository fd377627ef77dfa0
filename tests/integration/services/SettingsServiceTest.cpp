#include "HostTest.h"

#include "SettingsService.h"

namespace KLX::Host {
namespace {

constexpr auto item = "autorun-multiview-rotating";

class SettingsServiceItems : public HostTest {};

TEST_F(SettingsServiceItems, AnswerWithTheirState) {
    std::string text;
    EXPECT_EQ(SettingsService::Get()->GetItemValue(item, text, ""), 0);
    EXPECT_EQ(text, "0");
    EXPECT_EQ(SettingsService::Get()->SetItemValue(item, "1", true), 0);
    EXPECT_EQ(SettingsService::Get()->GetItemValue(item, text, ""), 1);
    EXPECT_EQ(text, "1");
}

TEST_F(SettingsServiceItems, FollowTheSwitchAndNotTheText) {
    std::string text;
    EXPECT_EQ(SettingsService::Get()->SetItemValue(item, "abc", false), 0);
    EXPECT_EQ(SettingsService::Get()->GetItemValue(item, text, ""), 0);
}

TEST_F(SettingsServiceItems, AreRefusedWhenTheProfileHasNoSuchItem) {
    std::string text = "untouched";
    EXPECT_EQ(SettingsService::Get()->GetItemValue("unknown", text, ""),
              numberOf(HostError::UnknownKey));
    EXPECT_EQ(text, "untouched");
    EXPECT_EQ(SettingsService::Get()->SetItemValue("unknown", "1", true),
              numberOf(HostError::UnknownKey));
}

} // namespace
} // namespace KLX::Host
