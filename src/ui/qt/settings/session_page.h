#pragma once

#include <QLabel>
#include <QWidget>

#include "localization/localization_store.h"
#include "ui/qt/settings/findings_list.h"

namespace rondora {

/// The page of what works in this desktop session and what does not, with what to do.
class SessionPage : public QWidget {
 public:
  /// `localization` must outlive the object.
  SessionPage(FindingsList::Watch watch, FindingsList::Press press, const LocalizationStore& localization);

  /// Shows the present texts and findings.
  void refresh();

 private:
  const LocalizationStore& localization_;
  QLabel* title_;
  QLabel* introduction_;
  FindingsList* findings_;
};

}  // namespace rondora
