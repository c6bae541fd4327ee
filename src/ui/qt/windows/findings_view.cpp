#include "ui/qt/windows/findings_view.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/symbol_images.h"
#include "ui/qt/windows/interface_language.h"

namespace rondora {

namespace {

constexpr int kMarkSide = 16;
constexpr int kSpacing = 10;
constexpr QSize kMaxHint(480, 300);
constexpr int kMinHeight = 90;
// A contrast of at least 3 : 1 on light and on dark windows (WCAG 2.1, 1.4.11).
constexpr Color kWorksColor{0.14, 0.56, 0.25, 1};
constexpr Color kFailsColor{0.78, 0.36, 0.0, 1};

QLabel* wrapped(const std::string& text) {
  auto* label = new QLabel(toQString(text));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(leadingAlignment());
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // The toolkit's own menu is only in English.
  label->setContextMenuPolicy(Qt::NoContextMenu);
  return label;
}

/// Less prominent than the statements, but still easy to read.
QColor toned(const QPalette& palette) {
  QColor color = palette.color(QPalette::WindowText);
  color.setAlphaF(0.75F);
  return color;
}

}  // namespace

FindingsView::FindingsView(Watch watch, Press press) : watch_(std::move(watch)), press_(std::move(press)) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  viewport()->setAutoFillBackground(false);
}

void FindingsView::setMarkNames(const std::string& works, const std::string& fails) {
  if (worksName_ == works && failsName_ == fails) return;
  worksName_ = works;
  failsName_ = fails;
  shown_.clear();
}

void FindingsView::subscribe() {
  subscription_ = watch_([this](const SessionFindings& findings) { present(findings); });
}

void FindingsView::refresh() {
  subscribe();
  if (!isVisible()) subscription_.reset();
}

void FindingsView::present(const SessionFindings& findings) {
  if (findings == shown_) return;
  const auto focus = focusPlace();
  shown_ = findings;
  rebuild();
  if (focus) restoreFocus(*focus);
}

// Called only on a change, so that a refresh keeps selection and focus.
void FindingsView::rebuild() {
  rows_.clear();
  auto* page = new QWidget;
  page->setAutoFillBackground(false);
  auto* grid = new QGridLayout(page);
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
  setWidget(page);
  enterTabOrder();
  updateGeometry();
}

// Otherwise widgets added later are last in the Tab order.
void FindingsView::enterTabOrder() {
  QWidget* previous = predecessor_;
  if (previous == nullptr) return;
  for (QWidget* child : widget()->findChildren<QWidget*>()) {
    if (child->focusPolicy() != Qt::StrongFocus) continue;
    setTabOrder(previous, child);
    previous = child;
  }
}

std::optional<FindingsView::FocusPlace> FindingsView::focusPlace() const {
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
void FindingsView::restoreFocus(const FocusPlace& before) {
  QWidget* next = before.button ? buttonLike(*before.button, before.row) : nullptr;
  if (next == nullptr && !rows_.empty()) next = rows_[std::min(before.row, rows_.size() - 1)].statement;
  if (next == nullptr) next = predecessor_;
  if (next == nullptr) return;
  next->setFocus();
  // Once the new findings have their places.
  QMetaObject::invokeMethod(
      next, [this, next] { ensureWidgetVisible(next); }, Qt::QueuedConnection);
}

/// The same button, else the first of its kind from that row on, else the last one above.
QPushButton* FindingsView::buttonLike(const FindingButton& button, std::size_t row) const {
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

QWidget* FindingsView::makeMark(const SessionFinding& finding) const {
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

QWidget* FindingsView::makeText(const SessionFinding& finding) {
  auto* text = new QWidget;
  auto* column = new QVBoxLayout(text);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(2);
  QLabel* statement = wrapped(finding.statement);
  const std::string& mark = finding.works ? worksName_ : failsName_;
  statement->setAccessibleName(toQString(mark + ": " + finding.statement));
  statement->setAccessibleDescription(toQString(finding.remedy));
  statement->setFocusPolicy(Qt::StrongFocus);
  rows_.push_back({statement, {}});
  column->addWidget(statement);
  if (finding.remedy.empty()) return text;
  QLabel* remedy = wrapped(finding.remedy);
  QPalette palette = remedy->palette();
  palette.setColor(QPalette::WindowText, toned(palette));
  remedy->setPalette(palette);
  column->addWidget(remedy);
  if (!finding.buttons.empty()) column->addWidget(makeButtons(finding));
  return text;
}

QWidget* FindingsView::makeButtons(const SessionFinding& finding) {
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

void FindingsView::pressed(const FindingButton& button) {
  if (press_) press_(button);
  refresh();
}

QSize FindingsView::sizeHint() const {
  if (widget() == nullptr || shown_.empty()) return {kMaxHint.width(), 0};
  const int width = std::clamp(maximumWidth(), 1, kMaxHint.width());
  return {width, std::min(widget()->heightForWidth(width), kMaxHint.height())};
}

QSize FindingsView::minimumSizeHint() const { return {0, std::min(sizeHint().height(), kMinHeight)}; }

void FindingsView::showEvent(QShowEvent* event) {
  subscribe();
  QScrollArea::showEvent(event);
}

void FindingsView::hideEvent(QHideEvent* event) {
  subscription_.reset();
  QScrollArea::hideEvent(event);
}

}  // namespace rondora
