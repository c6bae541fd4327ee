#include "platform/linux/desktop/autostart_entry.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>

#include "base/program_identity.h"
#include "platform/linux/desktop/glib_owned.h"
#include "platform/linux/desktop/xdg_folders.h"

namespace rondora::desktop {
namespace {

namespace fs = std::filesystem;

constexpr const char* kGroup = G_KEY_FILE_DESKTOP_GROUP;
/// The switch of GNOME-like desktops beside the standard's "Hidden".
constexpr const char* kEnabled = "X-GNOME-Autostart-enabled";

/// Quoted as the desktop entry standard wants it for `Exec`.
std::string quotedArgument(std::string_view path) {
  constexpr std::string_view kEscaped = "\"`$\\";
  std::string text = "\"";
  for (const char letter : path) {
    if (kEscaped.find(letter) != kEscaped.npos) text += '\\';
    if (letter == '%') text += '%';
    text += letter;
  }
  return text + '"';
}

std::vector<fs::path> systemFolders(const ProcessEnvironment& environment) {
  std::vector<fs::path> folders;
  const std::string listed = environment.variable("XDG_CONFIG_DIRS").value_or("");
  std::string_view rest = listed.empty() ? "/etc/xdg" : std::string_view(listed);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(':'), rest.size());
    const fs::path folder = rest.substr(0, end);
    if (folder.is_absolute()) folders.push_back(folder);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return folders;
}

}  // namespace

/// A desktop entry in memory.
class AutostartEntry::Entry {
 public:
  explicit Entry(const std::optional<std::string>& text) {
    if (!text) return;
    constexpr auto kKeepAll = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    g_key_file_load_from_data(file_.get(), text->data(), text->size(), kKeepAll, nullptr);
  }

  /// This session's desktop starts it: its program is there, and the entry is meant for that desktop.
  bool starts() const {
    const GOwned<GDesktopAppInfo> info(g_desktop_app_info_new_from_keyfile(file_.get()));
    return info && g_app_info_get_executable(G_APP_INFO(info.get())) != nullptr &&
           !g_desktop_app_info_get_is_hidden(info.get()) && g_desktop_app_info_get_show_in(info.get(), nullptr) &&
           isEnabled();
  }

  void start(const std::string& program) {
    set(G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
    set(G_KEY_FILE_DESKTOP_KEY_NAME, std::string(program_identity::kName));
    set(G_KEY_FILE_DESKTOP_KEY_ICON, std::string(program_identity::kBundleIdentifier));
    set(G_KEY_FILE_DESKTOP_KEY_EXEC, quotedArgument(program));
    set(G_KEY_FILE_DESKTOP_KEY_TRY_EXEC, program);
    for (const char* const key :
         {G_KEY_FILE_DESKTOP_KEY_HIDDEN, G_KEY_FILE_DESKTOP_KEY_ONLY_SHOW_IN, G_KEY_FILE_DESKTOP_KEY_NOT_SHOW_IN}) {
      g_key_file_remove_key(file_.get(), kGroup, key, nullptr);
    }
    g_key_file_set_boolean(file_.get(), kGroup, kEnabled, TRUE);
  }

  void hide() {
    set(G_KEY_FILE_DESKTOP_KEY_TYPE, G_KEY_FILE_DESKTOP_TYPE_APPLICATION);
    set(G_KEY_FILE_DESKTOP_KEY_NAME, std::string(program_identity::kName));
    g_key_file_set_boolean(file_.get(), kGroup, G_KEY_FILE_DESKTOP_KEY_HIDDEN, TRUE);
  }

  std::string text() const {
    gsize length = 0;
    const GText data(g_key_file_to_data(file_.get(), &length, nullptr));
    return {data.get(), length};
  }

 private:
  bool isEnabled() const {
    return !g_key_file_has_key(file_.get(), kGroup, kEnabled, nullptr) ||
           g_key_file_get_boolean(file_.get(), kGroup, kEnabled, nullptr);
  }
  void set(const char* key, const std::string& value) {
    g_key_file_set_string(file_.get(), kGroup, key, value.c_str());
  }

  UniqueCPtr<GKeyFile, g_key_file_unref> file_{g_key_file_new()};
};

AutostartEntry::AutostartEntry(const ProcessEnvironment& environment, FileSystem& files, fs::path program)
    : files_(files), program_(std::move(program)) {
  const fs::path place = fs::path("autostart") / (std::string(program_identity::kBundleIdentifier) + ".desktop");
  file_ = xdgFolders(environment).applicationSupport / place;
  for (const fs::path& folder : systemFolders(environment)) systemFiles_.push_back(folder / place);
}

LoginItemError AutostartEntry::add() {
  Entry entry(files_.read(file_));
  entry.start(program_.string());
  return write(entry);
}

LoginItemError AutostartEntry::remove() {
  if (isInSystem()) {
    Entry entry(files_.read(file_));
    entry.hide();
    return write(entry);
  }
  std::error_code error;
  fs::remove(file_, error);
  if (error) return "cannot remove " + file_.string() + ": " + error.message();
  return std::nullopt;
}

bool AutostartEntry::isListed() const {
  if (files_.exists(file_)) return Entry(files_.read(file_)).starts();
  const auto found = std::ranges::find_if(systemFiles_, [this](const fs::path& file) { return files_.exists(file); });
  return found != systemFiles_.end() && Entry(files_.read(*found)).starts();
}

LoginItemError AutostartEntry::write(const Entry& entry) {
  if (auto failed = files_.createFolder(file_.parent_path())) return failed;
  return files_.replaceDurably(file_, entry.text());
}

bool AutostartEntry::isInSystem() const {
  return std::ranges::any_of(systemFiles_, [this](const fs::path& file) { return files_.exists(file); });
}

// The system marks a file that was replaced by another version.
fs::path ownProgramFile() {
  constexpr std::string_view kReplaced = " (deleted)";
  std::error_code error;
  std::string path = fs::read_symlink("/proc/self/exe", error).string();
  if (path.ends_with(kReplaced)) path.resize(path.size() - kReplaced.size());
  return path;
}

}  // namespace rondora::desktop
