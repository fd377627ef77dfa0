#include "FakeTest.h"
#include "TvControlService.h"
#include "connection.h"
#include "usb_device.h"

namespace klx {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HandlesTest : public FakeTest {};

TEST_F(HandlesTest, EverythingOpenIsListedInOrder) {
    scene.usbDevices({{"a", "b"}}).currentProfile(fake::Profile("home"));
    IVideoControl* first = nullptr;
    IVideoControl* second = nullptr;
    connection_h connection = nullptr;
    connection_profile_h profile = nullptr;
    connection_profile_iterator_h walk = nullptr;
    usb_device_list_h list = nullptr;
    TvControlService::CreateVideoControl(1, 0, &first);
    connection_create(&connection);
    connection_get_current_profile(connection, &profile);
    connection_get_profile_iterator(connection, CONNECTION_ITERATOR_TYPE_REGISTERED, &walk);
    usb_device_get_device_list(8, &list);
    TvControlService::CreateVideoControl(1, 0, &second);
    EXPECT_THAT(fake::openHandles(),
                ElementsAre("VideoControl", "connection", "iterator", "usb list", "VideoControl"));
    TvControlService::Destroy(first);
    connection_destroy_profile_iterator(walk);
    EXPECT_THAT(fake::openHandles(), ElementsAre("connection", "usb list", "VideoControl"));
}

TEST_F(HandlesTest, AClosedControlFailsAndIsAMisuse) {
    scene.pictureSize(4);
    IVideoControl* control = nullptr;
    TvControlService::CreateVideoControl(1, 0, &control);
    EXPECT_EQ(TvControlService::Destroy(control), 0);
    int size = 0;
    EXPECT_EQ(control->GetPictureSize(&size), fake::kBadHandle);
    EXPECT_EQ(TvControlService::Destroy(control), fake::kBadHandle);
    EXPECT_EQ(size, 0);
    EXPECT_THAT(fake::misuses(), ElementsAre("VideoControl.GetPictureSize(stale VideoControl)",
                                             "Destroy(stale VideoControl)"));
}

TEST_F(HandlesTest, AClosedConnectionIsRefused) {
    scene.connectionType(1);
    connection_h connection = nullptr;
    connection_create(&connection);
    connection_destroy(connection);
    auto type = connection_type_e{};
    EXPECT_EQ(connection_get_type(connection, &type), fake::kBadHandle);
    EXPECT_EQ(connection_destroy(connection), fake::kBadHandle);
    EXPECT_EQ(type, 0);
    EXPECT_THAT(fake::calls(), ElementsAre("connection_create()", "connection_destroy(connection)",
                                           "connection_get_type(stale connection)",
                                           "connection_destroy(stale connection)"));
}

TEST_F(HandlesTest, APointerFromElsewhereIsAMisuse) {
    int local = 0;
    EXPECT_EQ(connection_destroy(&local), fake::kBadHandle);
    EXPECT_THAT(fake::misuses(), ElementsAre("connection_destroy(unknown handle)"));
}

TEST_F(HandlesTest, ProfilesAreLentAndOutliveTheConnection) {
    scene.currentProfile(fake::Profile("home").type(2));
    connection_h connection = nullptr;
    connection_profile_h profile = nullptr;
    connection_create(&connection);
    connection_get_current_profile(connection, &profile);
    connection_destroy(connection);
    auto type = connection_profile_type_e{};
    EXPECT_EQ(connection_profile_get_type(profile, &type), 0);
    EXPECT_THAT(fake::openHandles(), IsEmpty());
}

} // namespace
} // namespace klx
