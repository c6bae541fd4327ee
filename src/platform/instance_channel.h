#pragma once

#include <functional>
#include <string_view>

namespace rondora {

/// What other programs of the user's session may ask of this one.
struct SessionRequests {
  std::function<void()> showSettings;
  /// Opens a menu. False when no menu has this identifier.
  std::function<bool(std::string_view menuId)> trigger;
};

/// One way by which the starts of the program in a session find each other, and by which other programs reach it. Main
/// thread.
class InstanceChannel {
 public:
  enum class Claim { first, taken, unavailable };

  virtual ~InstanceChannel() = default;

  /// Asks to be the one that is found here. From `first` on requests are accepted, and wait until `serve`. The claim
  /// ends with `release`, and with the process however that ends.
  virtual Claim claim() = 0;
  virtual void release() = 0;
  /// Has the holder of the claim show its settings. Waits some seconds at most; true when the holder has confirmed.
  virtual bool askForSettings() = 0;
  /// Answers requests from now on, the waiting ones on the next turns of the main loop.
  virtual void serve(SessionRequests requests) = 0;
};

}  // namespace rondora
