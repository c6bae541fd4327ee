#pragma once

#include <filesystem>
#include <string>

#include "desktop/temporary_folder.h"

namespace rondora::desktop {

/// The desktop that this program's tests see: entries, programs and associations of its own. It is set up before
/// GLib, which remembers the folders, looks at them.
class ApplicationsFolder : public TemporaryFolder {
 public:
  ApplicationsFolder();

  std::filesystem::path programs() const { return path() / "bin"; }
  /// `keys` are lines of the entry; every entry has Type and Name, which is the id.
  void addEntry(const std::string& id, const std::string& keys) const;
  void addProgram(const std::string& name, const std::string& script = "") const;
  /// Which applications open what, as the user's own choice.
  void setDefaults(const std::string& lines) const;
};

const ApplicationsFolder& applicationsFolder();

}  // namespace rondora::desktop
