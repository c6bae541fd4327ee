#pragma once

#include <memory>
#include <string_view>

typedef struct _GDBusConnection GDBusConnection;

namespace rondora::desktop {

/// Counterparts on the session bus of `system_applications`: the window overview and the screen saver. Main thread;
/// each query of the bus blocks for half a second at most.
class SystemPlaces {
 public:
  /// True when `path` is one of the two.
  static bool isPlace(std::string_view path);
  /// True when a service on the bus offers it now.
  bool isOffered(std::string_view path) const;
  /// Does not wait for the reply. False when no service offers it.
  bool open(std::string_view path) const;

 private:
  struct Release {
    void operator()(GDBusConnection* bus) const;
  };

  /// Null without a bus.
  GDBusConnection* sessionBus() const;

  /// Kept open: closing the connection would drop unsent messages.
  mutable std::unique_ptr<GDBusConnection, Release> bus_;
};

}  // namespace rondora::desktop
