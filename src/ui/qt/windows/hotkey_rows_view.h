#pragma once

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <functional>
#include <string>
#include <vector>

#include "base/observable.h"
#include "settings/window_contents.h"

namespace rondora {

/// The menus with their hotkeys, a row for each: its name, its hotkey, and buttons that record and remove the hotkey. A
/// recording ends when the user clicks anywhere but on its button, and when the window loses the focus or is hidden.
class HotkeyRowsView : public QScrollArea {
 public:
  /// The titles of the buttons.
  struct Texts {
    std::string record;
    std::string cancel;
    std::string remove;
    friend bool operator==(const Texts&, const Texts&) = default;
  };

  explicit HotkeyRowsView(HotkeyList list);

  void setTexts(Texts texts);
  /// Places the buttons behind `predecessor` in the Tab order. `predecessor` must outlive this object.
  void follow(QWidget& predecessor) { predecessor_ = &predecessor; }
  /// The last widget in the Tab order up to here; another one after each call of `onRebuilt`.
  QWidget& last() const;
  std::function<void()> onRebuilt;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Row {
    QLabel* menu = nullptr;
    QLabel* hotkey = nullptr;
    QLabel* note = nullptr;
    QPushButton* record = nullptr;
    QPushButton* remove = nullptr;
  };

  void subscribe();
  void present(const HotkeyRows& rows);
  void rebuild();
  void enterTabOrder();
  void showNotes(const HotkeyRows& before);
  void placeRow(QGridLayout& grid, int line, const std::string& menuId);
  void fill(const Row& row, const HotkeyRow& content) const;
  bool isRecording() const;
  void cancelUnlessOnButton();
  void cancel();

  HotkeyList list_;
  QWidget* predecessor_ = nullptr;
  Texts texts_;
  HotkeyRows shown_;
  std::vector<Row> rows_;
  Subscription subscription_;
  Subscription clicks_;
};

}  // namespace rondora
