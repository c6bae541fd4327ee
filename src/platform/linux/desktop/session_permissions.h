#pragma once

#include <filesystem>
#include <functional>

#include "base/observable.h"
#include "platform/permission_service.h"
#include "platform/posix/file_descriptor.h"
#include "platform/trackpads.h"

struct inotify_event;

namespace rondora::desktop {

/// The permissions of a desktop session: synthetic input works, and the trackpads, if there are any and the program
/// wants them, may be read. The kernel tells of devices that come, go or change their access rights. Main thread.
class SessionPermissions final : public PermissionService {
 public:
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  /// The references must outlive the object. `deviceFolder` has the nodes of the input devices; it may be missing.
  SessionPermissions(bool canType, const Trackpads& trackpads, const WatchReadable& watchReadable,
                     std::filesystem::path deviceFolder = "/dev/input");

  bool asksUser() const override { return false; }
  bool isProcessTrusted() const override { return canType_; }
  bool preflightListenEventAccess() const override {
    return !wantsTrackpads_ || trackpads_.access() != TrackpadAccess::unreadable;
  }
  void promptForTrust() override {}
  void requestListenEventAccess() override {}
  std::optional<Subscription> onMayHaveChanged(std::function<void()> observer) override;
  /// False at first.
  void wantTrackpads(bool wants);

 private:
  bool watchDevices();
  bool watchDeviceFolder() const;
  bool isNews(const inotify_event& event) const;
  void readNews();

  const bool canType_;
  const Trackpads& trackpads_;
  bool wantsTrackpads_ = false;
  std::filesystem::path deviceFolder_;
  Signal<> mayHaveChanged_;
  FileDescriptor notifications_;
  /// Watches the parent of the device folder while that is missing; negative for none.
  int parentWatch_ = -1;
  Subscription readable_;
};

}  // namespace rondora::desktop
