#pragma once

#include "Settings.h"

#define G_SETTINGS_ENABLE_BACKEND
#include <gio/gio.h>
#include <gio/gsettingsbackend.h>

#include <memory>
#include <string>

/// What people would take instead: GSettings with the same settings, asked to do the same work.
namespace peer {

struct Unreferenced {
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};

using Backend = std::unique_ptr<GSettingsBackend, Unreferenced>;

/// The counterpart of the program's platform: memory or a file.
Backend newBackend();

std::string get(const Setting& setting);
void set(const Setting& setting, const std::string& value);

/// All values with their defaults, in the form of the library's JSON document.
std::string jsonDocument();

/// Applies every value of such a document, as one change.
void restoreJson(const std::string& document);

} // namespace peer
