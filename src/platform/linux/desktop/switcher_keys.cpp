#include "platform/linux/desktop/switcher_keys.h"

#include <gio/gio.h>

#include <algorithm>
#include <string>
#include <utility>

#include "model/hotkey_config.h"
#include "platform/linux/desktop/glib_owned.h"

namespace rondora::desktop {
namespace {

using Variant = UniqueCPtr<GVariant, g_variant_unref>;

constexpr const char* kDefaultsKey = "pie.takenShortcuts";
constexpr const char* kKeptType = "a(issss)";

TapKey keyOf(std::int32_t id) {
  const bool hasShift = id == SymbolicHotKeySwitch::kCommandShiftTab;
  return {kTabKeyCode, carbon::kCommand | (hasShift ? carbon::kShift : 0)};
}

ShortcutSettings::Shortcut shortcutOf(std::int32_t id) {
  const bool hasShift = id == SymbolicHotKeySwitch::kCommandShiftTab;
  return hasShift ? ShortcutSettings::Shortcut::commandShiftTab : ShortcutSettings::Shortcut::commandTab;
}

}  // namespace

SwitcherKeys::SwitcherKeys(Services services) : services_(std::move(services)) {
  readTaken();
  putBack(kCommandTab);
  putBack(kCommandShiftTab);
}

ShortcutSettings* SwitcherKeys::settings() {
  if (!std::exchange(hasSettings_, true)) settings_ = services_.makeSettings();
  return settings_.get();
}

void SwitcherKeys::setEnabled(std::int32_t id, bool isEnabled) {
  if (isEnabled) {
    putBack(id);
  } else if (services_.isRefused(keyOf(id))) {
    take(id);
  }
}

void SwitcherKeys::take(std::int32_t id) {
  ShortcutSettings* settings = this->settings();
  const auto changes =
      settings == nullptr ? std::vector<ShortcutSettings::Change>() : settings->changesFor(shortcutOf(id));
  if (changes.empty()) {
    services_.log.error("cannot take shortcut " + std::to_string(id) + " from this desktop's application switcher");
    return;
  }
  for (const ShortcutSettings::Change& change : changes) taken_.push_back({id, settings->name(), change});
  keepTaken();
  for (const ShortcutSettings::Change& change : changes) settings->write(change.place, change.after);
  services_.log.standard("shortcut " + std::to_string(id) + " taken from this desktop's settings");
}

// What the user has changed since stays. Another desktop's settings wait until that desktop runs again.
void SwitcherKeys::putBack(std::int32_t id) {
  if (taken_.empty() || settings() == nullptr) return;
  const auto isOther = [&](const Taken& taken) { return taken.id != id || taken.settings != settings_->name(); };
  const auto first = std::stable_partition(taken_.begin(), taken_.end(), isOther);
  if (first == taken_.end()) return;
  for (auto taken = first; taken != taken_.end(); ++taken) {
    const auto& [place, before, after] = taken->change;
    if (settings_->read(place) == after) settings_->write(place, before);
  }
  taken_.erase(first, taken_.end());
  keepTaken();
}

void SwitcherKeys::readTaken() {
  const auto text = services_.defaults.string(kDefaultsKey);
  if (!text || text->empty()) return;
  const Variant list(g_variant_parse(G_VARIANT_TYPE(kKeptType), text->c_str(), nullptr, nullptr, nullptr));
  if (!list) return;
  GVariantIter items;
  g_variant_iter_init(&items, list.get());
  std::int32_t id = 0;
  const char *settings = nullptr, *place = nullptr, *before = nullptr, *after = nullptr;
  while (g_variant_iter_next(&items, "(i&s&s&s&s)", &id, &settings, &place, &before, &after) != FALSE) {
    taken_.push_back({id, settings, {place, before, after}});
  }
}

void SwitcherKeys::keepTaken() const {
  GVariantBuilder list;
  g_variant_builder_init(&list, G_VARIANT_TYPE(kKeptType));
  for (const auto& [id, settings, change] : taken_) {
    g_variant_builder_add(&list, "(issss)", id, settings.c_str(), change.place.c_str(), change.before.c_str(),
                          change.after.c_str());
  }
  const Variant kept(g_variant_ref_sink(g_variant_builder_end(&list)));
  services_.defaults.setString(kDefaultsKey, taken_.empty() ? "" : GText(g_variant_print(kept.get(), TRUE)).get());
}

}  // namespace rondora::desktop
