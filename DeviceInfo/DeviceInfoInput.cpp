#include "DeviceInfoInput.h"

#include "Exception.h"
#include "Handles.h"
#include "Log.h"
#include "commonUtil.h"

#include <TvControlService.h>
#include <cec.h>
#include <system_info.h>
#include <usb_device.h>
#include <vconf.h>

#include <fcntl.h>
#include <libv4l2.h>
#include <linux/videodev2.h>

#include <array>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <type_traits>

namespace {

constexpr int tvProfile = 1;
constexpr int massStorage = 8;

using SourceControl = std::unique_ptr<ISourceControl, KLX::ReleasedBy<&TvControlService::Destroy>>;

SourceControl createSourceControl() {
    ISourceControl* control = nullptr;
    TvControlService::CreateSourceControl(tvProfile, 0, &control);
    return SourceControl(control);
}

std::string sourceText(int source) {
    try {
        return commonUtil::intToStr(source);
    } catch (const std::exception&) {
        KLX_LOG_AS("getSourceList", LogWarning, "IntegerToString cast error");
        return "";
    }
}

/// The CEC service is opened for as long as this lives; the results are not examined.
class CecService {
public:
    CecService() { cec_init_proxy(); }
    ~CecService() { cec_close_proxy(); }
    CecService(const CecService&) = delete;
    CecService& operator=(const CecService&) = delete;
};

// The request's number holds the size of the kernel's structure, so it differs on 64-bit machines.
static_assert(sizeof(void*) != 4 || sizeof(v4l2_ext_controls) == 24);
static_assert(sizeof(void*) != 4 || VIDIOC_G_EXT_CTRLS == 0xc0185647u);

/// The HDMI processor's video device, open for as long as this lives.
class HdmiProcessor {
public:
    /// What the source tells of itself: 8 bytes of vendor name from byte 0, 16 bytes of product
    /// description from byte 8, neither necessarily terminated.
    using SourceDescription = std::array<char, 40>;

    HdmiProcessor() : m_descriptor(v4l2_open("/dev/video21", O_RDWR | O_NONBLOCK)) {
        if (m_descriptor < 0) {
            fail("Cannot open HDMI processor, errno= %d");
        }
    }
    ~HdmiProcessor() { v4l2_close(m_descriptor); }
    HdmiProcessor(const HdmiProcessor&) = delete;
    HdmiProcessor& operator=(const HdmiProcessor&) = delete;

    SourceDescription describeSource() const {
        constexpr char sourceDescription = 3;
        SourceDescription description{sourceDescription};
        v4l2_ext_control control{};
        control.id = 0x00a009ab;
        control.size = description.size();
        control.ptr = description.data();
        v4l2_ext_controls request{};
        request.ctrl_class = V4L2_CTRL_CLASS_DV;
        request.count = 1;
        request.controls = &control;
        if (v4l2_ioctl(m_descriptor, VIDIOC_G_EXT_CTRLS, &request) < 0) {
            fail("ioctl() failed, errno= %d");
        }
        return description;
    }

private:
    [[noreturn]] static void fail(const char* format) {
        const int error = errno;
        const KLX::Exception exception(format, error);
        KLX_LOG_AS("getHDMIinfo", LogWarning, "%s", exception.what());
        throw exception;
    }

