#include "ui/qt/settings/findings_list.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/symbol_images.h"
#include "ui/qt/settings/focus_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {

namespace {

constexpr int kMarkSide = 16;
constexpr int kSpacing = 10;
// A contrast of at least 3 : 1 on light and on dark windows (WCAG 2.1, 1.4.11).
constexpr Color kWorksColor{0.14, 0.56, 0.25, 1};
constexpr Color kFailsColor{0.78, 0.36, 0.0, 1};

void showInPage(QWidget& widget) {
  for (QWidget* parent = widget.parentWidget(); parent != nullptr; parent = parent->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(parent)) return area->ensureWidgetVisible(&widget);
  }
}

}  // namespace

FindingsList::FindingsList(Watch watch, Press press) : watch_(std::move(watch)), press_(std::move(press)) {
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
}

void FindingsList::setMarkNames(const std::string& works, const std::string& fails) {
  if (worksName_ == works && failsName_ == fails) return;
  worksName_ = works;
  failsName_ = fails;
  shown_.clear();
}

void FindingsList::subscribe() {
  subscription_ = watch_([this](const SessionFindings& findings) { present(findings); });
}

void FindingsList::refresh() {
  subscribe();
  if (!isVisible()) subscription_.reset();
}

void FindingsList::present(const SessionFindings& findings) {
  if (findings == shown_) return;
  const auto focus = focusPlace();
  shown_ = findings;
  rebuild();
  if (focus) restoreFocus(*focus);
}

// Called only on a change, so that a refresh keeps selection and focus.
void FindingsList::rebuild() {
  rows_.clear();
  delete rowsWidget_;
  rowsWidget_ = new QWidget;
  auto* grid = new QGridLayout(rowsWidget_);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(kSpacing);
  grid->setVerticalSpacing(kSpacing);
  grid->setColumnStretch(1, 1);
  int row = 0;
  for (const SessionFinding& finding : shown_) {
    grid->addWidget(makeMark(finding), row, 0, Qt::AlignTop);
    grid->addWidget(makeText(finding), row, 1);
    ++row;
  }
  grid->setRowStretch(row, 1);
  layout()->addWidget(rowsWidget_);
  // The layout would show it only on a later turn, too late for the focus.
  rowsWidget_->show();
  enterTabOrder();
  if (onRebuilt) onRebuilt();
}

// Otherwise widgets added later are last in the Tab order. The toolkit places them only behind a widget that takes the
// focus.
void FindingsList::enterTabOrder() {
  setFocusPolicy(Qt::TabFocus);
  QWidget* previous = predecessor_ != nullptr ? predecessor_ : this;
  for (QWidget* child : rowsWidget_->findChildren<QWidget*>()) {
    if (child->focusPolicy() != Qt::StrongFocus) continue;
    setTabOrder(previous, child);
    previous = child;
  }
  setFocusPolicy(Qt::NoFocus);
}

std::optional<FindingsList::FocusPlace> FindingsList::focusPlace() const {
  const QWidget* focused = window()->focusWidget();
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    if (rows_[row].statement == focused) return FocusPlace{row, std::nullopt};
    for (const auto& [button, widget] : rows_[row].buttons) {
      if (widget == focused) return FocusPlace{row, button};
    }
  }
  return std::nullopt;
}

/// The finding with the focus may be gone: the next button of the same kind takes it, else the list, else what precedes
/// the list.
void FindingsList::restoreFocus(const FocusPlace& before) {
  QWidget* next = before.button ? buttonLike(*before.button, before.row) : nullptr;
  if (next == nullptr && !rows_.empty()) next = rows_[std::min(before.row, rows_.size() - 1)].statement;
  if (next == nullptr) next = predecessor_;
  if (next == nullptr) return;
  next->setFocus();
  // Once the new findings have their places.
  QMetaObject::invokeMethod(
      next, [next] { showInPage(*next); }, Qt::QueuedConnection);
}

/// The same button, else the first of its kind from that row on, else the last one above.
QPushButton* FindingsList::buttonLike(const FindingButton& button, std::size_t row) const {
  QPushButton* above = nullptr;
  QPushButton* below = nullptr;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    for (const auto& [present, widget] : rows_[i].buttons) {
      if (present == button) return widget;
      if (present.command != button.command) continue;
      if (i < row) above = widget;
      if (i >= row && below == nullptr) below = widget;
    }
  }
  return below != nullptr ? below : above;
}

QWidget* FindingsList::makeMark(const SessionFinding& finding) const {
  const double ratio = devicePixelRatioF();
  const int pixels = static_cast<int>(std::lround(kMarkSide * ratio));
  QPixmap pixmap =
      QPixmap::fromImage(finding.works ? symbolImage("checkmark.circle.fill", pixels, kWorksColor)
                                       : symbolImage("exclamationmark.triangle.fill", pixels, kFailsColor));
  pixmap.setDevicePixelRatio(ratio);
  auto* mark = new QLabel;
  mark->setPixmap(pixmap);
  mark->setAccessibleName(toQString(finding.works ? worksName_ : failsName_));
  return mark;
}

QWidget* FindingsList::makeText(const SessionFinding& finding) {
  auto* text = new QWidget;
  auto* column = new QVBoxLayout(text);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  auto* statement = new FocusText(toQString(finding.statement));
  const std::string& mark = finding.works ? worksName_ : failsName_;
  statement->setAccessibleName(toQString(mark + ": " + finding.statement));
  statement->setAccessibleDescription(toQString(finding.remedy));
  rows_.push_back({statement, {}});
  column->addWidget(statement);
  if (finding.remedy.empty()) return text;
  QLabel* remedy = settings_look::makeNote(toQString(finding.remedy));
  // For commands and paths.
  remedy->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  remedy->setContextMenuPolicy(Qt::NoContextMenu);
  column->addWidget(remedy);
  if (!finding.buttons.empty()) column->addWidget(makeButtons(finding));
  return text;
}

QWidget* FindingsList::makeButtons(const SessionFinding& finding) {
  auto* buttons = new QWidget;
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 2, 0, 0);
  for (const FindingButton& button : finding.buttons) {
    auto* widget = new QPushButton(toQString(button.title));
    widget->setAutoDefault(false);
    widget->setAccessibleDescription(toQString(finding.statement));
    // Later: the button itself is calling, and its finding may go.
    connect(
        widget, &QPushButton::clicked, this, [this, button] { pressed(button); }, Qt::QueuedConnection);
    rows_.back().buttons.emplace_back(button, widget);
    row->addWidget(widget);
  }
  row->addStretch();
  return buttons;
}

void FindingsList::pressed(const FindingButton& button) {
  if (press_) press_(button);
  refresh();
}

void FindingsList::showEvent(QShowEvent* event) {
  subscribe();
  QWidget::showEvent(event);
}

void FindingsList::hideEvent(QHideEvent* event) {
  subscription_.reset();
  QWidget::hideEvent(event);
}

}  // namespace rondora
