#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/application_icons.h"

namespace rondora {

/// What a window tells of its application; empty where it tells nothing.
struct WindowIdentity {
  /// The application's own id, as its toolkit announced it.
  std::string applicationId;
  std::string className;
  std::string instanceName;
  /// Name of the program file, without its folder.
  std::string executable;
};

/// The moment of the user's action that a request comes from, in the display server's milliseconds; 0 when unknown.
using UserTime = std::uint32_t;

/// The installed applications. Their ids are desktop-file ids without ".desktop". Main thread.
class ApplicationCatalogue {
 public:
  virtual ~ApplicationCatalogue() = default;

  /// The installed application that a window belongs to.
  virtual std::optional<std::string> identify(const WindowIdentity& window) const = 0;
  /// The user's own application for an identifier that stands for a kind of application (the web browser, the
  /// terminal ...); every other identifier is returned as it is.
  virtual std::string resolve(std::string_view bundleIdentifier) const = 0;

  virtual bool isInstalled(std::string_view id) const = 0;
  virtual std::optional<std::string> name(std::string_view id) const = 0;
  virtual std::optional<ApplicationIconSource> iconSource(std::string_view id) const = 0;
  /// The id to launch what stands for an application at a fixed path of another system; nothing when the desktop
  /// offers no such thing.
  virtual std::optional<std::string> applicationAtPath(std::string_view path) const = 0;

  /// False when it could not be started.
  virtual bool launch(std::string_view id, UserTime time) = 0;
  /// False when `url` is no absolute URL, nothing handles it, or its handler could not be started.
  virtual bool openUrl(std::string_view url, UserTime time) = 0;
};

}  // namespace rondora
