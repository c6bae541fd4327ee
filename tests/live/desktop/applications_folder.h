#pragma once

#include <filesystem>
#include <string>

#include "desktop/temporary_folder.h"

namespace rondora::desktop {

/// A private desktop for the tests: entries, programs and associations. Set up before GLib reads and caches the
/// folders.
class ApplicationsFolder : public TemporaryFolder {
 public:
  ApplicationsFolder();

  std::filesystem::path programs() const { return path() / "bin"; }
  /// `keys` are lines of the entry; Type and Name (the id) are added.
  void addEntry(const std::string& id, const std::string& keys) const;
  void addProgram(const std::string& name, const std::string& script = "") const;
  /// The user's default applications by type.
  void setDefaults(const std::string& lines) const;
};

const ApplicationsFolder& applicationsFolder();

}  // namespace rondora::desktop
