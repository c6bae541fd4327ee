#include "storage/legacy_pie_menu_migration.h"

#include <string_view>

#include "base/program_identity.h"
#include "base/unicode.h"
#include "storage/legacy_favicon_paths.h"

namespace rondora {
namespace {

constexpr std::string_view kConfigFile = "config.json";

}  // namespace

void LegacyPieMenuMigration::run() {
  migrateUserDefaults();
  const auto caches = services_.files.cachesFolder();
  copyIfMissing(caches / kPredecessor.folder / "favicons", caches / program_identity::kName / "favicons");
  const auto support = services_.files.applicationSupportFolder();
  migrateConfig(support / kPredecessor.folder, support / program_identity::kName);
}

void LegacyPieMenuMigration::migrateUserDefaults() {
  if (services_.environment.bundleIdentifier() == kPredecessor.bundleIdentifier) return;
  if (services_.defaults.isEmpty()) services_.defaults.importDomain(kPredecessor);
}

void LegacyPieMenuMigration::copyIfMissing(const std::filesystem::path& from, const std::filesystem::path& to) {
  FileSystem& files = services_.files;
  if (!files.exists(from) || files.exists(to)) return;
  if (!files.createFolder(to.parent_path())) files.copy(from, to);
}

void LegacyPieMenuMigration::migrateConfig(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (services_.files.exists(to / kConfigFile) || !services_.files.exists(from / kConfigFile)) return;
  if (const FileError error = writeMigratedConfig(from / kConfigFile, to / kConfigFile)) {
    services_.log.error("legacy config migration failed: " + *error);
  }
}

FileError LegacyPieMenuMigration::writeMigratedConfig(const std::filesystem::path& from,
                                                      const std::filesystem::path& to) {
  const auto document = services_.files.read(from);
  if (!document) return "cannot read " + from.string();
  if (!isValidUtf8(*document)) return from.string() + " is not UTF-8 text";
  if (auto error = services_.files.createFolder(to.parent_path())) return error;
  return services_.files.replaceDurably(
      to, withOwnFaviconPaths(*document, services_.files.cachesFolder(), kPredecessor.folder));
}

}  // namespace rondora
