#include "platform/linux/desktop/desktop_entries.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "platform/linux/desktop/glib_owned.h"

namespace rondora::desktop {
namespace {

using IdMap = std::map<std::string, std::string, std::less<>>;

struct Entry {
  GOwned<GDesktopAppInfo> info;
  std::string id;
  bool isShown = false;
  /// No arguments in Exec: not a single task of a larger application.
  bool isPlain = false;
  bool runsInTerminal = false;
};

std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), g_ascii_tolower);
  return result;
}

std::string withoutSuffix(std::string_view text, std::string_view suffix) {
  if (text.ends_with(suffix)) text.remove_suffix(suffix.size());
  return std::string(text);
}

std::string fileName(std::string_view path) { return std::string(path.substr(path.rfind('/') + 1)); }

bool hasOnlyFieldCodes(const char* commandLine) {
  const GTextList words(g_strsplit(commandLine ? commandLine : "", " ", -1));
  for (std::size_t i = 1; words && words.get()[0] && words.get()[i]; ++i) {
    const char first = words.get()[i][0];
    if (first != '%' && first != '\0') return false;
  }
  return true;
}

std::vector<Entry> readEntries() {
  std::vector<Entry> entries;
  GList* all = g_app_info_get_all();
  for (GList* it = all; it; it = it->next) {
    auto* app = static_cast<GAppInfo*>(it->data);
    GOwned<GDesktopAppInfo> info(G_DESKTOP_APP_INFO(app));
    const char* id = g_app_info_get_id(app);
    if (!id) continue;
    entries.push_back({std::move(info), withoutSuffix(id, ".desktop"), g_app_info_should_show(app) != FALSE,
                       hasOnlyFieldCodes(g_app_info_get_commandline(app)), false});
    entries.back().runsInTerminal = g_desktop_app_info_get_boolean(entries.back().info.get(), "Terminal") != FALSE;
  }
  g_list_free(all);
  return entries;
}

/// Interpreters and launchers, which do not identify an application.
bool startsOthers(std::string_view executable) {
  constexpr std::array<std::string_view, 11> kNames = {"bash", "electron", "env",  "flatpak", "gjs",     "java",
                                                       "sh",   "snap",     "sudo", "wine",    "xdg-open"};
  return std::find(kNames.begin(), kNames.end(), executable) != kNames.end() || executable.starts_with("python") ||
         executable.starts_with("perl");
}

/// "nautilus" for "org.gnome.Nautilus"; empty when the id is not a reversed domain.
std::string lastComponent(std::string_view id) {
  if (std::count(id.begin(), id.end(), '.') < 2) return {};
  return lowered(id.substr(id.rfind('.') + 1));
}

std::string textOf(const char* text) { return text ? text : ""; }

StartableApplication describe(const Entry& entry) {
  auto* app = G_APP_INFO(entry.info.get());
  StartableApplication result{entry.id,
                              textOf(g_app_info_get_name(app)),
                              textOf(g_desktop_app_info_get_generic_name(entry.info.get())),
                              {},
                              {}};
  const char* const* keywords = g_desktop_app_info_get_keywords(entry.info.get());
  for (; keywords && *keywords; ++keywords) result.keywords.emplace_back(*keywords);
  const std::string executable = fileName(textOf(g_app_info_get_executable(app)));
  if (!startsOthers(executable)) result.executable = executable;
  return result;
}

std::optional<std::string> lookUp(const IdMap& map, std::string_view key) {
  if (key.empty()) return std::nullopt;
  const auto found = map.find(key);
  if (found == map.end()) return std::nullopt;
  return found->second;
}

}  // namespace

struct DesktopEntries::Index {
  /// Sorted: the better of two entries with the same key comes first.
  std::vector<Entry> entries;
  std::map<std::string, GDesktopAppInfo*, std::less<>> byId;
  IdMap byLoweredId;
  IdMap byStartupClass;
  IdMap byLastComponent;
  IdMap byExecutable;

