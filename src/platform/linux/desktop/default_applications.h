#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/desktop/desktop_entries.h"
#include "platform/process_environment.h"

namespace rondora::desktop {

/// Maps the six identifiers of the first-run document to the user's own applications. They stand for web browser, file
/// manager, music player, text editor, terminal and system settings. Main thread.
class DefaultApplications {
 public:
  /// Arguments must outlive the object.
  DefaultApplications(const DesktopEntries& entries, const ProcessEnvironment& environment)
      : entries_(entries), environment_(environment) {}

  static bool isStandIn(std::string_view bundleIdentifier);
  /// The MIME type or URL scheme that a stand-in is the default application of; the last two have none.
  static std::optional<std::string> contentType(std::string_view bundleIdentifier);
  /// The id of an installed desktop entry; nothing when `bundleIdentifier` is not a stand-in or no application fits it.
  /// Reads files only after the entries or the file-type associations have changed.
  std::optional<std::string> resolve(std::string_view bundleIdentifier) const;
  /// The default handler of a MIME type, when it is an installed application.
  std::optional<std::string> handlerOfType(const char* mimeType) const;

 private:
  void forgetOldAnswers() const;
  std::optional<std::string> find(std::string_view bundleIdentifier) const;
  std::optional<std::string> readHandlerOfType(const char* mimeType) const;
  std::optional<std::string> terminal() const;
  std::optional<std::string> terminalAlternative() const;
  std::optional<std::string> settings() const;

  const DesktopEntries& entries_;
  const ProcessEnvironment& environment_;
  /// Caches by MIME type and by stand-in, valid for `version_`: a look-up reads files, and each opening of a ring needs
  /// some.
  using Answers = std::map<std::string, std::optional<std::string>, std::less<>>;
  mutable Answers handlers_;
  mutable Answers standIns_;
  mutable unsigned version_ = 0;
};

}  // namespace rondora::desktop
