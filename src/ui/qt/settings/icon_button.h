#pragma once

#include <QKeySequence>
#include <QString>
#include <QToolButton>
#include <functional>
#include <string>

#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// A button with one of the program's symbols, named for screen readers and in its tool tip.
class IconButton : public QToolButton {
 public:
  /// `icons` must outlive the object.
  IconButton(const ItemIcons& icons, std::string symbol, std::function<void()> pressed);

  /// `keys` do the same and are told in the tool tip.
  void setName(const QString& name, const QKeySequence& keys = {});

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void draw();

  const ItemIcons& icons_;
  std::string symbol_;
  QString tip_;
};

}  // namespace rondora
