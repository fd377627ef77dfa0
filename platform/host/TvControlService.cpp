#include "TvControlService.h"

#include "Boundary.h"
#include "Settings.h"

using namespace KLX::Host;

namespace {

constexpr int mainScreen = 1;
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

void checkScreen(int profile, int index) {
    if (profile != mainScreen || index != 0) {
        throw HostFailure(HostError::OutOfRange, "only profile 1, index 0 is there, not " +
                                                     std::to_string(profile) + ", " +
                                                     std::to_string(index));
    }
}

} // namespace

int TvControlService::CreateVideoControl(int profile, int index, IVideoControl** control) {
    return answer(__func__, [&] {
        requirePointer(control, "control");
        *control = nullptr;
        checkScreen(profile, index);
        // Callers may leave a control behind; handing out the same one costs no growing memory.
        static VideoControl video;
        *control = &video;
    });
}

int TvControlService::Destroy(ITvControl* /*control*/) {
    // Every control lives as long as the process.
    return static_cast<int>(HostError::None);
}
