#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "platform/clock.h"
#include "platform/main_queue.h"
#include "platform/workspace.h"

namespace rondora {

/// Applications that were started and may still be about to show their first window. Main thread.
class PendingLaunches {
 public:
  static constexpr double kMaxSeconds = 10;
  /// A process that ends with an error may have handed over to another one, whose window then appears.
  static constexpr double kMaxHandOverSeconds = 3;

  enum class Outcome { worked, failed };
  using Settled = std::function<void(Outcome)>;

  /// The ports must outlive the object.
  struct Ports {
    Workspace& workspace;
    MainQueue& mainQueue;
    const Clock& clock;
    /// Windows of this application say nothing about others.
    std::string ownBundleIdentifier;
  };

  explicit PendingLaunches(const Ports& ports);

  /// The application was started at that location. Calls `settled` once, at once or later, unless the application is
  /// started again before: `failed` if its process ended with an error and no window appeared.
  void add(std::string_view bundleIdentifier, const ApplicationLocation& location, Settled settled);
  /// False once a window of the application has appeared, the started process has ended or ten seconds have passed.
  bool isPending(const ApplicationLocation& location);

 private:
  struct Launch {
    std::string bundleIdentifier;
    ApplicationLocation location;
    double uptime = 0;
    Settled settled;
    std::optional<double> failedAt = {};
    /// Another application came to the front meanwhile, perhaps the one that was handed over to.
    bool mayBeHandedOver = false;
  };

  void applicationActivated(const RunningApplication& application);
  std::optional<Outcome> outcome(Launch& launch) const;
  std::optional<Outcome> outcomeOfFailed(Launch& launch) const;
  void settle();

  Ports ports_;
  std::vector<Launch> launches_;
  /// A window may appear and go between two looks.
  Subscription activations_;
  /// Runs while there are launches.
  Subscription watch_;
};

}  // namespace rondora
