#pragma once

#include "base/observable.h"
#include "platform/application_directory.h"
#include "platform/macos/applications/folder_watch.h"

namespace rondora::macos {

/// The applications in the folders where the system and its user keep them.
class InstalledApplications final : public ApplicationDirectory {
 public:
  InstalledApplications();

  std::vector<StartableApplication> startableApplications() const override;
  /// Called when applications were installed or removed, or may have been.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) {
    return changed_.subscribe(std::move(observer));
  }

 private:
  Signal<> changed_;
  FolderWatch watch_;
};

}  // namespace rondora::macos
