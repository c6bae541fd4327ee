#include "ui/appkit/windows/welcome_steps_view.h"

#include <string>

#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/controls/control_action.h"
#include "ui/appkit/controls/labels.h"

namespace rondora::appkit {
namespace {

using macos::nsString;

// Points.
constexpr CGFloat kMargin = 16;
constexpr CGFloat kSpacing = 12;
constexpr CGFloat kMarkSide = 20;
constexpr CGFloat kHotkeySize = 15;
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

void fill(NSBox* box, NSView* content) {
  [box.contentView addSubview:content];
  content.translatesAutoresizingMaskIntoConstraints = NO;
  [content.leadingAnchor constraintEqualToAnchor:box.leadingAnchor].active = YES;
  [content.trailingAnchor constraintEqualToAnchor:box.trailingAnchor].active = YES;
  [content.topAnchor constraintEqualToAnchor:box.topAnchor].active = YES;
  [content.bottomAnchor constraintEqualToAnchor:box.bottomAnchor].active = YES;
}

const char* markOf(const WelcomeContents::Step& step) {
  if (step.isDone) return "checkmark.circle.fill";
  return step.isNext ? "arrow.forward.circle" : "circle";
}

}  // namespace

WelcomeStepsView::WelcomeStepsView(const Welcome& welcome, CGFloat width)
    : width_(width - 2 * kMargin),
      box_([[NSBox alloc] init]),
      column_(makeColumn(kSpacing)),
      hotkey_(makeWrappingLabel(width_)),
      openRing_(makeButton([&welcome] { welcome.openRing(); })),
      chooseHotkey_(makeButton([&welcome] { welcome.chooseHotkey(); })) {
  box_.boxType = NSBoxCustom;
  box_.titlePosition = NSNoTitle;
  box_.cornerRadius = kMargin / 2;
  box_.fillColor = NSColor.controlBackgroundColor;
  fill(box_, column_);
  column_.edgeInsets = NSEdgeInsets{kMargin, kMargin, kMargin, kMargin};
  hotkey_.font = [NSFont boldSystemFontOfSize:kHotkeySize];
  // The order of the Tab key is that of addition.
  rows_[0] = addRow();
  [column_ addArrangedSubview:hotkey_];
  NSStackView* buttons = makeRow(kSpacing);
  [buttons addArrangedSubview:openRing_];
  [buttons addArrangedSubview:chooseHotkey_];
  [column_ addArrangedSubview:buttons];
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
  setText(hotkey_, contents.hotkey);
  setTitle(openRing_, contents.openRing);
  setTitle(chooseHotkey_, contents.chooseHotkey);
}

void WelcomeStepsView::emphasize(bool isEmphasized) {
  box_.borderColor = isEmphasized ? NSColor.controlAccentColor : NSColor.separatorColor;
  box_.borderWidth = isEmphasized ? kEmphasisWidth : 1;
}

}  // namespace rondora::appkit
