#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "base/observable.h"
#include "platform/instance_channel.h"
#include "platform/posix/file_descriptor.h"
#include "platform/process_environment.h"

namespace rondora::desktop {

/// Finds the instance on an X display where there is no session bus: a lock file, which the kernel unlocks when its
/// holder ends, and beside it a socket on which every connection is a request for the settings. Both lie in the user's
/// runtime folder, so that no other user can stand in the way.
class LockFileChannel final : public InstanceChannel {
 public:
  /// Calls back on the main loop whenever the descriptor can be read, until the result ends.
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  /// `fallbackFolder` serves where XDG_RUNTIME_DIR is not set.
  LockFileChannel(const ProcessEnvironment& environment, const std::filesystem::path& fallbackFolder,
                  WatchReadable watchReadable);
  ~LockFileChannel() override;

  Claim claim() override;
  void release() override;
  bool askForSettings() override;
  /// `trigger` cannot be asked for here.
  void serve(SessionRequests requests) override;

  const std::filesystem::path& lockFile() const { return lockFile_; }

 private:
  bool listen();
  void answerAll();

  std::filesystem::path lockFile_;
  std::filesystem::path socketFile_;
  WatchReadable watchReadable_;
  FileDescriptor lock_;
  FileDescriptor listener_;
  SessionRequests requests_;
  Subscription watch_;
};

}  // namespace rondora::desktop
