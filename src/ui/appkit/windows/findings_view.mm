#include "ui/appkit/windows/findings_view.h"

#include <utility>

#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/controls/control_action.h"
#include "ui/appkit/controls/labels.h"

namespace rondora::appkit {
namespace {

// Points.
constexpr CGFloat kSpacing = 8;
constexpr CGFloat kMarkSide = 20;

}  // namespace

FindingsView::FindingsView(const Watch& watch, Press press, CGFloat width)
    : press_(std::move(press)), width_(width), column_(makeColumn(kSpacing)) {
  watch_ = watch([this](const SessionFindings& findings) {
    if (shown_ == findings) return;
    shown_ = findings;
    rebuild();
    if (onChanged) onChanged();
  });
}

void FindingsView::setMarkNames(std::string works, std::string fails) {
  if (works_ == works && fails_ == fails) return;
  works_ = std::move(works);
  fails_ = std::move(fails);
  rebuild();
}

void FindingsView::rebuild() {
  for (NSView* row in column_.arrangedSubviews) [row removeFromSuperview];
  for (const SessionFinding& finding : shown_) [column_ addArrangedSubview:makeRowOf(finding)];
  column_.hidden = shown_.empty();
}

NSView* FindingsView::makeRowOf(const SessionFinding& finding) const {
  NSStackView* texts = makeColumn(kSpacing / 2);
  for (const std::string& text : {finding.statement, finding.remedy}) {
    NSTextField* label = makeWrappingLabel(width_ - kMarkSide - kSpacing);
    setText(label, text);
    [texts addArrangedSubview:label];
  }
  NSStackView* buttons = makeRow(kSpacing);
  for (const FindingButton& wanted : finding.buttons) {
    NSButton* button = [[NSButton alloc] init];
    button.bezelStyle = NSBezelStyleRounded;
    button.title = macos::nsString(wanted.title);
    setAction(button, [press = press_, wanted] { press(wanted); });
    [buttons addArrangedSubview:button];
  }
  if (!finding.buttons.empty()) [texts addArrangedSubview:buttons];
  NSStackView* row = makeRow(kSpacing);
  [row addArrangedSubview:makeSymbolView(finding.works ? "checkmark.circle" : "exclamationmark.triangle",
                                         finding.works ? works_ : fails_)];
  [row addArrangedSubview:texts];
  return row;
}

}  // namespace rondora::appkit
