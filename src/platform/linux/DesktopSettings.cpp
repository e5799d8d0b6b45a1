#include "platform/linux/DesktopSettings.h"

#include <gio/gio.h>
#include <memory>

namespace orvex {

bool desktopAnimationsOff() {
  // Asking for settings whose schema is not installed would end the process.
  GSettingsSchemaSource* source = g_settings_schema_source_get_default();
  if (source == nullptr) return false;
  const std::unique_ptr<GSettingsSchema, decltype(&g_settings_schema_unref)> schema(
      g_settings_schema_source_lookup(source, "org.gnome.desktop.interface", TRUE),
      &g_settings_schema_unref);
  if (!schema || g_settings_schema_has_key(schema.get(), "enable-animations") == FALSE)
    return false;
  const std::unique_ptr<GSettings, decltype(&g_object_unref)> settings(
      g_settings_new_full(schema.get(), nullptr, nullptr), &g_object_unref);
  return g_settings_get_boolean(settings.get(), "enable-animations") == FALSE;
}

}  // namespace orvex
