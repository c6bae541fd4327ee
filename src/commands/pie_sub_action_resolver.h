#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "commands/application_snapshot_reader.h"
#include "commands/queue_readings.h"
#include "commands/snapshot_cache.h"
#include "commands/sub_action_list.h"
#include "commands/sub_actions.h"
#include "commands/window_ax.h"
#include "platform/main_queue.h"
#include "platform/serial_queue.h"
#include "platform/workspace.h"

namespace rondora {

/// Finds the sectors of an application-commands menu for an application. Reads applications one at a time on the queue
/// and keeps what it read; nothing waits for an application on the main thread. Main thread.
class PieSubActionResolver {
 public:
  /// Seconds that `resolve` waits at most for the application.
  static constexpr double kMaxWait = 0.25;

  /// The references must outlive the resolver.
  struct Services {
    Workspace& workspace;
    MainQueue& mainQueue;
    const Clock& clock;
    /// Destroyed before the resolver, so that its work has ended by then.
    SerialQueue& queue;
    QueueReadings& readings;
    /// Used on the queue only.
    ApplicationSnapshotReader& reader;
    SubActionTexts texts;
    /// The entries for an application: those of its own set, otherwise the default ones.
    std::function<std::vector<AppSubMenuEntry>(std::string_view bundleIdentifier)> entries;
  };

  explicit PieSubActionResolver(const Services& services) : services_(services), cache_(services.clock) {}

  std::optional<RunningApplication> targetApp() const { return services_.workspace.frontmostApplication(); }
  /// Seconds for which a command that the application does not allow counts as disabled: work in the application
  /// changes that, and a wrongly dimmed command misleads more than one that fails.
  static constexpr double kMaxStateAge = 2;

  /// Answers at once from the cache, otherwise as soon as the application was read, after kMaxWait with what is known
  /// then. Calls `completion` once, on a later turn of the main loop.
  void resolve(const RunningApplication& application, SubActions::Completion completion);
  /// Reads the application in a moment, if it is still in front then.
  void prefetch(const RunningApplication& application);
  /// What `resolve` would answer at once, later than kMaxStateAge after the reading; nothing when it would wait.
  std::optional<std::vector<PieSubAction>> known(const RunningApplication& application) const;
  /// A command was run: what is known of the application no longer holds.
  void commandRan(const RunningApplication& application);

  /// The placement of the window that a kind stands for.
  static std::optional<WindowTile> windowTile(AppSubMenuEntry::Kind kind);

  /// Called when another list than before is known for an application. May be empty.
  std::function<void(const RunningApplication&)> onKnown;

 private:
  struct Request {
    std::uint64_t number = 0;
    RunningApplication application;
    SubActions::Completion completion;
    Subscription timeout;
  };

  std::vector<AppSubMenuEntry> entriesOf(const RunningApplication& application) const;
  bool isComplete(const RunningApplication& application, const ApplicationSnapshot& snapshot) const;
  bool isWaitedFor(const RunningApplication& application) const;
  const ApplicationSnapshot* cached(const RunningApplication& application) const;
  std::vector<PieSubAction> list(const RunningApplication& application, const ApplicationSnapshot& snapshot) const;
  void timedOut(std::uint64_t number);
  void answer(const RunningApplication& application, const ApplicationSnapshot& snapshot);
  Subscription prefetchIn(double seconds, const RunningApplication& application);
  void startNext();
  void read(const RunningApplication& application);
  void windowRead(const ApplicationSnapshot& snapshot);
  void addKnown(const RunningApplication& application, ApplicationSnapshot& snapshot) const;
  void readingEnded(const ApplicationSnapshot& read);

  Services services_;
  SnapshotCache cache_;
  std::uint64_t lastRequest_ = 0;
  std::vector<Request> waiting_;
  /// The application that the queue reads, and what is known of it so far.
  std::optional<RunningApplication> reading_;
  ApplicationSnapshot partial_;
  std::function<bool()> isReadingCancelled_;
  std::optional<RunningApplication> nextPrefetch_;
  Subscription prefetchDelay_;
  Subscription settling_;
  WeakSelf<PieSubActionResolver> weakSelf_{this};
};

}  // namespace rondora
