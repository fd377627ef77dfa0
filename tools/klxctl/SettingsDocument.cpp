#include "SettingsDocument.h"

#include "JsonSettings.h"
#include "XmlSettings.h"

#include <algorithm>
#include <set>

namespace {

std::vector<Setting> withoutFormerMentions(std::vector<Setting> mentions) {
    std::set<std::string> seen;
    std::vector<Setting> settings;
    for (auto mention = mentions.rbegin(); mention != mentions.rend(); ++mention) {
        if (seen.insert(mention->path).second) {
            settings.push_back(std::move(*mention));
        }
    }
    std::reverse(settings.begin(), settings.end());
    return settings;
}

} // namespace

SettingsDocument::SettingsDocument(DocumentFormat format, std::vector<Setting> mentions)
    : m_format(format), m_settings(withoutFormerMentions(std::move(mentions))) {}

SettingsDocument SettingsDocument::parse(const std::string& text, DocumentFormat format) {
    return {format, format == CDeviceInfoManager::DATA_FORMAT_JSON ? jsonSettings(text)
                                                                   : xmlSettings(text)};
}

std::string documentOf(const std::vector<Assignment>& assignments, DocumentFormat format) {
    return format == CDeviceInfoManager::DATA_FORMAT_JSON ? jsonDocumentOf(assignments)
                                                          : xmlDocumentOf(assignments);
}
