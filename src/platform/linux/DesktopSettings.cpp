#include "platform/linux/DesktopSettings.h"

#include "platform/linux/GlibPointers.h"

namespace orvex {

bool desktopAnimationsOff() {
  // Asking for settings whose schema is not installed would end the process.
  GSettingsSchemaSource* source = g_settings_schema_source_get_default();
  if (source == nullptr) return false;
  const GlibPointer<GSettingsSchema> schema(
      g_settings_schema_source_lookup(source, "org.gnome.desktop.interface", TRUE));
  if (!schema || g_settings_schema_has_key(schema.get(), "enable-animations") == FALSE)
    return false;
  const GlibPointer<GSettings> settings(g_settings_new_full(schema.get(), nullptr, nullptr));
  return g_settings_get_boolean(settings.get(), "enable-animations") == FALSE;
}

}  // namespace orvex
