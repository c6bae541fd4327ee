#pragma once

#include <QScrollArea>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/windows.h"

namespace rondora {

/// Findings about the session, each with a mark and what to do about it. While it is on the screen it follows them.
class FindingsView : public QScrollArea {
 public:
  using Source = std::function<std::vector<SessionFinding>()>;
  enum class Shows { everything, whatFails };

  FindingsView(Source source, Shows shows);

  /// What screen readers say of the marks.
  void setMarkNames(const std::string& works, const std::string& fails);
  /// Tab comes to the findings from this widget, which lives as long as they do.
  void follow(QWidget& predecessor) { predecessor_ = &predecessor; }
  void refresh();

  QSize sizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  void rebuild();
  void enterTabOrder();
  QWidget* makeMark(const SessionFinding& finding) const;
  QWidget* makeText(const SessionFinding& finding) const;

  Source source_;
  Shows shows_;
  QWidget* predecessor_ = nullptr;
  std::string worksName_;
  std::string failsName_;
  std::vector<SessionFinding> shown_;
  QTimer timer_;
};

}  // namespace rondora
