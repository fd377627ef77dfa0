#include "TvControlService.h"

#include "../Settings.h"
#include "Screen.h"

using namespace KLX::Host;

namespace {

constexpr auto pictureSizeKey = "db/menu/picture/picturesize/mode";

/** The picture size as the settings store keeps it. It has no state, so one serves everybody. */
class VideoControl : public IVideoControl {
public:
    int GetPictureSize(int* size) override {
        return answer(__func__, [&] {
            requirePointer(size, "size");
            *size = std::get<int>(readSetting(settingOf(pictureSizeKey), ValueType::Integer));
        });
    }

    // Only one source is shown at a time, so "at once" and "for the next source" are the same.
    int SetPictureSize(int size, int /*apply*/) override {
        return answer(__func__, [&] {
            if (currentProfile().pictureSizes.count(size) == 0) {
                throw HostFailure(HostError::OutOfRange,
                                  "the profile has no picture size " + std::to_string(size));
            }
            writeSetting(settingOf(pictureSizeKey), size);
        });
    }
};

} // namespace

int TvControlService::CreateVideoControl(int profile, int index, IVideoControl** control) {
    return answer(__func__, [&] {
        // Callers may leave a control behind; handing out the same one costs no growing memory.
        static VideoControl video;
        handOutControl(profile, index, control, video);
    });
}

int TvControlService::Destroy(ITvControl* /*control*/) {
    // Every control lives as long as the process.
    return static_cast<int>(HostError::None);
}
