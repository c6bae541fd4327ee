#pragma once

#include <filesystem>

#include "platform/file_system.h"
#include "platform/log.h"
#include "platform/process_environment.h"
#include "platform/user_defaults.h"

namespace rondora {

/// Copies settings, document and favicons of the predecessor application once; existing ones stay.
/// Must run before the configuration is loaded. Main thread.
class LegacyPieMenuMigration {
 public:
  struct Services {
    FileSystem& files;
    UserDefaults& defaults;
    const ProcessEnvironment& environment;
    Log& log;
  };
  static constexpr Predecessor kPredecessor{.bundleIdentifier = "io.github.rondora.PieMenu", .folder = "PieMenu"};

  explicit LegacyPieMenuMigration(const Services& services) : services_(services) {}

  void run();

 private:
  void migrateUserDefaults();
  void copyIfMissing(const std::filesystem::path& from, const std::filesystem::path& to);
  void migrateConfig(const std::filesystem::path& from, const std::filesystem::path& to);
  FileError writeMigratedConfig(const std::filesystem::path& from, const std::filesystem::path& to);

  Services services_;
};

}  // namespace rondora
