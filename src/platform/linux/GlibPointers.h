#pragma once

#include <gio/gio.h>
#include <memory>

namespace orvex {

struct GlibDeleter {
  void operator()(gpointer object) const noexcept { g_object_unref(object); }
  void operator()(GError* error) const noexcept { g_error_free(error); }
  void operator()(GKeyFile* file) const noexcept { g_key_file_unref(file); }
  void operator()(GSettingsSchema* schema) const noexcept { g_settings_schema_unref(schema); }
};

/// Owns one reference to a GObject, or a plain GLib structure.
template <typename T>
using GlibPointer = std::unique_ptr<T, GlibDeleter>;

}  // namespace orvex
