#include "ui/appkit/windows/welcome_steps_view.h"

#include <string>

#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/controls/control_action.h"
#include "ui/appkit/controls/labels.h"
#include "ui/appkit/windows/key_caps.h"

namespace rondora::appkit {
namespace {

using macos::nsString;

// Points.
constexpr CGFloat kMargin = 16;
constexpr CGFloat kSpacing = 12;
constexpr CGFloat kMarkSide = 20;
constexpr CGFloat kKeyDistance = 6;
constexpr CGFloat kEmphasisWidth = 3;

NSButton* makeButton(std::function<void()> pressed) {
  NSButton* button = [[NSButton alloc] init];
  button.bezelStyle = NSBezelStyleRounded;
  setAction(button, std::move(pressed));
  return button;
}

void setTitle(NSButton* button, const std::string& title) {
  button.title = nsString(title);
  button.hidden = title.empty();
}

const char* markOf(const WelcomeContents::Step& step) {
  if (step.isDone) return "checkmark.circle.fill";
  return step.isNext ? "arrow.forward.circle" : "circle";
}

}  // namespace

WelcomeStepsView::WelcomeStepsView(const Welcome& welcome, CGFloat width)
    : width_(width - 2 * kMargin),
      column_(makeColumn(kSpacing)),
      box_(makeBox(kMargin, column_)),
      hotkey_(makeRow(kKeyDistance)),
      openRing_(makeButton([&welcome] { welcome.openRing(); })),
      chooseHotkey_(makeButton([&welcome] { welcome.chooseHotkey(); })),
      buttons_(makeRow(kSpacing)) {
  box_.cornerRadius = kMargin / 2;
  box_.fillColor = NSColor.controlBackgroundColor;
  rows_[0] = addRow();
  [column_ addArrangedSubview:hotkey_];
  [buttons_ addArrangedSubview:openRing_];
  [buttons_ addArrangedSubview:chooseHotkey_];
  [column_ addArrangedSubview:buttons_];
  rows_[1] = addRow();
  [box_.widthAnchor constraintEqualToConstant:width].active = YES;
  emphasize(false);
}

WelcomeStepsView::Row WelcomeStepsView::addRow() {
  const Row row{makeSymbolView("circle", {}), makeWrappingLabel(width_ - kMarkSide - kSpacing)};
  row.text.selectable = YES;
  [row.mark.widthAnchor constraintEqualToConstant:kMarkSide].active = YES;
  NSStackView* line = makeRow(kSpacing);
  [line addArrangedSubview:row.mark];
  [line addArrangedSubview:row.text];
  [column_ addArrangedSubview:line];
  return row;
}

void WelcomeStepsView::present(const Row& row, const WelcomeContents::Step& step) {
  row.mark.image = [NSImage imageWithSystemSymbolName:nsString(markOf(step)) accessibilityDescription:nil];
  row.text.stringValue = nsString(step.text);
  row.text.accessibilityLabel = nsString(step.name);
}

void WelcomeStepsView::present(const WelcomeContents& contents) {
  for (std::size_t i = 0; i < rows_.size(); ++i) present(rows_[i], contents.steps[i]);
  showKeyCaps(hotkey_, contents.hotkey);
  setTitle(openRing_, contents.openRing);
  setTitle(chooseHotkey_, contents.chooseHotkey);
  buttons_.hidden = openRing_.isHidden && chooseHotkey_.isHidden;
}

void WelcomeStepsView::emphasize(bool isEmphasized) {
  box_.borderColor = isEmphasized ? NSColor.controlAccentColor : NSColor.separatorColor;
  box_.borderWidth = isEmphasized ? kEmphasisWidth : 1;
}

}  // namespace rondora::appkit
