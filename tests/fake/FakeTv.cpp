#include "FakeCore.h"
#include "TvControlService.h"

namespace klx::fake {
namespace {

/** Runs an operation of a control, unless the control has been given back. */
template <typename Body>
int operate(const ITvControl* control, const char* kind, const char* operation,
            const std::string& arguments, Body body) {
    const Inside platform;
    const std::string function = std::string(kind) + '.' + operation;
    return call(function.c_str(), arguments, [&](State& state) {
        return state.handles.find<void>(control, kind, function) == nullptr ? kBadHandle
                                                                            : body(state);
    });
}

class SourceControl : public ISourceControl {
public:
    static constexpr const char* kKind = "SourceControl";

    int GetCurrentSourceInfo(TvSourceInfo* info) override {
        return operate(this, kKind, __func__, "", [&](State& state) {
            const int status = give(state.source, &info->sourceId);
            return status == 0 ? 1 : status;
        });
    }

    int ChangeSource(int sourceId, const char* applicationId) override {
        return operate(this, kKind, __func__, args(sourceId, applicationId), [&](State& state) {
            state.source = sourceId;
            return 1;
        });
    }
};

class TunerControl : public ITunerControl {
public:
    static constexpr const char* kKind = "TunerControl";

    int GetSNRLevel(int* hundredthsOfDecibel) override {
        return operate(this, kKind, __func__, "", [&](State& state) {
            const int status = give(state.snr, hundredthsOfDecibel);
            return status == 0 ? 1 : status;
        });
    }
};

class VideoControl : public IVideoControl {
public:
    static constexpr const char* kKind = "VideoControl";

    int GetPictureSize(int* size) override {
        return operate(this, kKind, __func__, "",
                       [&](State& state) { return give(state.pictureSize, size); });
    }

    int SetPictureSize(int size, int apply) override {
        return operate(this, kKind, __func__, args(size, apply), [&](State& state) {
            state.pictureSize = size;
            return 0;
        });
    }
};

template <typename Control, typename Interface>
int create(const char* function, int profile, int index, Interface** control) {
    *control = nullptr;
    return call(function, args(profile, index), [&](State& state) {
        *control = state.handles.add(std::make_shared<Control>(), Control::kKind, Control::kKind,
                                     HandleTable::Kept::byClient);
        return 0;
    });
}

} // namespace

Scene& Scene::source(int sourceId) {
    Access()->source = sourceId;
    return *this;
}

Scene& Scene::snr(int hundredthsOfDecibel) {
    Access()->snr = hundredthsOfDecibel;
    return *this;
}

Scene& Scene::pictureSize(int size) {
    Access()->pictureSize = size;
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int TvControlService::CreateSourceControl(int profile, int index, ISourceControl** control) {
    return create<SourceControl>(__func__, profile, index, control);
}

int TvControlService::CreateTunerControl(int profile, int index, ITunerControl** control) {
    return create<TunerControl>(__func__, profile, index, control);
}

int TvControlService::CreateVideoControl(int profile, int index, IVideoControl** control) {
    return create<VideoControl>(__func__, profile, index, control);
}

int TvControlService::Destroy(ITvControl* control) {
    const char* const function = __func__;
    return callReleasing(function, args(static_cast<const void*>(control)), [&](State& state) {
        const bool closed = control == nullptr ||
                            state.handles.close(control, state.handles.kindOf(control), function);
        return closed ? 0 : kBadHandle;
    });
}
