#include <gio/gio.h>

#include <algorithm>
#include <utility>

#include "platform/linux/desktop/glib_owned.h"
#include "platform/linux/desktop/shortcut_settings.h"

namespace rondora::desktop {
namespace {

using Variant = UniqueCPtr<GVariant, g_variant_unref>;

constexpr int kTimeoutMilliseconds = 1000;

std::string textOf(GVariant* value) { return GText(g_variant_print(value, TRUE)).get(); }

Variant parsed(const std::string& text) {
  return Variant(g_variant_parse(nullptr, text.c_str(), nullptr, nullptr, nullptr));
}

/// An object of a service on the session bus.
class BusObject {
 public:
  BusObject(const char* service, const char* path, const char* interface)
      : connection_(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr)),
        service_(service),
        path_(path),
        interface_(interface) {}

  bool isReachable() const { return connection_ != nullptr; }
  /// Null on an error. Takes a floating `arguments`.
  Variant call(const char* method, GVariant* arguments) const {
    return Variant(g_dbus_connection_call_sync(connection_.get(), service_, path_, interface_, method, arguments,
                                               nullptr, G_DBUS_CALL_FLAGS_NONE, kTimeoutMilliseconds, nullptr,
                                               nullptr));
  }

 private:
  GOwned<GDBusConnection> connection_;
  const char* service_;
  const char* path_;
  const char* interface_;
};

/// Each shortcut is a property named after its accelerator, "/xfwm4/custom/<Super>Tab".
class XfconfShortcuts final : public ShortcutSettings {
 public:
  bool isReachable() const { return xfconf_.isReachable(); }

  std::string name() const override { return kService; }

  std::vector<Change> changesFor(Shortcut shortcut) override {
    std::vector<Change> changes;
    const Variant reply = xfconf_.call("GetAllProperties", g_variant_new("(ss)", kChannel, "/"));
    if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(a{sv})"))) return changes;
    const Variant all(g_variant_get_child_value(reply.get(), 0));
    GVariantIter properties;
    g_variant_iter_init(&properties, all.get());
    const char* name = nullptr;
    GVariant* value = nullptr;
    while (g_variant_iter_loop(&properties, "{&sv}", &name, &value)) {
      const std::string place = name;
      const bool isUsed = place.find("/custom/") != place.npos;
      if (isUsed && isAccelerator(place.substr(place.rfind('/') + 1), shortcut)) {
        changes.push_back({place, textOf(value), {}});
      }
    }
    return changes;
  }

  std::string read(const std::string& place) override {
    const Variant reply = xfconf_.call("GetProperty", g_variant_new("(ss)", kChannel, place.c_str()));
    if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(v)"))) return {};
    const Variant boxed(g_variant_get_child_value(reply.get(), 0));
    return textOf(Variant(g_variant_get_variant(boxed.get())).get());
  }

  void write(const std::string& place, const std::string& value) override {
    if (value.empty()) {
      xfconf_.call("ResetProperty", g_variant_new("(ssb)", kChannel, place.c_str(), FALSE));
    } else if (const Variant wanted = parsed(value)) {
      xfconf_.call("SetProperty", g_variant_new("(ssv)", kChannel, place.c_str(), wanted.get()));
    }
  }

 private:
  static constexpr const char* kChannel = "xfce4-keyboard-shortcuts";

  static constexpr const char* kService = "org.xfce.Xfconf";

  BusObject xfconf_{kService, "/org/xfce/Xfconf", "org.xfce.Xfconf"};
};

/// A place is the identifier of an action, a value the list of its keys in the toolkit's numbers.
class KGlobalAccelShortcuts final : public ShortcutSettings {
 public:
  bool isReachable() const { return accel_.isReachable(); }

  std::string name() const override { return kService; }

  std::vector<Change> changesFor(Shortcut shortcut) override {
    std::vector<Change> changes;
    for (const std::int32_t key : keysOf(shortcut)) {
      const Variant reply = accel_.call("action", g_variant_new("(i)", key));
      if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(as)"))) continue;
      const Variant action(g_variant_get_child_value(reply.get(), 0));
      if (g_variant_n_children(action.get()) > 0) addChange(changes, textOf(action.get()), key);
    }
    return changes;
  }

  std::string read(const std::string& place) override {
    const Variant action = parsed(place);
    if (!action) return {};
    const Variant reply = accel_.call("shortcut", g_variant_new("(@as)", action.get()));
    if (!reply || !g_variant_is_of_type(reply.get(), G_VARIANT_TYPE("(ai)"))) return {};
    return textOf(Variant(g_variant_get_child_value(reply.get(), 0)).get());
  }

  void write(const std::string& place, const std::string& value) override {
    const Variant action = parsed(place), keys = parsed(value);
    if (action && keys) accel_.call("setForeignShortcut", g_variant_new("(@as@ai)", action.get(), keys.get()));
  }

 private:
  /// Qt's modifiers and keys; Shift turns Tab into Backtab, which older versions store as Shift and Tab.
  static std::vector<std::int32_t> keysOf(Shortcut shortcut) {
    constexpr std::int32_t kMeta = 0x10000000, kShift = 0x02000000, kTab = 0x01000001, kBacktab = 0x01000002;
    if (shortcut == Shortcut::commandTab) return {kMeta + kTab};
    return {kMeta + kShift + kBacktab, kMeta + kShift + kTab};
  }

  /// One change for each place: an action may have several of the keys.
  void addChange(std::vector<Change>& changes, const std::string& place, std::int32_t key) {
    const auto known = std::ranges::find(changes, place, &Change::place);
    if (known != changes.end()) {
      known->after = without(known->after, key);
    } else if (const std::string before = read(place); !before.empty()) {
      changes.push_back({place, before, without(before, key)});
    }
  }

  static std::string without(const std::string& keys, std::int32_t key) {
    const Variant list = parsed(keys);
    GVariantBuilder rest;
    g_variant_builder_init(&rest, G_VARIANT_TYPE("ai"));
    GVariantIter items;
    g_variant_iter_init(&items, list.get());
    for (std::int32_t item = 0; g_variant_iter_next(&items, "i", &item) != FALSE;) {
      if (item != key) g_variant_builder_add(&rest, "i", item);
    }
    return textOf(Variant(g_variant_ref_sink(g_variant_builder_end(&rest))).get());
  }

  static constexpr const char* kService = "org.kde.kglobalaccel";

  BusObject accel_{kService, "/kglobalaccel", "org.kde.KGlobalAccel"};
};

template <class Shortcuts>
std::unique_ptr<ShortcutSettings> ifReachable() {
  auto shortcuts = std::make_unique<Shortcuts>();
  return shortcuts->isReachable() ? std::move(shortcuts) : nullptr;
}

}  // namespace

std::unique_ptr<ShortcutSettings> xfconfShortcuts() { return ifReachable<XfconfShortcuts>(); }
std::unique_ptr<ShortcutSettings> kGlobalAccelShortcuts() { return ifReachable<KGlobalAccelShortcuts>(); }

}  // namespace rondora::desktop
