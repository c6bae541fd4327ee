#pragma once

#include <filesystem>
#include <functional>

#include "ui/appkit/windows/settings_shell.h"

namespace rondora::appkit {

/// Shows the document in the Finder, in a program that was built without the settings' window.
class SettingsInFinder final : public SettingsShell {
 public:
  using Document = std::function<std::filesystem::path()>;

  /// Calls `document` when the settings open.
  explicit SettingsInFinder(Document document) : document_(std::move(document)) {}

  std::unique_ptr<SettingsWindow> makeWindow(WindowContents contents) override;
  void closePopups() override {}
  void forgetApplications() override {}

 private:
  Document document_;
};

}  // namespace rondora::appkit
