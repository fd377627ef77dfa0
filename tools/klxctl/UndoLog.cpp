#include "UndoLog.h"

#include "ExitStatus.h"
#include "PropertyAccess.h"

#include <algorithm>

namespace {

/// None when the library cannot read it.
std::optional<std::string> current(const std::string& path) {
    try {
        return readProperty(path).value_or("");
    } catch (const Failure&) {
        return std::nullopt;
    }
}

bool isReadable(const Assignment& former, const KnownProperties& known) {
    const PropertyDescription* const property = known.find(former.path);
    return !former.value.empty() || (property != nullptr && property->isText);
}

} // namespace

std::map<std::string, std::optional<std::string>>
UndoLog::undo(const KnownProperties& known) const {
    std::map<std::string, std::optional<std::string>> stuck;
    for (auto step = m_steps.rbegin(); step != m_steps.rend(); ++step) {
        std::vector<Assignment> changed;
        std::copy_if(step->begin(), step->end(), std::back_inserter(changed),
                     [&known](const Assignment& former) {
                         return isReadable(former, known) && current(former.path) != former.value;
                     });
        if (!changed.empty()) {
            // Whether it succeeds shows when the values are read. Only JSON carries any bytes.
            constexpr DocumentFormat format = CDeviceInfoManager::DATA_FORMAT_JSON;
            CDeviceInfoManager::SetDeviceInfo(documentOf(changed, format), format);
        }
        for (const Assignment& former : *step) {
            const std::optional<std::string> held = current(former.path);
            stuck.erase(former.path);
            if (held != former.value) {
                stuck.emplace(former.path, held);
            }
        }
    }
    return stuck;
}
