#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/geometry.h"

namespace rondora {

/// One thing about the present desktop session, in the user's language.
struct SessionFinding {
  bool works = true;
  std::string statement;
  /// What the user can do about it; empty where all is well.
  std::string remedy;
  friend bool operator==(const SessionFinding&, const SessionFinding&) = default;
};

class SettingsWindow {
 public:
  virtual ~SettingsWindow() = default;
  virtual void show() = 0;
};

/// The first-launch window. Closing it in any way calls the completion once.
class OnboardingWindow {
 public:
  virtual ~OnboardingWindow() = default;
  virtual void present(std::function<void()> completion) = 0;
  virtual bool isUp() const = 0;
  /// Closes the window and calls the completion, if it has not been called.
  virtual void closeAndFinish() = 0;
};

/// A small preview of a snippet's text. Takes neither focus nor clicks and lies above the overlay.
class SnippetPreviewPopover {
 public:
  /// The top left corner for a popover of that size, in the coordinate space of the screens (points).
  using Place = std::function<Point(Size)>;

  virtual ~SnippetPreviewPopover() = default;
  /// Replaces what is shown. A text without anything to see hides the popover.
  virtual void show(std::string_view text, const Place& place) = 0;
  virtual void hide() = 0;
};

/// Makes the program's windows when they are first needed.
class Windows {
 public:
  virtual ~Windows() = default;
  virtual std::unique_ptr<SettingsWindow> makeSettingsWindow() = 0;
  virtual std::unique_ptr<OnboardingWindow> makeOnboardingWindow() = 0;
  virtual std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() = 0;
};

}  // namespace rondora
