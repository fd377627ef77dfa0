#pragma once

#include "DeviceProperty.h"

#include <boost/optional.hpp>

#include <string>
#include <string_view>
#include <utility>

/// What answers for a property, in readable words, and the key, number, call or files that it is
/// asked for. Holds literals, so that a row costs nothing to make.
class PropertySource {
public:
    PropertySource(std::string_view kind, std::string_view key) : m_kind(kind), m_key(key) {}
    PropertySource(std::string_view kind, int number)
        : m_kind(kind), m_number(number), m_isNumber(true) {}

    std::string kind() const { return std::string(m_kind); }
    std::string key() const { return m_isNumber ? std::to_string(m_number) : std::string(m_key); }

private:
    std::string_view m_kind;
    std::string_view m_key;
    int m_number = 0;
    bool m_isNumber = false;
};

/// One kind of row of the catalogue with its backing key or functions; becomes a record when it is
/// bound to the registry's instance. The factories below name the kinds; the keys they are given
/// are literals, of which rows and records hold the address alone.
class PropertyBinding {
public:
    using Bind = std::function<PropertyAccessor(CDeviceProperty&)>;

    PropertyBinding(PropertySource source, Bind bind) : m_source(source), m_bind(std::move(bind)) {}

    /// The default is this text; no getter is asked for it.
    PropertyBinding withDefault(std::string text) && {
        m_fixedDefault = std::move(text);
        return std::move(*this);
    }

    /// The default getter answers this text by itself, whatever the platform. The record keeps the
    /// getter; descriptions tell the text.
    PropertyBinding answeringDefault(const char* text) && {
        m_answeredDefault = text;
        return std::move(*this);
    }

    /// For the few rows whose flag is clear although they can be written.
    PropertyBinding withFlagClear() && {
        m_flagClear = true;
        return std::move(*this);
    }

    PropertyAccessor bindTo(CDeviceProperty& device) const;

    const PropertySource& source() const { return m_source; }

    /// What the default getter answers on every set; null when it asks the platform.
    const char* answeredDefault() const { return m_answeredDefault; }

private:
    PropertySource m_source;
    Bind m_bind;
    boost::optional<std::string> m_fixedDefault;
    const char* m_answeredDefault = nullptr;
    bool m_flagClear = false;
};

/// A settings-store key: value, default and setter all come from the store.
PropertyBinding setting(const char* key, valueType type);

/// Read from the runtime information, written to the system setting of the same number; the default
/// is that of a settings-store key.
PropertyBinding systemSetting(int key, const char* defaultKey);

/// The retail or usage mode: read from runtime information 10010, written through
/// `setSystemUseMode`; the default is that of a settings-store key.
PropertyBinding usageMode(const char* defaultKey);

/// The picture size: read and written through the TV's video control; the default is that of a
/// settings-store key.
PropertyBinding pictureSize(const char* defaultKey);

/// A string or an integer of the system information. Read-only.
PropertyBinding systemText(int key);
PropertyBinding systemNumber(int key);

/// An integer of the runtime information. Read-only.
PropertyBinding runtimeCounter(int key);

/// What the HDMI source in front tells of itself. Read-only.
PropertyBinding hdmiInfo(eHDMIinfo which);

/// The MAC address of a connection. Read-only.
PropertyBinding macAddress(DeviceInfoNetwork::connectionProfileType type);
