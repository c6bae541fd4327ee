#pragma once

#include <vector>

#include "platform/instance_channel.h"
#include "platform/log.h"

namespace rondora {

/// Lets the program run once in a session: a second start opens the settings of the first. Main thread.
class SingleInstance {
 public:
  enum class StartedBy {
    user,
    /// An instance that ended to start again: no window may open because of it.
    itself,
  };
  enum class Start {
    first,
    /// Another instance runs; it has shown its settings to a user who started this one.
    handedOver,
    /// Another instance runs and does not reply.
    unanswered,
  };

  /// `claim` tries and claims all `channels` in this order. They must outlive the object.
  SingleInstance(std::vector<InstanceChannel*> channels, Log& log);

  Start claim(StartedBy startedBy = StartedBy::user);
  /// Lets the next start claim.
  void release();
  /// Only after `claim` returned `first`.
  void serve(const SessionRequests& requests);

 private:
  /// The channel on which another instance was found, or null.
  InstanceChannel* claimAll();

  std::vector<InstanceChannel*> channels_;
  Log& log_;
};

}  // namespace rondora
