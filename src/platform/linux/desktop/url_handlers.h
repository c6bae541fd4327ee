#pragma once

#include <optional>
#include <string>

#include "platform/linux/desktop/default_applications.h"

namespace rondora::desktop {

/// Finds the application that opens a URL. Main thread.
class UrlHandlers {
 public:
  /// `defaults` must outlive the object.
  explicit UrlHandlers(const DefaultApplications& defaults) : defaults_(defaults) {}

  /// The desktop-entry id of the handler; nothing when `url` is not an absolute URL, names a missing file, or has no
  /// handler.
  std::optional<std::string> handler(const std::string& url) const;

 private:
  std::optional<std::string> handlerOfFile(const std::string& url) const;
  std::optional<std::string> handlerOfScheme(const std::string& scheme) const;

  const DefaultApplications& defaults_;
};

}  // namespace rondora::desktop
