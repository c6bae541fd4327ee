#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"

namespace rondora {

enum class ActivationPolicy { regular, accessory, prohibited };

/// A running application as it was when it was asked for.
struct RunningApplication {
  std::int32_t processIdentifier = 0;
  std::optional<std::string> bundleIdentifier;
  std::string localizedName;
  ActivationPolicy activationPolicy = ActivationPolicy::regular;
  bool isTerminated = false;
  bool isHidden = false;
  /// The window that was last active, opaque; 0 for none.
  std::uint64_t window = 0;

  /// The same application process, whatever its window.
  bool isSameProcess(const RunningApplication& other) const {
    return processIdentifier == other.processIdentifier && bundleIdentifier == other.bundleIdentifier;
  }
  friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// Where an installed application lies: a path or whatever else the platform opens it by. Opaque to the core.
struct ApplicationLocation {
  std::string value;
  friend bool operator==(const ApplicationLocation&, const ApplicationLocation&) = default;
};

/// Applications, running and installed. Main thread. Requests are not confirmed: what cannot be done is not done.
class Workspace {
 public:
  virtual ~Workspace() = default;

  virtual std::optional<RunningApplication> frontmostApplication() const = 0;
  /// All running applications with a window or a place in the session, in the platform's order.
  virtual std::vector<RunningApplication> runningApplications() const = 0;
  virtual std::vector<RunningApplication> runningApplications(std::string_view bundleIdentifier) const = 0;

  /// Brings the application forward on its last active window; nothing when it is active already. False when it has no
  /// window to bring forward.
  virtual bool activate(const RunningApplication& application) = 0;

  /// Shows the windows of an application that the user has hidden.
  virtual void unhide(const RunningApplication& application) = 0;

  virtual std::optional<ApplicationLocation> urlForApplication(std::string_view bundleIdentifier) const = 0;
  /// Starts the application, or brings it forward when it runs.
  virtual void openApplication(const ApplicationLocation& location) = 0;
  /// The location of an application at a fixed path of the system; nothing when there is none.
  virtual std::optional<ApplicationLocation> applicationAtPath(std::string_view path) const = 0;
  /// False when `url` is no URL, or the system refused it. The text is used exactly as given.
  virtual bool openUrl(std::string_view url) = 0;

  /// The user's name for an installed application, in the user's language.
  virtual std::optional<std::string> applicationName(std::string_view bundleIdentifier) const = 0;

  /// Called with each application that became active.
  [[nodiscard]] virtual Subscription onDidActivateApplication(
      std::function<void(const RunningApplication&)> observer) = 0;
};

}  // namespace rondora
