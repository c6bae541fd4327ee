#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "base/observable.h"
#include "platform/instance_channel.h"
#include "platform/posix/file_descriptor.h"
#include "platform/process_environment.h"

namespace rondora::desktop {

/// The single-instance claim of an X display, for sessions without a bus: a lock file, which the kernel unlocks when
/// its holder ends, and a socket on which each connection requests the settings. Both are in the user's runtime folder,
/// out of reach of other users.
class LockFileChannel final : public InstanceChannel {
 public:
  /// Calls `readable` on the main loop whenever the descriptor is readable, until the result is destroyed.
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  /// `fallbackFolder` is used when XDG_RUNTIME_DIR is not set.
  LockFileChannel(const ProcessEnvironment& environment, const std::filesystem::path& fallbackFolder,
                  WatchReadable watchReadable);
  ~LockFileChannel() override;

  Claim claim() override;
  void release() override;
  bool askForSettings() override;
  /// Serves `showSettings` only; this channel carries no `trigger`.
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
