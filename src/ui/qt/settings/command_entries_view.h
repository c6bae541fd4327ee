#pragma once

#include <QListWidget>
#include <functional>

#include "settings/commands/app_command_sets.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// The entries of the chosen set of commands, in the order of the ring. They are moved by dragging or with Alt and the
/// arrow keys, and removed with Delete.
class CommandEntriesView : public QListWidget {
 public:
  /// The references must outlive the object.
  CommandEntriesView(AppCommandSets& sets, const ItemIcons& icons);

  /// Shows the present entries.
  void refresh();
  void removeChosen();
  void moveChosen(int places);

  /// Called when the user opens the chosen entry. May be empty.
  std::function<void()> onOpen;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void startDrag(Qt::DropActions supportedActions) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void rowChosen();

  AppCommandSets& sets_;
  const ItemIcons& icons_;
  bool isRefreshing_ = false;
};

}  // namespace rondora
