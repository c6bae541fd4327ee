#include <gio/gio.h>

#include "platform/linux/desktop/glib_owned.h"
#include "platform/linux/desktop/shortcut_settings.h"

namespace rondora::desktop {
namespace {

using Variant = UniqueCPtr<GVariant, g_variant_unref>;
using Schema = UniqueCPtr<GSettingsSchema, g_settings_schema_unref>;
using SchemaKey = UniqueCPtr<GSettingsSchemaKey, g_settings_schema_key_unref>;

std::string textOf(GVariant* value) { return GText(g_variant_print(value, TRUE)).get(); }

/// The value of a key without the shortcut; nothing when it does not have it, or holds something else.
Variant without(GVariant* value, ShortcutSettings::Shortcut shortcut) {
  if (g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)) {
    if (!isAccelerator(g_variant_get_string(value, nullptr), shortcut)) return nullptr;
    return Variant(g_variant_ref_sink(g_variant_new_string("disabled")));
  }
  if (!g_variant_is_of_type(value, G_VARIANT_TYPE_STRING_ARRAY)) return nullptr;
  GVariantBuilder rest;
  g_variant_builder_init(&rest, G_VARIANT_TYPE_STRING_ARRAY);
  bool isFound = false;
  const UniqueCPtr<const char*, g_free> texts(g_variant_get_strv(value, nullptr));
  for (const char** text = texts.get(); *text != nullptr; ++text) {
    const bool isIt = isAccelerator(*text, shortcut);
    isFound = isFound || isIt;
    if (!isIt) g_variant_builder_add(&rest, "s", *text);
  }
  Variant result(g_variant_ref_sink(g_variant_builder_end(&rest)));
  return isFound ? std::move(result) : nullptr;
}

class GSettingsShortcuts final : public ShortcutSettings {
 public:
  explicit GSettingsShortcuts(Schema schema)
      : schema_(std::move(schema)), settings_(g_settings_new_full(schema_.get(), nullptr, nullptr)) {}

  std::string name() const override { return g_settings_schema_get_id(schema_.get()); }

  std::vector<Change> changesFor(Shortcut shortcut) override {
    std::vector<Change> changes;
    const GTextList keys(g_settings_schema_list_keys(schema_.get()));
    for (char** key = keys.get(); *key != nullptr; ++key) {
      const Variant value(g_settings_get_value(settings_.get(), *key));
      const Variant after = without(value.get(), shortcut);
      if (after) changes.push_back({*key, textOf(value.get()), textOf(after.get())});
    }
    return changes;
  }

  std::string read(const std::string& place) override {
    if (g_settings_schema_has_key(schema_.get(), place.c_str()) == FALSE) return {};
    return textOf(Variant(g_settings_get_value(settings_.get(), place.c_str())).get());
  }

  // A value that the administrator locked is kept.
  void write(const std::string& place, const std::string& value) override {
    if (g_settings_schema_has_key(schema_.get(), place.c_str()) == FALSE) return;
    const SchemaKey key(g_settings_schema_get_key(schema_.get(), place.c_str()));
    const GVariantType* type = g_settings_schema_key_get_value_type(key.get());
    const Variant parsed(g_variant_parse(type, value.c_str(), nullptr, nullptr, nullptr));
    if (parsed && g_settings_schema_key_range_check(key.get(), parsed.get()) != FALSE) {
      g_settings_set_value(settings_.get(), place.c_str(), parsed.get());
    }
    g_settings_sync();
  }

 private:
  Schema schema_;
  GOwned<GSettings> settings_;
};

}  // namespace

std::unique_ptr<ShortcutSettings> gSettingsShortcuts(const char* schema) {
  GSettingsSchemaSource* source = g_settings_schema_source_get_default();
  if (source == nullptr) return nullptr;
  Schema found(g_settings_schema_source_lookup(source, schema, TRUE));
  return found ? std::make_unique<GSettingsShortcuts>(std::move(found)) : nullptr;
}

}  // namespace rondora::desktop
