#pragma once

#include <functional>
#include <string_view>

namespace rondora {

/// Requests that other programs of the user's session may send.
struct SessionRequests {
  std::function<void()> showSettings;
  /// Opens a menu. False when no menu has this identifier.
  std::function<bool(std::string_view menuId)> trigger;
};

/// The single-instance claim of the session, and the channel on which other programs reach the instance. Main thread.
class InstanceChannel {
 public:
  enum class Claim { first, taken, unavailable };

  virtual ~InstanceChannel() = default;

  /// Tries to become the single instance. After `first`, requests are accepted and wait for `serve`. The claim ends
  /// with `release` or with the process.
  virtual Claim claim() = 0;
  virtual void release() = 0;
  /// Asks the claim's holder to show its settings. Blocks for some seconds at most; true when the holder confirmed.
  virtual bool askForSettings() = 0;
  /// Starts to serve requests; those that wait are served on the next turns of the main loop.
  virtual void serve(SessionRequests requests) = 0;
};

}  // namespace rondora
