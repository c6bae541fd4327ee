#include "platform/linux/desktop/default_applications.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <span>

#include "platform/linux/desktop/glib_owned.h"

namespace rondora::desktop {
namespace {

using Categories = std::array<std::string_view, 2>;

/// The default handler of `mimeType`, else the first application in both categories.
struct HandledKind {
  std::string_view bundleIdentifier;
  const char* mimeType;
  Categories categories;
};

constexpr std::array<HandledKind, 4> kHandledKinds = {{
    {"com.apple.Safari", "x-scheme-handler/https", {"WebBrowser", "WebBrowser"}},
    {"com.apple.finder", "inode/directory", {"FileManager", "FileManager"}},
    {"com.apple.Music", "audio/mpeg", {"Audio", "Player"}},
    {"com.apple.Notes", "text/plain", {"TextEditor", "TextEditor"}},
}};
constexpr std::string_view kTerminal = "com.apple.Terminal";
constexpr std::string_view kSettings = "com.apple.systempreferences";

/// An application that a desktop ships; `desktop` is its name in XDG_CURRENT_DESKTOP.
struct Candidate {
  std::string_view desktop;
  std::string_view id;
};

constexpr std::array<Candidate, 14> kTerminalsOfDesktops = {{
    {"GNOME", "org.gnome.Ptyxis"},
    {"GNOME", "org.gnome.Console"},
    {"GNOME", "org.gnome.Terminal"},
    {"KDE", "org.kde.konsole"},
    {"XFCE", "xfce4-terminal"},
    {"MATE", "mate-terminal"},
    {"X-Cinnamon", "org.gnome.Terminal"},
    {"Budgie", "org.gnome.Terminal"},
    {"Unity", "org.gnome.Terminal"},
    {"LXQt", "qterminal"},
    {"LXDE", "lxterminal"},
    {"Pantheon", "io.elementary.terminal"},
    {"Deepin", "deepin-terminal"},
    {"Enlightenment", "terminology"},
}};

constexpr std::array<std::string_view, 20> kTerminals = {"org.gnome.Console",
                                                         "org.gnome.Terminal",
                                                         "org.kde.konsole",
                                                         "xfce4-terminal",
                                                         "mate-terminal",
                                                         "tilix",
                                                         "terminator",
                                                         "qterminal",
                                                         "lxterminal",
                                                         "io.elementary.terminal",
                                                         "deepin-terminal",
                                                         "kitty",
                                                         "Alacritty",
                                                         "foot",
                                                         "org.wezfurlong.wezterm",
                                                         "terminology",
                                                         "sakura",
                                                         "rxvt-unicode",
                                                         "debian-xterm",
                                                         "xterm"};

constexpr std::array<Candidate, 15> kSettingsOfDesktops = {{
    {"GNOME", "org.gnome.Settings"},
    {"GNOME", "gnome-control-center"},
    {"KDE", "systemsettings"},
    {"KDE", "kdesystemsettings"},
    {"KDE", "org.kde.systemsettings"},
    {"XFCE", "xfce-settings-manager"},
    {"MATE", "matecc"},
    {"X-Cinnamon", "cinnamon-settings"},
    {"Budgie", "org.buddiesofbudgie.BudgieControlCenter"},
    {"Budgie", "budgie-control-center"},
    {"Unity", "unity-control-center"},
    {"LXQt", "lxqt-config"},
    {"Pantheon", "io.elementary.settings"},
    {"Pantheon", "io.elementary.switchboard"},
    {"Deepin", "org.deepin.dde.control-center"},
}};

/// These open a window in any X session, whatever desktop their entry names; whole panels come first. Some that do not:
/// gnome-control-center exits outside GNOME, pcmanfm-desktop-pref shows an error without the desktop of pcmanfm.
constexpr std::array<std::string_view, 12> kPlainSettings = {"xfce-settings-manager",
                                                             "lxqt-config",
                                                             "matecc",
                                                             "obconf",
                                                             "obconf-qt",
                                                             "lxappearance",
                                                             "arandr",
                                                             "lxrandr",
                                                             "pavucontrol",
                                                             "org.pulseaudio.pavucontrol",
                                                             "nm-connection-editor",
                                                             "system-config-printer"};

std::optional<std::string> idOf(GAppInfo* application) {
  const char* id = application ? g_app_info_get_id(application) : nullptr;
  if (!id) return std::nullopt;
  std::string_view text = id;
  if (text.ends_with(".desktop")) text.remove_suffix(std::string_view(".desktop").size());
  return std::string(text);
}

/// `currentDesktops` is separated by colons.
std::optional<std::string> firstOfDesktop(std::span<const Candidate> candidates, const std::string& currentDesktops,
                                          const DesktopEntries& entries) {
  const std::string padded = ":" + currentDesktops + ":";
  for (const auto& [desktop, id] : candidates) {
    const bool isCurrent = padded.find(":" + std::string(desktop) + ":") != std::string::npos;
    if (isCurrent && entries.contains(id)) return std::string(id);
  }
  return std::nullopt;
}

std::optional<std::string> firstInstalled(std::span<const std::string_view> ids, const DesktopEntries& entries) {
  const auto found = std::find_if(ids.begin(), ids.end(), [&](std::string_view id) { return entries.contains(id); });
  if (found == ids.end()) return std::nullopt;
  return std::string(*found);
}

}  // namespace

bool DefaultApplications::isStandIn(std::string_view bundleIdentifier) {
  return bundleIdentifier == kTerminal || bundleIdentifier == kSettings ||
         std::any_of(kHandledKinds.begin(), kHandledKinds.end(),
                     [bundleIdentifier](const HandledKind& kind) { return kind.bundleIdentifier == bundleIdentifier; });
}

std::optional<std::string> DefaultApplications::contentType(std::string_view bundleIdentifier) {
  constexpr std::string_view kSchemePrefix = "x-scheme-handler/";
  for (const HandledKind& kind : kHandledKinds) {
    if (kind.bundleIdentifier != bundleIdentifier) continue;
    std::string_view type = kind.mimeType;
    if (type.starts_with(kSchemePrefix)) type.remove_prefix(kSchemePrefix.size());
    return std::string(type);
  }
  return std::nullopt;
}

void DefaultApplications::forgetOldAnswers() const {
  if (version_ == entries_.version()) return;
  version_ = entries_.version();
  handlers_.clear();
  standIns_.clear();
}

std::optional<std::string> DefaultApplications::resolve(std::string_view bundleIdentifier) const {
  if (!isStandIn(bundleIdentifier)) return std::nullopt;
  forgetOldAnswers();
  const auto known = standIns_.find(bundleIdentifier);
  if (known != standIns_.end()) return known->second;
  return standIns_[std::string(bundleIdentifier)] = find(bundleIdentifier);
}

std::optional<std::string> DefaultApplications::find(std::string_view bundleIdentifier) const {
  if (bundleIdentifier == kTerminal) return terminal();
  if (bundleIdentifier == kSettings) return settings();
  for (const HandledKind& kind : kHandledKinds) {
    if (kind.bundleIdentifier != bundleIdentifier) continue;
    if (auto id = handlerOfType(kind.mimeType)) return id;
    return entries_.firstInCategories(kind.categories);
  }
  return std::nullopt;
}

std::optional<std::string> DefaultApplications::handlerOfType(const char* mimeType) const {
  forgetOldAnswers();
  const auto known = handlers_.find(std::string_view(mimeType));
  if (known != handlers_.end()) return known->second;
  return handlers_[mimeType] = readHandlerOfType(mimeType);
}

std::optional<std::string> DefaultApplications::readHandlerOfType(const char* mimeType) const {
  const GOwned<GAppInfo> application(g_app_info_get_default_for_type(mimeType, FALSE));
  auto id = idOf(application.get());
  if (id && !entries_.contains(*id)) return std::nullopt;
  return id;
}

std::optional<std::string> DefaultApplications::terminal() const {
  const std::string desktops = environment_.variable("XDG_CURRENT_DESKTOP").value_or("");
  if (auto id = firstOfDesktop(kTerminalsOfDesktops, desktops, entries_)) return id;
  if (auto id = terminalAlternative()) return id;
  if (auto id = firstInstalled(kTerminals, entries_)) return id;
  return entries_.firstInCategories(Categories{"TerminalEmulator", "TerminalEmulator"});
}

/// The target of Debian's alternative "x-terminal-emulator". Some terminals register it as "name.wrapper".
std::optional<std::string> DefaultApplications::terminalAlternative() const {
  const GText command(g_find_program_in_path("x-terminal-emulator"));
  if (!command) return std::nullopt;
  std::error_code error;
  std::filesystem::path program = std::filesystem::canonical(command.get(), error);
  if (program.extension() == ".wrapper") program.replace_extension();
  return entries_.idOfExecutable(program.filename().string());
}

std::optional<std::string> DefaultApplications::settings() const {
  const std::string desktops = environment_.variable("XDG_CURRENT_DESKTOP").value_or("");
  if (auto id = firstOfDesktop(kSettingsOfDesktops, desktops, entries_)) return id;
  if (auto id = firstInstalled(kPlainSettings, entries_)) return id;
  return entries_.firstInCategories(Categories{"Settings", "DesktopSettings"}, DesktopEntries::Tasks::excluded);
}

}  // namespace rondora::desktop
