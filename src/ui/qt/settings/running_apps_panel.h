#pragma once

#include <QBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QWidget>

#include "settings/running_apps/excluded_applications.h"
#include "ui/qt/settings/application_rows.h"

namespace rondora {

/// The applications that the menu of running applications leaves out.
class RunningAppsPanel : public QWidget {
 public:
  /// The references must outlive the object. `applications` are those to choose from.
  RunningAppsPanel(ExcludedApplications& excluded, ApplicationList::Services applications,
                   const LocalizationStore& localization, const ItemIcons& icons);

  /// Shows the present texts and applications.
  void refresh();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void makeLayout();
  void present();
  void add();
  void removeCurrent();
  QString text(StringKey key) const;

  ExcludedApplications& excluded_;
  ApplicationList::Services applications_;
  const LocalizationStore& localization_;
  const ItemIcons& icons_;
  QLabel* heading_;
  QLabel* note_;
  QListView* view_;
  QPushButton* add_;
  QPushButton* remove_;
  QBoxLayout* buttons_;
  ApplicationRows* rows_;
  Subscription changed_;
  Subscription decoded_;
};

}  // namespace rondora
