#include "Worker.h"

namespace klx::test {
namespace {

using Kind = OwnedSetting::Kind;

std::vector<OwnedSetting> makeSettings() {
    const std::string privacy = "/General & Privacy/";
    const std::string captions = privacy + "Accessibility/Caption Settings/";
    const std::string start = privacy + "Start screen option/";
    const std::string devices = "/Connection/External Device Manager/";
    const std::string keyboard = devices + "Input Device Manager/Keyboard Settings/";
    const std::string mouse = devices + "Input Device Manager/Mouse Settings/";
    return {
        {privacy + "Parental Settings/Adult Content Lock", Kind::number},
        {privacy + "Accessibility/Voice Guide Settings/Voice Guide", Kind::number},
        {privacy + "Accessibility/Voice Guide Settings/Speed", Kind::number},
        {privacy + "Accessibility/Colour Inversion", Kind::number},
        {start + "Start with Lumora Home", Kind::number},
        {start + "Autorun Last App", Kind::number},
        {start + "Autorun Multi View Mirroring", Kind::number},
        {start + "Autorun Multi View Casting", Kind::number},
        {privacy + "Accessibility/Audio Description Settings/Audio Description", Kind::number},
        {captions + "Caption", Kind::number},
        {captions + "Caption Mode", Kind::number},
        {captions + "Caption Language", Kind::number},
        {captions + "Auto Caption Position", Kind::number},
        {captions + "Separate Closed Caption", Kind::number},
        {privacy + "Accessibility/High Contrast", Kind::number},
        {privacy + "Accessibility/Zoom Menu And Text", Kind::number},
        {"/Support/SoftwareUpdate_AutoUpdate", Kind::number},
        {"/Broadcasting/Audio Options/Preferred Language", Kind::number},
        {mouse + "Primary Button", Kind::number},
        {mouse + "Pointer Speed", Kind::number},
        {devices + "Device Connect Manager/Access Notification", Kind::number},
        {"/Connection/Network/Expert Settings/IP Remote", Kind::number},
        {"/Factory/TCON_PMIC_ErrorCount", Kind::number},
        {keyboard + "Keyboard Language", Kind::text},
        {keyboard + "Keyboard Type", Kind::text},
        {privacy + "System Manager/Language", Kind::text},
        {privacy + "Parental Settings/Parental Lock", Kind::flag},
        {privacy + "Parental Settings/Mark Adult Channels", Kind::flag},
        {"/Support/Software Update/Update with Cellular Network", Kind::flag},
        {"/Broadcasting/Apply Channel Lock", Kind::flag},
        {privacy + "Power and Energy Saving/Auto Power Saving", Kind::flag},
        {"/Connection/Network/Expert Settings/WiFi Direct Standby", Kind::flag},
    };
}

} // namespace

std::string OwnedSetting::valueFor(int nth) const {
    switch (kind) {
    case Kind::flag:
        return std::to_string(nth % 2);
    case Kind::number:
        return std::to_string(nth);
    default:
        return "<" + std::string(static_cast<std::size_t>(nth % 100), 'x') + "> & " +
               std::to_string(nth);
    }
}

const std::vector<OwnedSetting>& independentSettings() {
    static const std::vector<OwnedSetting> settings = makeSettings();
    return settings;
}

} // namespace klx::test
