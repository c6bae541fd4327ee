#pragma once

#include <AppKit/AppKit.h>

#include <array>

#include "settings/onboarding/welcome.h"

namespace rondora::appkit {

/// The steps of the welcome with their marks, the hotkey as key caps, and the buttons that stand in for it.
class WelcomeStepsView {
 public:
  /// `welcome` must outlive the object. `width` is that of the box, in points.
  WelcomeStepsView(const Welcome& welcome, CGFloat width);

  NSView* view() const { return box_; }
  /// Hidden where the user needs none.
  NSButton* openRing() const { return openRing_; }
  void present(const WelcomeContents& contents);
  /// Draws attention to the steps, or no longer.
  void emphasize(bool isEmphasized);

 private:
  struct Row {
    NSImageView* mark;
    NSTextField* text;
  };

  Row addRow();
  static void present(const Row& row, const WelcomeContents::Step& step);

  CGFloat width_;
  NSStackView* column_;
  NSBox* box_;
  std::array<Row, 2> rows_{};
  NSStackView* hotkey_;
  NSButton* openRing_;
  NSButton* chooseHotkey_;
  NSStackView* buttons_;
};

}  // namespace rondora::appkit
