#include "FakeCore.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>

#include <libv4l2.h>
#include <linux/videodev2.h>

namespace klx::fake {
namespace {

constexpr int kFirstDescriptor = 9000;
constexpr std::size_t kVendorRoom = 8;
constexpr std::size_t kProductRoom = 16;
constexpr char kBehindTheFields = 'x';

struct VideoDevice {};

/** What the handle table knows an open descriptor by. */
const void* handleOf(int descriptor) {
    const Access state;
    const auto index = static_cast<std::size_t>(descriptor - kFirstDescriptor);
    return index < state->videoDevices.size() ? state->videoDevices[index] : &kFirstDescriptor;
}

/** The library's way to answer: an error number becomes -1 and errno. */
int withErrno(int error, int success = 0) {
    if (error == 0) {
        return success;
    }
    errno = error;
    return -1;
}

std::string padded(const std::string& text, std::size_t room) {
    std::string field = text.substr(0, room);
    field.resize(room, '\0');
    return field;
}

/** The bytes of a payload, each with the number of times that it comes in a row. */
std::string showBytes(const unsigned char* bytes, std::size_t size) {
    std::string shown;
    const unsigned char* const end = bytes + size;
    while (bytes != end) {
        const unsigned char* const next = std::find_if(
            bytes, end, [first = *bytes](unsigned char byte) { return byte != first; });
        shown += (shown.empty() ? "" : ", ") + std::to_string(*bytes);
        shown += next - bytes > 1 ? " x " + std::to_string(next - bytes) : "";
        bytes = next;
    }
    return '[' + shown + ']';
}

/** The request's own fields, so that the history tells what was asked for. */
std::string showRequest(unsigned long request, const v4l2_ext_controls& controls) {
    if (request != VIDIOC_G_EXT_CTRLS || controls.count != 1) {
        return std::to_string(request);
    }
    // A copy: the kernel's structure is packed, and no reference may lead into it.
    const v4l2_ext_control control = *controls.controls;
    const auto id = control.id;
    const auto size = control.size;
    return "VIDIOC_G_EXT_CTRLS, " + args(controls.ctrl_class, id, size) + ", " +
           showBytes(static_cast<const unsigned char*>(control.ptr), size);
}

int answerControls(const State& state, unsigned long request, v4l2_ext_controls& controls) {
    if (request != VIDIOC_G_EXT_CTRLS || controls.count != 1) {
        return EINVAL;
    }
    if (!state.hdmi) {
        return -kNotProgrammed;
    }
    v4l2_ext_control& control = *controls.controls;
    std::string answer = *state.hdmi;
    answer.resize(control.size, kBehindTheFields);
    giveBytes(answer, static_cast<char*>(control.ptr), control.size);
    return 0;
}

} // namespace

Scene& Scene::hdmi(const std::string& vendor, const std::string& product) {
    Access()->hdmi = padded(vendor, kVendorRoom) + padded(product, kProductRoom);
    return *this;
}

} // namespace klx::fake

using namespace klx::fake;

int v4l2_open(const char* file, int oflag, ...) {
    int descriptor = -1;
    const int error = call(__func__, args(file, oflag), [&](State& state) {
        descriptor = kFirstDescriptor + static_cast<int>(state.videoDevices.size());
        state.videoDevices.push_back(state.handles.add(std::make_shared<VideoDevice>(),
                                                       "video device", "video device",
                                                       HandleTable::Kept::byClient));
        return 0;
    });
    return withErrno(error, descriptor);
}

int v4l2_ioctl(int fd, unsigned long int request, ...) {
    const Inside platform;
    const char* const function = __func__;
    va_list arguments;
    va_start(arguments, request);
    auto& controls = *va_arg(arguments, v4l2_ext_controls*);
    va_end(arguments);
    const void* const device = handleOf(fd);
    const std::string shown = args(device) + ", " + showRequest(request, controls);
    return withErrno(call(function, shown, [&](State& state) {
        return state.handles.find<VideoDevice>(device, "video device", function) == nullptr
                   ? EBADF
                   : answerControls(state, request, controls);
    }));
}

int v4l2_close(int fd) {
    const char* const function = __func__;
    const void* const device = handleOf(fd);
    return withErrno(callReleasing(function, args(device), [&](State& state) {
        return state.handles.close(device, "video device", function) ? 0 : EBADF;
    }));
}