    int m_descriptor;
};

std::string textAt(const HdmiProcessor::SourceDescription& description, std::size_t offset,
                   std::size_t size) {
    const char* const text = description.data() + offset;
    return {text, strnlen(text, size)};
}

std::string hdmiPortState(int stored) {
    // The store counts the other way round.
    return stored >= 0 && stored <= 2 ? commonUtil::intToStr(2 - stored) : "-1";
}

std::string portKey(const std::string& name) {
    std::string key = "memory/sysman/";
    for (const char character : name) {
        key += static_cast<char>(std::tolower(static_cast<unsigned char>(character)));
    }
    return key;
}

/// The USB service is initialised for as long as this lives; the results are not examined.
class UsbService {
public:
    UsbService() { usb_device_init(); }
    ~UsbService() { usb_device_fini(); }
    UsbService(const UsbService&) = delete;
    UsbService& operator=(const UsbService&) = delete;
};

using UsbDeviceList = std::unique_ptr<std::remove_pointer_t<usb_device_list_h>,
                                      KLX::ReleasedBy<&usb_device_free_device_list>>;

UsbDeviceList listUsbDevices() {
    usb_device_list_h list = nullptr;
    usb_device_get_device_list(massStorage, &list);
    return UsbDeviceList(list);
}

int deviceIndex(const std::string& name) {
    return static_cast<signed char>(name.back()) - '0';
}

/// Walks to the device with this index; null when the list has no first one. Past the end of the
/// list the last device stays.
usb_device_h walkTo(usb_device_list_h list, int index) {
    usb_device_h device = nullptr;
    usb_device_list_get_first(list, &device);
    for (int i = 1; i < index && usb_device_list_get_next(list, &device) == 0; ++i) {
    }
    return device;
}

struct UsbTexts {
    std::string product;
    std::string manufacturer;
};

std::string textOrEmpty(const char* text) {
    return text != nullptr ? text : "";
}

/// What is attached, first to last, up to a number of devices.
std::vector<UsbTexts> attachedUsbDevices(std::size_t most) {
    const UsbService service;
    const UsbDeviceList list = listUsbDevices();
    std::vector<UsbTexts> attached;
    usb_device_h device = nullptr;
    bool found = list && usb_device_list_get_first(list.get(), &device) == 0;
    while (found && device != nullptr && attached.size() < most) {
        attached.push_back({textOrEmpty(usb_device_get_product(device)),
                            textOrEmpty(usb_device_get_manufacturer(device))});
        found = usb_device_list_get_next(list.get(), &device) == 0;
    }
    return attached;
}

InputDevice usbInput(const std::string& name, const std::vector<UsbTexts>& attached) {
    const auto index = static_cast<std::size_t>(deviceIndex(name));
    if (index > attached.size()) {
        return {name, "0", "", ""};
    }
    return {name, "1", attached[index - 1].product, attached[index - 1].manufacturer};
}

const char* textOf(usb_device_h device, const std::string& detail) {
    if (detail == "model") {
        return usb_device_get_product(device);
    }
    return detail == "vendor" ? usb_device_get_manufacturer(device) : nullptr;
}

} // namespace

DeviceInfoInput::DeviceInfoInput() : m_devices{"HDMI1", "HDMI2", "HDMI3", "HDMI4"} {
    if (IsTessa()) {
        m_devices.insert(m_devices.end(), {"HDMI5", "HDMI6"});
    }
    m_devices.insert(m_devices.end(), {"AV1", "AV2", "COMP1", "COMP2", "SCART1", "SCART2", "USB1",
                                       "USB2", "USB3", "USB4"});
}

std::string DeviceInfoInput::getSourceList(eMenuValueType kind, const std::string&) {
    static std::mutex oneAtATime;
    const std::lock_guard<std::mutex> lock(oneAtATime);
    if (kind == defaultValue) {
        return sourceText(0);
    }
    const SourceControl control = createSourceControl();
    TvSourceInfo info{};
    if (!control || control->GetCurrentSourceInfo(&info) < 1) {
        KLX_LOG(LogWarning, "GetCurrentSourceInfo error");
        return "";
    }
    return sourceText(info.sourceId);
}

void DeviceInfoInput::setSourceList(const std::string& value) {
    int source = 0;
    try {
        source = std::stoi(value);
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "ERR: %s", error.what());
        return;
    }
    const SourceControl control = createSourceControl();
    if (control && control->ChangeSource(source, "NoAppId") > 0) {
        KLX_LOG(LogDebug, "Source set to: %d", source);
    }
}

