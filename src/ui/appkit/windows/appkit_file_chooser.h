#pragma once

#include <AppKit/AppKit.h>

#include <memory>

#include "platform/file_chooser.h"

namespace rondora::appkit {

/// The system's panels: a sheet of the key window, or a window of its own. Such a panel offers all kinds of a choice
/// together, and gives a typed name an extension of theirs.
class AppKitFileChooser final : public FileChooser {
 public:
  AppKitFileChooser() = default;
  ~AppKitFileChooser() override;
  AppKitFileChooser(const AppKitFileChooser&) = delete;
  AppKitFileChooser& operator=(const AppKitFileChooser&) = delete;

  bool choose(const FileChoice& choice, Completion completion) override;

 private:
  void finish(NSModalResponse response);

  NSSavePanel* panel_ = nil;
  Completion completion_;
  /// Ends with the chooser.
  std::shared_ptr<const char> life_ = std::make_shared<const char>();
};

}  // namespace rondora::appkit
