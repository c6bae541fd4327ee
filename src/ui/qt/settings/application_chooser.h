#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStackedWidget>
#include <functional>
#include <memory>
#include <string>

#include "settings/applications/application_list.h"
#include "ui/qt/settings/application_rows.h"

namespace rondora {

/// Lets the user choose an application by searching. The arrow keys go from the search to the list and back, letters
/// from the list to the search.
class ApplicationChooser : public QDialog {
 public:
  using Chosen = std::function<void(const std::string& bundleIdentifier)>;

  /// Shows a dialog above the window of `parent`; it is destroyed when it is closed. The references must outlive the
  /// parent. `chosen` is not called when the user cancels.
  static void open(std::unique_ptr<ApplicationList> list, const LocalizationStore& localization, const ItemIcons& icons,
                   Chosen chosen, QWidget& parent);

  ApplicationChooser(std::unique_ptr<ApplicationList> list, const LocalizationStore& localization,
                     const ItemIcons& icons, Chosen chosen, QWidget* parent);

  /// Shows the present texts.
  void refresh();
  void accept() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeLayout();
  void showTexts();
  void present();
  void chooseFirst();
  void choose(int row);
  void showCurrent();
  bool pressInSearch(QKeyEvent& press);
  bool pressInList(QKeyEvent& press);
  QString text(StringKey key) const;

  std::unique_ptr<ApplicationList> list_;
  const LocalizationStore& localization_;
  Chosen chosen_;
  QLineEdit* search_;
  QStackedWidget* pages_;
  QListView* view_;
  QLabel* nothing_;
  QPushButton* choose_ = nullptr;
  QPushButton* cancel_ = nullptr;
  ApplicationRows* rows_;
  Subscription changed_;
  Subscription decoded_;
};

}  // namespace rondora
