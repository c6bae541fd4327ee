#include "platform/linux/desktop/xdg_folders.h"

#include <pwd.h>
#include <unistd.h>

#include <array>

namespace rondora::desktop {
namespace {

namespace fs = std::filesystem;

fs::path homeFolder(const ProcessEnvironment& environment) {
  if (const auto home = environment.variable("HOME"); home && fs::path(*home).is_absolute()) return *home;
  std::array<char, 16384> text{};
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, text.data(), text.size(), &found) == 0 && found) return found->pw_dir;
  return "/";
}

/// A path that is not absolute is ignored (XDG base directories 0.8).
fs::path userFolder(const ProcessEnvironment& environment, std::string_view variable, const char* underHome) {
  if (const auto value = environment.variable(variable); value && fs::path(*value).is_absolute()) return *value;
  return homeFolder(environment) / underHome;
}

}  // namespace

PosixFileSystem::Folders xdgFolders(const ProcessEnvironment& environment) {
  return {.applicationSupport = userFolder(environment, "XDG_CONFIG_HOME", ".config"),
          .caches = userFolder(environment, "XDG_CACHE_HOME", ".cache")};
}

}  // namespace rondora::desktop
