#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/application_icons.h"
#include "platform/workspace.h"

namespace rondora {

/// Properties of a window that identify its application; empty when unknown.
struct WindowIdentity {
  /// The application id that the window's toolkit announces.
  std::string applicationId;
  std::string className;
  std::string instanceName;
  /// File name of the executable.
  std::string executable;
};

/// Time stamp of the user action behind a request, in the display server's milliseconds; 0 when unknown.
using UserTime = std::uint32_t;

/// The installed applications. Their ids are desktop-file ids without ".desktop". Main thread.
class ApplicationCatalogue {
 public:
  virtual ~ApplicationCatalogue() = default;

  /// The installed application that a window belongs to.
  virtual std::optional<std::string> identify(const WindowIdentity& window) const = 0;
  /// The user's own application for an identifier that stands for a kind of application (web browser, terminal …); any
  /// other identifier is returned unchanged.
  virtual std::string resolve(std::string_view bundleIdentifier) const = 0;

  /// The MIME type or URL scheme of such a kind, if its applications are found by one.
  virtual std::optional<std::string> contentType(std::string_view bundleIdentifier) const = 0;

  virtual bool isInstalled(std::string_view id) const = 0;
  virtual std::optional<std::string> name(std::string_view id) const = 0;
  virtual std::optional<ApplicationIconSource> iconSource(std::string_view id) const = 0;
  /// The id that launches the counterpart of a macOS application at a fixed path; nothing when the desktop has none.
  virtual std::optional<std::string> applicationAtPath(std::string_view path) const = 0;

  /// False on failure.
  virtual bool launch(std::string_view id, UserTime time) = 0;
  /// The process of the last such launch.
  virtual StartedProcess startedProcess(std::string_view id) const = 0;
  /// False when `url` is not an absolute URL, has no handler, or the handler could not be started.
  virtual bool openUrl(std::string_view url, UserTime time) = 0;
};

}  // namespace rondora
