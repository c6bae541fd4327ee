#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "platform/clock.h"
#include "platform/workspace.h"

namespace rondora {

/// Applications that were started and may still be about to show their first window. Main thread.
class PendingLaunches {
 public:
  static constexpr double kMaxSeconds = 10;

  /// The ports must outlive the object.
  PendingLaunches(Workspace& workspace, const Clock& clock);

  /// The application was started at that location.
  void add(std::string_view bundleIdentifier, const ApplicationLocation& location);
  /// False once a window of the application has appeared, the started process has ended or ten seconds have passed.
  bool isPending(const ApplicationLocation& location);

 private:
  struct Launch {
    std::string bundleIdentifier;
    ApplicationLocation location;
    double uptime = 0;
  };

  bool isOver(const Launch& launch) const;
  void forgetFinished();

  Workspace& workspace_;
  const Clock& clock_;
  std::vector<Launch> launches_;
  /// A window may appear and go before the application is chosen again.
  Subscription activations_;
};

}  // namespace rondora
