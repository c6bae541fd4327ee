#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/geometry.h"

namespace rondora {

enum class FindingCommand { openFile, importFile, dismiss, saveAgain, requestAccessibility, requestInputMonitoring };

/// A button beside a finding.
struct FindingButton {
  FindingCommand command = FindingCommand::dismiss;
  std::string title;
  /// The file that the finding is about; empty for none.
  std::string file = {};
  friend bool operator==(const FindingButton&, const FindingButton&) = default;
};

/// One fact about the program or the current desktop session, in the user's language.
struct SessionFinding {
  bool works = true;
  std::string statement;
  /// What the user can do about it, or what exactly works; in one or more lines, possibly empty.
  std::string remedy;
  std::vector<FindingButton> buttons = {};
  friend bool operator==(const SessionFinding&, const SessionFinding&) = default;
};

class SettingsWindow {
 public:
  virtual ~SettingsWindow() = default;
  virtual void show() = 0;
  /// Without effect while it is not shown. What a field holds half typed is entered first.
  virtual void close() = 0;
};

/// The first-launch window.
class OnboardingWindow {
 public:
  virtual ~OnboardingWindow() = default;
  /// Calls `closed` when the window is closed in any way but by the destructor. The call may destroy this object.
  virtual void present(std::function<void()> closed) = 0;
  virtual bool isUp() const = 0;
  /// No effect unless it is up.
  virtual void close() = 0;
  /// Draws attention to how a ring is opened: the user has just let go too early.
  virtual void remindToHold() = 0;
};

/// The beginning of a snippet, and below it a line that states what choosing it does.
struct SnippetPreview {
  /// Never empty; further lines than `maxLines` of `maxLineWidth` (points) are cut off with an ellipsis.
  std::string text = {};
  std::string hint = {};
  int maxLines = 12;
  int maxLineWidth = 320;
};

/// A small window with a snippet's preview. Takes neither focus nor clicks and lies above the overlay.
class SnippetPreviewPopover {
 public:
  /// Maps the popover's size to its top left corner in screen coordinates (points).
  using Place = std::function<Point(Size)>;

  virtual ~SnippetPreviewPopover() = default;
  /// Replaces the current preview.
  virtual void show(const SnippetPreview& preview, const Place& place) = 0;
  virtual void hide() = 0;
};

/// Creates the program's windows.
class Windows {
 public:
  virtual ~Windows() = default;
  virtual std::unique_ptr<SettingsWindow> makeSettingsWindow() = 0;
  virtual std::unique_ptr<OnboardingWindow> makeOnboardingWindow() = 0;
  virtual std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() = 0;
  /// Closes the program's open menus and lists, which hold keyboard and pointer.
  virtual void closePopups() = 0;
};

}  // namespace rondora