  Index() : entries(readEntries()) {
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
      return std::tuple(!a.isShown, !a.isPlain, a.id) < std::tuple(!b.isShown, !b.isPlain, b.id);
    });
    for (const Entry& entry : entries) add(entry);
  }

  void add(const Entry& entry) {
    byId.emplace(entry.id, entry.info.get());
    byLoweredId.emplace(lowered(entry.id), entry.id);
    if (const char* name = g_desktop_app_info_get_startup_wm_class(entry.info.get())) {
      byStartupClass.emplace(lowered(name), entry.id);
    }
    byLastComponent.emplace(lastComponent(entry.id), entry.id);
    const char* program = g_app_info_get_executable(G_APP_INFO(entry.info.get()));
    const std::string executable = fileName(textOf(program));
    if (!entry.runsInTerminal && !startsOthers(executable)) byExecutable.emplace(executable, entry.id);
  }
};

struct DesktopEntries::Monitor {
  GOwned<GAppInfoMonitor> monitor{g_app_info_monitor_get()};
  gulong handler = 0;

  explicit Monitor(DesktopEntries& entries) {
    const auto forget = +[](GAppInfoMonitor*, gpointer data) { static_cast<DesktopEntries*>(data)->forget(); };
    handler = g_signal_connect(monitor.get(), "changed", G_CALLBACK(forget), &entries);
  }
  ~Monitor() { g_signal_handler_disconnect(monitor.get(), handler); }
  Monitor(const Monitor&) = delete;
  Monitor& operator=(const Monitor&) = delete;
};

DesktopEntries::DesktopEntries() : monitor_(std::make_unique<Monitor>(*this)) {}

DesktopEntries::~DesktopEntries() = default;

void DesktopEntries::warmUp() const { index(); }

const DesktopEntries::Index& DesktopEntries::index() const {
  if (!index_) index_ = std::make_unique<Index>();
  return *index_;
}

void DesktopEntries::forget() {
  index_.reset();
  ++version_;
  changed_.send();
}

std::vector<StartableApplication> DesktopEntries::startable() const {
  std::vector<StartableApplication> applications;
  for (const Entry& entry : index().entries) {
    if (entry.isShown) applications.push_back(describe(entry));
  }
  return applications;
}

GDesktopAppInfo* DesktopEntries::find(std::string_view id) const {
  const auto& byId = index().byId;
  const auto found = byId.find(id);
  return found == byId.end() ? nullptr : found->second;
}

std::optional<std::string> DesktopEntries::idOfWindow(const WindowIdentity& window) const {
  const Index& all = index();
  if (contains(window.applicationId)) return window.applicationId;
  const std::string instance = lowered(window.instanceName);
  const std::string name = lowered(window.className);
  // The instance comes first: web applications of one browser differ only in it.
  if (auto id = lookUp(all.byStartupClass, instance)) return id;
  if (auto id = lookUp(all.byStartupClass, name)) return id;
  if (auto id = lookUp(all.byLoweredId, name)) return id;
  if (auto id = lookUp(all.byLoweredId, instance)) return id;
  if (auto id = lookUp(all.byLastComponent, name)) return id;
  return lookUp(all.byExecutable, window.executable);
}

std::optional<std::string> DesktopEntries::idOfExecutable(std::string_view name) const {
  return lookUp(index().byExecutable, name);
}

std::optional<std::string> DesktopEntries::firstInCategories(std::span<const std::string_view> categories,
                                                             Tasks tasks) const {
  for (const Entry& entry : index().entries) {
    if (!entry.isShown || entry.runsInTerminal || (tasks == Tasks::excluded && !entry.isPlain)) continue;
    const char* text = g_desktop_app_info_get_categories(entry.info.get());
    const std::string padded = ";" + std::string(text ? text : "") + ";";
    const bool liesInAll = std::all_of(categories.begin(), categories.end(), [&padded](std::string_view category) {
      return padded.find(";" + std::string(category) + ";") != std::string::npos;
    });
    if (liesInAll) return entry.id;
  }
  return std::nullopt;
}

}  // namespace rondora::desktop
