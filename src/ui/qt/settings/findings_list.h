#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/observable.h"
#include "settings/findings_watch.h"

namespace rondora {

/// Findings, each with a mark, a remedy and buttons, as high as they need. Follows them while it is visible.
class FindingsList : public QWidget {
 public:
  /// Calls the observer with the findings, at once and after each change.
  using Watch = std::function<Subscription(FindingsObserver)>;

  /// Carries out the command of a button.
  using Press = std::function<void(const FindingButton&)>;

  FindingsList(Watch watch, Press press);

  /// Sets the screen-reader names of the marks.
  void setMarkNames(const std::string& works, const std::string& fails);
  /// Places the findings behind `predecessor` in the Tab order, instead of behind the list itself. `predecessor` must
  /// outlive this object.
  void follow(QWidget& predecessor) { predecessor_ = &predecessor; }
  /// Shows the present findings, also before the list is visible.
  void refresh();
  bool isEmpty() const { return shown_.empty(); }
  /// Called after a change of the findings.
  std::function<void()> onRebuilt;

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  /// The widgets of one finding that take the focus.
  struct Row {
    QLabel* statement = nullptr;
    std::vector<std::pair<FindingButton, QPushButton*>> buttons;
  };
  struct FocusPlace {
    std::size_t row = 0;
    /// Nothing for the statement.
    std::optional<FindingButton> button;
  };

  void subscribe();
  void present(const SessionFindings& findings);
  void rebuild();
  void enterTabOrder();
  std::optional<FocusPlace> focusPlace() const;
  void restoreFocus(const FocusPlace& before);
  QPushButton* buttonLike(const FindingButton& button, std::size_t row) const;
  QWidget* makeMark(const SessionFinding& finding) const;
  QWidget* makeText(const SessionFinding& finding);
  QWidget* makeButtons(const SessionFinding& finding);
  void pressed(const FindingButton& button);

  Watch watch_;
  Press press_;
  QWidget* predecessor_ = nullptr;
  std::string worksName_;
  std::string failsName_;
  SessionFindings shown_;
  std::vector<Row> rows_;
  QWidget* rowsWidget_ = nullptr;
  Subscription subscription_;
};

}  // namespace rondora
