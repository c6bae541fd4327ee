#pragma once

#include <memory>
#include <string_view>

typedef struct _GDBusConnection GDBusConnection;

namespace rondora::desktop {

/// What a desktop offers, by a call on the session bus, for the two applications at fixed paths: an overview of all
/// windows and the screen saver. Main thread; a question waits for the bus half a second at most.
class SystemPlaces {
 public:
  /// Whether the path is one of the two.
  static bool isPlace(std::string_view path);
  /// Whether somebody on the bus offers it now.
  bool isOffered(std::string_view path) const;
  /// Does not wait for the outcome. False when nobody offers it.
  bool open(std::string_view path) const;

 private:
  struct Release {
    void operator()(GDBusConnection* bus) const;
  };

  /// Null where there is no bus.
  GDBusConnection* sessionBus() const;

  /// Kept: a connection that nobody holds is closed before it has sent everything.
  mutable std::unique_ptr<GDBusConnection, Release> bus_;
};

}  // namespace rondora::desktop