std::string DeviceInfoInput::getHDMIinfo(eHDMIinfo which) {
    int source = 0;
    try {
        source = commonUtil::strToInt(getSourceList(currentValue, ""));
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "ERR: %s", error.what());
    }
    if (!isHdmi(source)) {
        KLX_LOG(LogDebug, "Device has not been found");
        return "";
    }
    KLX_LOG(LogDebug, "Device found");
    const auto description = HdmiProcessor().describeSource();
    switch (which) {
    case hdmiVendor:
        return textAt(description, 0, 8);
    case hdmiProduct:
        return textAt(description, 8, 16);
    default:
        return "";
    }
}

bool DeviceInfoInput::isHdmi(int source) {
    const auto number = static_cast<unsigned int>(source);
    return number - 13 <= 3 || (IsTessa() && number - 38 <= 1);
}

std::string DeviceInfoInput::getCordixHdmiCec(eMenuValueType, const std::string&) {
    int state = 0;
    {
        const CecService service;
        state = cec_is_enable();
    }
    return commonUtil::intToStr(state);
}

void DeviceInfoInput::setCordixHdmiCec(const std::string& value) {
    try {
        const int enable = commonUtil::strToInt(value);
        const CecService service;
        if (cec_set_enable(enable) != 0) {
            KLX_LOG(LogWarning, "Operation failed.");
        }
    } catch (const std::exception& error) {
        KLX_LOG(LogWarning, "Conversion failed %s", error.what());
    }
}

bool DeviceInfoInput::IsTessa() {
    int tessa = 0;
    if (system_info_get_custom_int("com.velmora/featureconf/the_tessa_version", &tessa) != 0) {
        KLX_LOG(LogWarning, "fail to get com.velmora/featureconf/the_tessa_version");
    }
    // The line names the other model line; log analysis knows it so.
    KLX_LOG(LogDebug, "Is PrismaTV :%d", tessa);
    return tessa != 0;
}

void DeviceInfoInput::getInputDeviceList(std::vector<std::string>& devices) {
    devices = m_devices;
}

std::string DeviceInfoInput::getInputDeviceStatus(const std::string& name) {
    KLX_LOG(LogDebug, "checking device=[%s]", name.c_str());
    const std::string key = portKey(name);
    KLX_LOG(LogDebug, "keyName=[%s]", key.c_str());
    int state = 0;
    const bool failed = vconf_get_int(key.c_str(), &state) != 0;
    if (name.find("HDMI") != std::string::npos) {
        if (failed) {
            KLX_LOG(LogWarning, "Failed to get HDMI port status");
            return "-1";
        }
        return hdmiPortState(state);
    }
    if (failed) {
        KLX_LOG(LogWarning, "Failed to get port status");
        return "0";
    }
    return state != 0 ? "1" : "0";
}

std::string DeviceInfoInput::getUSBStatus(const std::string& name) {
    if (name.empty()) {
        return "0";
    }
    const UsbService service;
    return deviceIndex(name) <= usb_get_connected_device_number(massStorage) ? "1" : "0";
}

std::string DeviceInfoInput::getUSBDetail(const std::string& detail) {
    KLX_LOG(LogDebug, "Detail type seeked =[%s]", detail.c_str());
    std::string none = "0";
    if (detail.empty()) {
        return none;
    }
    const int index = deviceIndex(detail);
    const UsbService service;
    if (index > usb_get_connected_device_number(massStorage)) {
        return none;
    }
    const UsbDeviceList list = listUsbDevices();
    const usb_device_h device = list ? walkTo(list.get(), index) : nullptr;
    const char* const text = device != nullptr ? textOf(device, detail) : nullptr;
    return text != nullptr ? text : none;
}

std::vector<InputDevice> DeviceInfoInput::describeInputDevices() {
    const std::vector<UsbTexts> attached = attachedUsbDevices(m_devices.size());
    std::vector<InputDevice> inputs;
    for (const std::string& name : m_devices) {
        const bool isUsb = name.compare(0, 3, "USB") == 0;
        inputs.push_back(isUsb ? usbInput(name, attached)
                               : InputDevice{name, getInputDeviceStatus(name), "", ""});
    }
    return inputs;
}
