#include "storage/config_manager.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "base/program_identity.h"
#include "storage/configuration_json.h"
#include "storage/pie_configuration_migrator.h"

namespace rondora {
namespace {

constexpr int kMaxBackupNumber = 99;

/// In UTC, such as 2026-11-14T211548.
std::string fileStamp(WallTime time) {
  using std::chrono::days;
  constexpr std::chrono::sys_days kReferenceDate{std::chrono::year{2001} / 1 / 1};
  const auto moment = kReferenceDate + std::chrono::seconds(static_cast<std::int64_t>(std::floor(time)));
  const auto midnight = std::chrono::floor<days>(moment);
  const std::chrono::year_month_day date(midnight);
  const std::chrono::hh_mm_ss clock(moment - midnight);
  std::array<char, 48> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d%02d%02d", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()));
  return text.data();
}

void ensureSingleMenu(std::vector<PieMenu>& menus, PieMenu menuTemplate) {
  const auto isOfKind = [kind = menuTemplate.kind](const PieMenu& menu) { return menu.kind == kind; };
  const auto first = std::find_if(menus.begin(), menus.end(), isOfKind);
  if (first == menus.end()) {
    menus.push_back(std::move(menuTemplate));
  } else {
    menus.erase(std::remove_if(first + 1, menus.end(), isOfKind), menus.end());
  }
}

}  // namespace

ConfigManager::ConfigManager(const Services& services)
    : services_(services),
      configURL_(services.files.applicationSupportFolder() / program_identity::kName / "config.json"),
      configuration_(load()) {
  writeLocal(configuration_.value());
}

PieConfiguration ConfigManager::load() {
  if (const FileError error = services_.files.createFolder(configURL_.parent_path())) {
    services_.log.error("failed to create config dir: " + *error);
  }
  PieConfiguration configuration = readOrDefault();
  normalize(configuration);
  return configuration;
}

PieConfiguration ConfigManager::readOrDefault() {
  if (const auto bytes = services_.files.read(configURL_)) {
    if (auto decoded = decodeConfig(*bytes)) return std::move(*decoded);
    backUpUnreadableConfig(configURL_);
  } else if (services_.files.isTooLong(configURL_)) {
    services_.log.error("decodeConfig failed: document: too long");
    backUpUnreadableConfig(configURL_);
  } else if (services_.files.exists(configURL_)) {
    services_.files.keepAs(configURL_, freeBackupPath(configURL_.parent_path()));
  }
  return PieConfiguration::defaultConfig(services_.random);
}

void ConfigManager::normalize(PieConfiguration& configuration) {
  ensureSingleMenu(configuration.menus, PieConfiguration::templateRunningAppsMenu(services_.random));
  ensureSingleMenu(configuration.menus, PieConfiguration::templateAppCommandsMenu(services_.random));
  PieConfigurationMigrator(services_.random).bringUpToDate(configuration);
}

void ConfigManager::save(PieConfiguration configuration) {
  normalize(configuration);
  configuration.lastModified = services_.clock.now();
  if (configuration == current()) return;
  configuration_.send(std::move(configuration));
  // A subscriber may have saved too: write the newest.
  writeLocal(current());
  services_.notifications.post(kConfigurationDidChange);
}

FileError ConfigManager::exportConfiguration(const std::filesystem::path& path) {
  const auto encoded = encodeConfiguration(current());
  if (const auto* error = std::get_if<CodingError>(&encoded)) return error->description;
  return services_.files.replaceDurably(path, std::get<std::string>(encoded));
}

std::optional<StringKey> ConfigManager::importConfiguration(const std::filesystem::path& path) {
  const auto bytes = services_.files.read(path);
  auto decoded = bytes ? decodeConfig(*bytes) : std::nullopt;
  if (!decoded) return StringKey::importRefused;
  save(std::move(*decoded));
  return std::nullopt;
}

std::optional<PieConfiguration> ConfigManager::decodeConfig(std::string_view bytes) {
  auto decoded = decodeConfiguration(bytes, services_.random);
  if (auto* configuration = std::get_if<PieConfiguration>(&decoded)) return std::move(*configuration);
  services_.log.error("decodeConfig failed: " + std::get<CodingError>(decoded).description);
  return std::nullopt;
}

void ConfigManager::writeLocal(const PieConfiguration& configuration) {
  const auto encoded = encodeConfiguration(configuration);
  const auto* bytes = std::get_if<std::string>(&encoded);
  const FileError error = bytes != nullptr ? services_.files.replaceDurably(configURL_, *bytes)
                                           : FileError(std::get<CodingError>(encoded).description);
  if (error) services_.log.error("writeLocal failed: " + *error);
}

void ConfigManager::backUpUnreadableConfig(const std::filesystem::path& url) {
  const auto backup = freeBackupPath(url.parent_path());
  if (const FileError error = services_.files.copy(url, backup)) {
    services_.log.error("config backup failed: " + *error);
    services_.files.keepAs(url, backup);
  } else {
    services_.log.error("config unreadable, backup saved: " + backup.string());
  }
}

std::filesystem::path ConfigManager::freeBackupPath(const std::filesystem::path& folder) const {
  const std::string name = "config.broken-" + fileStamp(services_.clock.now());
  auto path = folder / (name + ".json");
  for (int number = 2; services_.files.exists(path) && number <= kMaxBackupNumber; ++number) {
    path = folder / (name + "-" + std::to_string(number) + ".json");
  }
  return path;
}

}  // namespace rondora
