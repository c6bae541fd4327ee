#pragma once

#include <QScrollArea>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/windows.h"

namespace rondora {

/// Lists findings about the session, each with a mark and a remedy. Refreshes while it is visible.
class FindingsView : public QScrollArea {
 public:
  using Source = std::function<std::vector<SessionFinding>()>;
  enum class Shows { everything, whatFails };

  FindingsView(Source source, Shows shows);

  /// Sets the screen-reader names of the marks.
  void setMarkNames(const std::string& works, const std::string& fails);
  /// Places the findings behind `predecessor` in the Tab order. `predecessor` must outlive this object.
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
