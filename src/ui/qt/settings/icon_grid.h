#pragma once

#include <QListView>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "settings/icons/icon_choice.h"
#include "ui/qt/settings/icon_cell_pictures.h"

namespace rondora {

/// The symbols and emoji to choose from, in rows. Only visible ones are drawn.
class IconGrid : public QListView {
 public:
  using Cell = IconChoice::Cell;

  struct Handlers {
    /// For a click on a cell, and Enter.
    std::function<void(const Cell&)> choose;
    /// Another cell is highlighted; null for none.
    std::function<void(const Cell*)> highlight;
    /// Keys of a text that the user types, and of its correction.
    std::function<void(QKeyEvent&)> type;
    /// The Up key in the first row.
    std::function<void()> leaveUpwards;
  };

  explicit IconGrid(Handlers handlers);

  void setCells(std::vector<Cell> cells, std::optional<std::size_t> current);
  /// Gives the grid the focus, on the first cell when none is highlighted.
  void enter();
  void chooseCurrent() { choose(currentIndex()); }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  class Cells;
  class Painter;

  void choose(const QModelIndex& index);
  const Cell* cellAt(const QModelIndex& index) const;
  QSize sizeFor(int columns, int rows) const;

  Handlers handlers_;
  Cells* cells_ = nullptr;
  IconCellPictures pictures_;
};

}  // namespace rondora
