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

/// A snapshot of a running application.
struct RunningApplication {
  std::int32_t processIdentifier = 0;
  std::optional<std::string> bundleIdentifier;
  std::string localizedName;
  ActivationPolicy activationPolicy = ActivationPolicy::regular;
  bool isTerminated = false;
  bool isHidden = false;
  /// The most recently active window, opaque; 0 for none.
  std::uint64_t window = 0;

  /// The same application process, whatever its window.
  bool isSameProcess(const RunningApplication& other) const {
    return processIdentifier == other.processIdentifier && bundleIdentifier == other.bundleIdentifier;
  }
  friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// Location of an installed application: a path or another handle that the platform opens it by. Opaque to the core.
struct ApplicationLocation {
  std::string value;
  friend bool operator==(const ApplicationLocation&, const ApplicationLocation&) = default;
};

/// How the process of a started application fares.
enum class StartedProcess {
  unknown,  // the system cannot tell, or started none
  runs,
  succeeded,
  failed,  // ended with an error or by a signal
};

/// Between two looks of a wait for an application to come to the front, in seconds.
inline constexpr double kFrontmostPollInterval = 0.02;
/// The longest such wait, in seconds.
inline constexpr double kMaxFrontmostWait = 0.5;

/// Running and installed applications. Main thread. Requests without a result have no effect when they fail.
class Workspace {
 public:
  virtual ~Workspace() = default;

  virtual std::optional<RunningApplication> frontmostApplication() const = 0;
  /// All running applications with a window or a place in the session, in the platform's order.
  virtual std::vector<RunningApplication> runningApplications() const = 0;
  virtual std::vector<RunningApplication> runningApplications(std::string_view bundleIdentifier) const = 0;

  /// Activates the application's most recently active window; no effect when it is already active. False when the
  /// application has no window.
  virtual bool activate(const RunningApplication& application) = 0;

  /// Shows the windows of an application that the user has hidden.
  virtual void unhide(const RunningApplication& application) = 0;
  /// Asks for all windows of the application to be hidden. False when they cannot be.
  virtual bool hide(const RunningApplication& application) = 0;
  /// Asks the application to quit as its own command would: it may ask the user, and stay. False when it cannot be
  /// asked.
  virtual bool terminate(const RunningApplication& application) = 0;

  virtual std::optional<ApplicationLocation> urlForApplication(std::string_view bundleIdentifier) const = 0;
  /// The content type or URL scheme whose default application the identifier stands for; nothing for an identifier of
  /// one application.
  virtual std::optional<std::string> contentType(std::string_view bundleIdentifier) const = 0;
  /// Starts the application, or activates it when it runs. False when the system cannot start it.
  virtual bool openApplication(const ApplicationLocation& location) = 0;
  /// The process that `openApplication` started last at this location.
  virtual StartedProcess startedProcess(const ApplicationLocation& location) const = 0;
  /// The location of an application at a fixed path of the system; nothing when there is none.
  virtual std::optional<ApplicationLocation> applicationAtPath(std::string_view path) const = 0;
  /// False when `url` is not a URL or the system refused it. The text is passed on unchanged.
  virtual bool openUrl(std::string_view url) = 0;

  /// The user's name for an installed application, in the user's language.
  virtual std::optional<std::string> applicationName(std::string_view bundleIdentifier) const = 0;

  /// Called with each application that becomes active.
  [[nodiscard]] virtual Subscription onDidActivateApplication(
      std::function<void(const RunningApplication&)> observer) = 0;
};

}  // namespace rondora
