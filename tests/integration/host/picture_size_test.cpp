#include "HostTest.h"

#include "TvControlService.h"
#include "vconf.h"

namespace KLX::Host {
namespace {

constexpr auto key = "db/menu/picture/picturesize/mode";

IVideoControl* createVideo(int profile = 1, int index = 0) {
    IVideoControl* control = nullptr;
    TvControlService::CreateVideoControl(profile, index, &control);
    return control;
}

class PictureSize : public HostTest {};

TEST_F(PictureSize, IsTheOneThatTheSettingsStoreHolds) {
    IVideoControl* const control = createVideo();
    ASSERT_NE(control, nullptr);
    int size = -1;
    EXPECT_GE(control->GetPictureSize(&size), 0);
    EXPECT_EQ(size, 0);
    EXPECT_GE(control->SetPictureSize(2, 1), 0);
    EXPECT_GE(control->GetPictureSize(&size), 0);
    EXPECT_EQ(size, 2);
    int stored = -1;
    EXPECT_EQ(vconf_get_int(key, &stored), success);
    EXPECT_EQ(stored, 2);
    TvControlService::Destroy(control);
}

TEST_F(PictureSize, StaysWhenTheSetDoesNotKnowTheNewOne) {
    IVideoControl* const control = createVideo();
    EXPECT_LT(control->SetPictureSize(4711, 1), 0);
    int size = -1;
    EXPECT_GE(control->GetPictureSize(&size), 0);
    EXPECT_EQ(size, 0);
    EXPECT_LT(control->GetPictureSize(nullptr), 0);
}

TEST_F(PictureSize, CostsNothingWhenAControlIsLeftBehind) {
    EXPECT_EQ(createVideo(), createVideo());
}

TEST_F(PictureSize, HasAControlForTheMainScreenOnly) {
    EXPECT_EQ(createVideo(0, 0), nullptr);
    EXPECT_EQ(createVideo(1, 1), nullptr);
    EXPECT_LT(TvControlService::CreateVideoControl(1, 0, nullptr), 0);
    EXPECT_EQ(TvControlService::Destroy(nullptr), 0);
}

} // namespace
} // namespace KLX::Host
