#pragma once

#include <filesystem>
#include <functional>

#include "base/observable.h"
#include "platform/permission_service.h"
#include "platform/posix/file_descriptor.h"
#include "platform/trackpads.h"

namespace rondora::desktop {

/// The permissions of a desktop session: synthetic input works, and the trackpads, if there are any, may be read. The
/// kernel tells of devices that come, go or change their access rights. Main thread.
class SessionPermissions final : public PermissionService {
 public:
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  /// The references must outlive the object. `deviceFolder` has the nodes of the input devices; it may be missing.
  SessionPermissions(bool canType, const Trackpads& trackpads, const WatchReadable& watchReadable,
                     std::filesystem::path deviceFolder = "/dev/input");

  bool isProcessTrusted() const override { return canType_; }
  bool preflightListenEventAccess() const override { return trackpads_.access() != TrackpadAccess::unreadable; }
  /// No request exists: an administrator grants both.
  void promptForTrust() override {}
  void requestListenEventAccess() override {}
  std::optional<Subscription> onMayHaveChanged(std::function<void()> observer) override;

 private:
  void watchDevices() const;
  void readNews();

  const bool canType_;
  const Trackpads& trackpads_;
  std::filesystem::path deviceFolder_;
  Signal<> mayHaveChanged_;
  FileDescriptor notifications_;
  Subscription readable_;
};

}  // namespace rondora::desktop
