#include "platform/linux/desktop/system_places.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>

#include "platform/linux/desktop/glib_owned.h"
#include "platform/system_applications.h"

namespace rondora::desktop {
namespace {

using system_applications::kMissionControl;
using system_applications::kScreenSaver;

struct Offer {
  std::string_view path;
  const char* busName;
  const char* objectPath;
  const char* interface;
  const char* method;
  /// GVariant text format.
  const char* arguments;
};

/// A desktop's own service comes before the common name, which some desktops own without implementing it.
constexpr std::array<Offer, 7> kOffers = {{
    {kMissionControl, "org.gnome.Shell", "/org/gnome/Shell", "org.freedesktop.DBus.Properties", "Set",
     "('org.gnome.Shell', 'OverviewActive', <true>)"},
    {kMissionControl, "org.kde.kglobalaccel", "/component/kwin", "org.kde.kglobalaccel.Component", "invokeShortcut",
     "('Overview',)"},
    {kScreenSaver, "org.gnome.ScreenSaver", "/org/gnome/ScreenSaver", "org.gnome.ScreenSaver", "SetActive", "(true,)"},
    {kScreenSaver, "org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver", "org.cinnamon.ScreenSaver", "SetActive",
     "(true,)"},
    {kScreenSaver, "org.mate.ScreenSaver", "/org/mate/ScreenSaver", "org.mate.ScreenSaver", "SetActive", "(true,)"},
    {kScreenSaver, "org.xfce.ScreenSaver", "/org/xfce/ScreenSaver", "org.xfce.ScreenSaver", "SetActive", "(true,)"},
    {kScreenSaver, "org.freedesktop.ScreenSaver", "/org/freedesktop/ScreenSaver", "org.freedesktop.ScreenSaver",
     "SetActive", "(true,)"},
}};

/// Without a bus GIO would start a private one, which no service joins.
bool isSessionBusThere() {
  std::error_code error;
  const char* runtimeFolder = std::getenv("XDG_RUNTIME_DIR");
  return std::getenv("DBUS_SESSION_BUS_ADDRESS") ||
         (runtimeFolder && std::filesystem::exists(std::filesystem::path(runtimeFolder) / "bus", error));
}

bool hasOwner(GDBusConnection* bus, const char* name) {
  constexpr int kMilliseconds = 500;
  const UniqueCPtr<GVariant, g_variant_unref> reply(g_dbus_connection_call_sync(
      bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "NameHasOwner",
      g_variant_new("(s)", name), G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE, kMilliseconds, nullptr, nullptr));
  gboolean answer = FALSE;
  if (reply) g_variant_get(reply.get(), "(b)", &answer);
  return answer != FALSE;
}

const Offer* findOffer(GDBusConnection* bus, std::string_view path) {
  if (!bus) return nullptr;
  const auto* found = std::find_if(kOffers.begin(), kOffers.end(), [&](const Offer& offer) {
    return offer.path == path && hasOwner(bus, offer.busName);
  });
  return found == kOffers.end() ? nullptr : found;
}

}  // namespace

bool SystemPlaces::isPlace(std::string_view path) { return path == kMissionControl || path == kScreenSaver; }

void SystemPlaces::Release::operator()(GDBusConnection* bus) const { g_object_unref(bus); }

GDBusConnection* SystemPlaces::sessionBus() const {
  if (!bus_ && isSessionBusThere()) {
    bus_.reset(g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    // By default GIO exits the process when the bus goes away.
    if (bus_) g_dbus_connection_set_exit_on_close(bus_.get(), FALSE);
  }
  return bus_.get();
}

bool SystemPlaces::isOffered(std::string_view path) const {
  return isPlace(path) && findOffer(sessionBus(), path) != nullptr;
}

bool SystemPlaces::open(std::string_view path) const {
  const Offer* offer = findOffer(sessionBus(), path);
  if (!offer) return false;
  g_dbus_connection_call(sessionBus(), offer->busName, offer->objectPath, offer->interface, offer->method,
                         g_variant_new_parsed(offer->arguments), nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START, -1, nullptr,
                         nullptr, nullptr);
  return true;
}

}  // namespace rondora::desktop
