#pragma once

#include <AppKit/AppKit.h>

#include <functional>
#include <string>

#include "base/observable.h"
#include "settings/findings_watch.h"

namespace rondora::appkit {

/// What works and what does not, with the buttons that help.
class FindingsView {
 public:
  using Watch = std::function<Subscription(FindingsObserver)>;
  using Press = std::function<void(const FindingButton&)>;

  FindingsView(const Watch& watch, Press press, CGFloat width);

  NSView* view() const { return column_; }
  /// What screen readers call the marks.
  void setMarkNames(std::string works, std::string fails);

  /// Called after the findings were replaced; may be empty.
  std::function<void()> onChanged;

 private:
  void rebuild();
  NSView* makeRowOf(const SessionFinding& finding) const;

  Press press_;
  CGFloat width_;
  NSStackView* column_;
  std::string works_;
  std::string fails_;
  SessionFindings shown_;
  Subscription watch_;
};

}  // namespace rondora::appkit
