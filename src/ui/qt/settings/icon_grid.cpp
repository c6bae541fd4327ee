#include "ui/qt/settings/icon_grid.h"

#include <QAbstractListModel>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <utility>

#include "platform/qt/qt_text.h"

namespace rondora {
namespace {

/// Points.
constexpr int kIcon = 28;
constexpr int kCell = 42;
constexpr double kFrame = 2;
constexpr int kColumns = 10;
constexpr int kRows = 6;
constexpr int kMinRows = 3;

bool isTyped(const QKeyEvent& event) {
  if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0) return false;
  if (event.key() == Qt::Key_Backspace) return true;
  const QString text = event.text();
  return !text.isEmpty() && text.at(0).isPrint() && !text.at(0).isSpace();
}

}  // namespace

class IconGrid::Cells : public QAbstractListModel {
 public:
  using QAbstractListModel::QAbstractListModel;

  void show(std::vector<Cell> cells) {
    beginResetModel();
    cells_ = std::move(cells);
    endResetModel();
  }
  const Cell* at(const QModelIndex& index) const {
    const auto place = static_cast<std::size_t>(index.row());
    return index.isValid() && place < cells_.size() ? &cells_[place] : nullptr;
  }
  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(cells_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const bool isName = role == Qt::ToolTipRole || role == Qt::AccessibleTextRole;
    const Cell* cell = isName ? at(index) : nullptr;
    return cell != nullptr ? QVariant(toQString(cell->name)) : QVariant();
  }

 private:
  std::vector<Cell> cells_;
};

class IconGrid::Painter : public QStyledItemDelegate {
 public:
  explicit Painter(IconGrid& grid) : QStyledItemDelegate(&grid), grid_(grid) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const Cell* cell = grid_.cellAt(index);
    if (cell == nullptr) return;
    const bool isFilled = (option.state & QStyle::State_Selected) != 0 && grid_.hasFocus();
    paintPanel(*painter, option);
    const QColor tint = option.palette.color(isFilled ? QPalette::HighlightedText : QPalette::Text);
    const double pixelsPerPoint = painter->device()->devicePixelRatioF();
    const QPixmap picture = grid_.pictures_.picture(cell->icon, kIcon, tint, pixelsPerPoint);
    QRectF place({}, picture.deviceIndependentSize());
    place.moveCenter(QRectF(option.rect).center());
    painter->drawPixmap(place.topLeft(), picture);
  }
  QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {kCell, kCell}; }

 private:
  /// The highlighted cell is filled while the grid has the focus, else it is framed.
  void paintPanel(QPainter& painter, const QStyleOptionViewItem& option) const {
    QStyleOptionViewItem panel = option;
    panel.showDecorationSelected = true;
    const bool isFramed = (option.state & QStyle::State_Selected) != 0 && !grid_.hasFocus();
    panel.state.setFlag(QStyle::State_Selected, (option.state & QStyle::State_Selected) != 0 && !isFramed);
    grid_.style()->drawPrimitive(QStyle::PE_PanelItemViewItem, &panel, &painter, &grid_);
    if (!isFramed) return;
    painter.save();
    painter.setPen(QPen(option.palette.color(QPalette::Highlight), kFrame));
    painter.drawRect(QRectF(option.rect).adjusted(kFrame / 2, kFrame / 2, -kFrame / 2, -kFrame / 2));
    painter.restore();
  }

  IconGrid& grid_;
};

IconGrid::IconGrid(Handlers handlers) : handlers_(std::move(handlers)), cells_(new Cells(this)) {
  setModel(cells_);
  setItemDelegate(new Painter(*this));
  setViewMode(QListView::IconMode);
  setMovement(QListView::Static);
  setResizeMode(QListView::Adjust);
  setUniformItemSizes(true);
  setGridSize({kCell, kCell});
  setSelectionMode(QAbstractItemView::SingleSelection);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  setMouseTracking(true);
  QObject::connect(this, &QListView::clicked, this, [this](const QModelIndex& index) { choose(index); });
}

void IconGrid::setCells(std::vector<Cell> cells, std::optional<std::size_t> current) {
  cells_->show(std::move(cells));
  handlers_.highlight(nullptr);
  if (!current) return scrollToTop();
  setCurrentIndex(cells_->index(static_cast<int>(*current)));
  scrollTo(currentIndex(), QAbstractItemView::PositionAtCenter);
}

void IconGrid::enter() {
  setFocus();
  if (!currentIndex().isValid() && cells_->rowCount() > 0) setCurrentIndex(cells_->index(0));
}

void IconGrid::choose(const QModelIndex& index) {
  if (const Cell* cell = cellAt(index)) handlers_.choose(Cell(*cell));
}

const IconGrid::Cell* IconGrid::cellAt(const QModelIndex& index) const { return cells_->at(index); }

void IconGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  handlers_.highlight(cellAt(current));
}

void IconGrid::keyPressEvent(QKeyEvent* event) {
  const bool isInFirstRow = visualRect(currentIndex()).top() + verticalOffset() < kCell;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    chooseCurrent();
  } else if (event->key() == Qt::Key_Up && isInFirstRow) {
    handlers_.leaveUpwards();
  } else if (isTyped(*event)) {
    handlers_.type(*event);
  } else {
    QListView::keyPressEvent(event);
  }
}

// The toolkit's list mirrors its cells but not its keys.
QModelIndex IconGrid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
  if (isRightToLeft() && (action == MoveLeft || action == MoveRight)) {
    action = action == MoveLeft ? MoveRight : MoveLeft;
  }
  return QListView::moveCursor(action, modifiers);
}

QSize IconGrid::sizeFor(int columns, int rows) const {
  const int frame = 2 * frameWidth();
  const int bar = verticalScrollBar()->sizeHint().width();
  return {columns * kCell + bar + frame + 1, rows * kCell + frame};
}

QSize IconGrid::sizeHint() const { return sizeFor(kColumns, kRows); }
QSize IconGrid::minimumSizeHint() const { return sizeFor(kColumns, kMinRows); }

}  // namespace rondora
