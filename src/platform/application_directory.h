#pragma once

#include <string>
#include <vector>

namespace rondora {

/// An installed application with what it is found by; texts are in the user's language and may be empty, except the
/// name.
struct StartableApplication {
  std::string bundleIdentifier;
  std::string name;
  /// What kind of application it is, such as "Web Browser".
  std::string genericName;
  std::vector<std::string> keywords;
  /// File name of its program, unless that program starts many applications.
  std::string executable;
  friend bool operator==(const StartableApplication&, const StartableApplication&) = default;
};

/// The applications that the system offers its user to start. Main thread.
class ApplicationDirectory {
 public:
  virtual ~ApplicationDirectory() = default;

  /// In no particular order, each identifier once.
  virtual std::vector<StartableApplication> startableApplications() const = 0;
};

}  // namespace rondora
