#pragma once

#include <QScrollArea>
#include <string>

#include "ui/qt/settings/findings_list.h"

namespace rondora {

/// A list of findings that scrolls by itself.
class FindingsView : public QScrollArea {
 public:
  FindingsView(FindingsList::Watch watch, FindingsList::Press press);

  /// See FindingsList.
  void setMarkNames(const std::string& works, const std::string& fails) { list_->setMarkNames(works, fails); }
  void follow(QWidget& predecessor) { list_->follow(predecessor); }
  void refresh() { list_->refresh(); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 private:
  FindingsList* list_;
};

}  // namespace rondora
