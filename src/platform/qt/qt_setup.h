#pragma once

#include <string>
#include <string_view>
#include <vector>

class QApplication;

namespace rondora {

/// Settings that must precede the application object: unrounded fractional scaling.
void prepareQt();

/// The program's arguments with the choice of the X11 platform. It is an argument because QT_QPA_PLATFORM, which the
/// session may set to another platform, would reach every launched application. Must outlive the application object.
class ToolkitArguments {
 public:
  /// Null-terminated, the program's name first.
  explicit ToolkitArguments(char** arguments);
  ToolkitArguments(const ToolkitArguments&) = delete;
  ToolkitArguments& operator=(const ToolkitArguments&) = delete;

  int& count() { return count_; }
  char** values() { return pointers_.data(); }

 private:
  std::string platformOption_ = "-platform";
  std::string platform_ = "xcb";
  std::vector<char*> pointers_;
  int count_ = 0;
};

/// Settings of the whole application. `identifier` is the name of the program's desktop entry.
void configureQt(QApplication& application, std::string_view identifier);

}  // namespace rondora
