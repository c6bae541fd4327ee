#include "platform/linux/desktop/installed_applications.h"

#include <utility>

#include "model/first_run_items.h"
#include "platform/linux/desktop/glib_owned.h"

namespace rondora::desktop {
namespace {

ApplicationIconSource iconSourceOf(GIcon* icon) {
  ApplicationIconSource source;
  if (G_IS_THEMED_ICON(icon)) {
    const char* const* names = g_themed_icon_get_names(G_THEMED_ICON(icon));
    if (names && names[0]) source.themeName = names[0];
  } else if (G_IS_FILE_ICON(icon)) {
    const GText path(g_file_get_path(g_file_icon_get_file(G_FILE_ICON(icon))));
    if (path) source.filePath = path.get();
  }
  return source;
}

}  // namespace

InstalledApplications::InstalledApplications(const ProcessEnvironment& environment,
                                             StartedProcesses::WatchReadable watchReadable)
    : defaults_(entries_, environment), urlHandlers_(defaults_), processes_(std::move(watchReadable)) {}

void InstalledApplications::warmUp() const {
  entries_.warmUp();
  for (const FirstRunItem& item : kFirstRunItems) resolve(item.bundleIdentifier);
}

std::optional<std::string> InstalledApplications::identify(const WindowIdentity& window) const {
  return entries_.idOfWindow(window);
}

std::string InstalledApplications::resolve(std::string_view bundleIdentifier) const {
  return defaults_.resolve(bundleIdentifier).value_or(std::string(bundleIdentifier));
}

bool InstalledApplications::isInstalled(std::string_view id) const { return entries_.contains(id); }

std::optional<std::string> InstalledApplications::name(std::string_view id) const {
  GDesktopAppInfo* entry = entries_.find(id);
  const char* name = entry ? g_app_info_get_name(G_APP_INFO(entry)) : nullptr;
  if (!name) return std::nullopt;
  return std::string(name);
}

std::optional<ApplicationIconSource> InstalledApplications::iconSource(std::string_view id) const {
  GDesktopAppInfo* entry = entries_.find(id);
  GIcon* icon = entry ? g_app_info_get_icon(G_APP_INFO(entry)) : nullptr;
  if (!icon) return std::nullopt;
  ApplicationIconSource source = iconSourceOf(icon);
  if (source.themeName.empty() && source.filePath.empty()) return std::nullopt;
  return source;
}

std::optional<std::string> InstalledApplications::applicationAtPath(std::string_view path) const {
  if (!places_.isOffered(path)) return std::nullopt;
  return std::string(path);
}

bool InstalledApplications::launch(std::string_view id, UserTime time) {
  if (SystemPlaces::isPlace(id)) return places_.open(id);
  GDesktopAppInfo* entry = entries_.find(id);
  if (!entry || !launcher_.launch(*entry, time)) return false;
  processes_.add(id, launcher_.lastProcess());
  return true;
}

bool InstalledApplications::openUrl(std::string_view url, UserTime time) {
  const std::string text(url);
  const auto id = urlHandlers_.handler(text);
  GDesktopAppInfo* entry = id ? entries_.find(*id) : nullptr;
  if (!entry || !launcher_.launch(*entry, text, time)) return false;
  processes_.add(*id, launcher_.lastProcess());
  return true;
}

}  // namespace rondora::desktop
