#pragma once

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QWidget>
#include <optional>

#include "ui/qt/settings/settings_parts.h"

namespace rondora {

class ColorField;

/// The fields of the chosen item.
class ItemPanel : public QWidget {
 public:
  explicit ItemPanel(const SettingsParts& parts);

  /// Shows the present texts and values.
  void refresh();
  /// Puts the focus into the title, as for a new item.
  void editTitle();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  QWidget* makeActionEditors();
  void addRow(QLabel*& label, QWidget& field);
  void connectFields();
  void forgetTyping();
  void refreshAction();
  void refreshLooks();
  void refreshLabel();
  void refreshAttempt();
  void chooseApplication();
  void chooseIcon();
  QString text(StringKey key) const;

  SettingsParts parts_;
  ItemEditor& item_;
  QFormLayout* form_;
  QLabel* titleLabel_ = nullptr;
  QLineEdit* title_;
  QLabel* kindLabel_ = nullptr;
  QComboBox* kind_;
  QStackedWidget* editors_;
  QPushButton* application_;
  QLineEdit* address_;
  QPushButton* keystroke_;
  QPlainTextEdit* snippet_;
  QLabel* snippetHint_;
  QLabel* systemLabel_ = nullptr;
  QComboBox* system_;
  QLabel* problem_;
  QLabel* iconLabel_ = nullptr;
  QPushButton* icon_;
  QLabel* colorLabel_ = nullptr;
  ColorField* color_;
  QLabel* iconColorLabel_ = nullptr;
  ColorField* iconColor_;
  QLabel* labelLabel_ = nullptr;
  QLineEdit* label_;
  QLabel* labelProblem_;
  QPushButton* tryIt_;
  QLabel* attempt_;
  std::optional<Uuid> shown_;
  Subscription itemChanged_;
};

}  // namespace rondora
