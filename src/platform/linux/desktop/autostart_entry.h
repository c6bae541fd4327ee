#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/login_item.h"
#include "platform/process_environment.h"

namespace rondora::desktop {

/// The login item as an entry of the desktop's autostart standard: a file in the `autostart` folder of the user's
/// configuration, which hides one of the same name in the system's folders.
class AutostartEntry final : public LoginItem {
 public:
  /// The references must outlive the object. `program` is the file to start.
  AutostartEntry(const ProcessEnvironment& environment, FileSystem& files, std::filesystem::path program);

  /// Keeps what else an existing entry of the user says.
  LoginItemError add() override;
  /// Removes the user's entry; hides the system's, if there is one.
  LoginItemError remove() override;
  bool isListed() const override;

 private:
  class Entry;

  LoginItemError write(const Entry& entry);
  bool isInSystem() const;

  FileSystem& files_;
  std::filesystem::path program_;
  std::filesystem::path file_;
  /// The files of that name in the system's folders, the most important first; not all exist.
  std::vector<std::filesystem::path> systemFiles_;
};

/// The file of this process's program, where its next version will be too.
std::filesystem::path ownProgramFile();

}  // namespace rondora::desktop
