#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QWidget>

#include "localization/localization_store.h"
#include "settings/general/general_settings.h"
#include "ui/qt/interface/language_chooser.h"
#include "ui/qt/settings/findings_list.h"
#include "ui/qt/settings/focus_text.h"

namespace rondora {

/// The page of what belongs to the program as a whole.
class GeneralPage : public QWidget {
 public:
  /// The arguments must outlive the object.
  GeneralPage(GeneralSettings& general, const LocalizationStore& localization);

  /// Shows the present texts and values.
  void refresh();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QWidget* makeAbout();
  void switchLogin(bool opens);
  void refreshTexts();
  void refreshValues();
  QString text(StringKey key) const;

  GeneralSettings& general_;
  const LocalizationStore& localization_;
  QLabel* title_;
  LanguageChooser* language_;
  QLabel* languageLabel_;
  QCheckBox* login_;
  QLabel* loginProblem_;
  QCheckBox* haptics_;
  FindingsList* statusItem_;
  QLabel* permissionsHeading_;
  FindingsList* permissions_;
  QLabel* failuresHeading_;
  FindingsList* failures_;
  QLabel* aboutHeading_;
  FocusText* version_;
  QLabel* purpose_;
  QLabel* licence_;
};

}  // namespace rondora
