#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace rondora {

/// A menu as other programs see it.
struct MenuListing {
  std::string id;
  std::string name;
  /// As the user reads it; empty when the menu has none.
  std::string hotkey;
  /// The hotkey opens the menu.
  bool isLive = false;
};

enum class TriggerReply {
  opens,
  /// No menu has this id or name.
  unknown,
  /// Several menus have this name.
  ambiguous,
  switchedOff,
  /// The menu has no items.
  empty,
};

/// Why nothing opens, for logs and callers.
constexpr std::string_view explain(TriggerReply reply) {
  switch (reply) {
    case TriggerReply::opens:
      break;
    case TriggerReply::unknown:
      return "no menu has this id or name";
    case TriggerReply::ambiguous:
      return "several menus have this name; use an id";
    case TriggerReply::switchedOff:
      return "the menu is switched off";
    case TriggerReply::empty:
      return "the menu has no items";
  }
  return {};
}

/// Requests that other programs of the user's session may send.
struct SessionRequests {
  std::function<void()> showSettings;
  /// Opens the menu with this id or else exactly this name.
  std::function<TriggerReply(std::string_view idOrName)> trigger;
  std::function<std::vector<MenuListing>()> listMenus;
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
