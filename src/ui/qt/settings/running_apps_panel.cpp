#include "ui/qt/settings/running_apps_panel.h"

#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/application_chooser.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

constexpr int kMaxShownRows = 8;

/// As high as its rows, up to a number of them.
class ShortList : public QListView {
 public:
  QSize sizeHint() const override {
    int height = 2 * frameWidth();
    const int count = std::min(model() == nullptr ? 0 : model()->rowCount(), kMaxShownRows);
    for (int row = 0; row < count; ++row) height += sizeHintForRow(row);
    return {0, height};
  }
  QSize minimumSizeHint() const override { return {0, std::min(sizeHint().height(), fontMetrics().height() * 4)}; }
};

}  // namespace

RunningAppsPanel::RunningAppsPanel(ExcludedApplications& excluded, ApplicationList::Services applications,
                                   const LocalizationStore& localization, const ItemIcons& icons)
    : excluded_(excluded),
      applications_(std::move(applications)),
      localization_(localization),
      icons_(icons),
      heading_(settings_look::makeHeading()),
      note_(settings_look::makeNote()),
      view_(new ShortList),
      add_(new QPushButton),
      remove_(new QPushButton),
      buttons_(new QBoxLayout(QBoxLayout::LeftToRight)),
      rows_(new ApplicationRows(this)) {
  view_->setModel(rows_);
  view_->setItemDelegate(new ApplicationRowPainter(icons, settings_look::kListIcon, false, view_));
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  view_->installEventFilter(this);
  makeLayout();
  connect(add_, &QPushButton::clicked, this, [this] { add(); });
  connect(remove_, &QPushButton::clicked, this, [this] { removeCurrent(); });
  changed_ = excluded_.onChanged([this] { present(); });
  decoded_ = icons_.onDecoded([this] { view_->viewport()->update(); });
  refresh();
}

void RunningAppsPanel::makeLayout() {
  heading_->setBuddy(view_);
  buttons_->setSpacing(settings_look::kRowGap);
  buttons_->addWidget(add_);
  buttons_->addWidget(remove_);
  buttons_->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(settings_look::kRowGap);
  column->addWidget(heading_);
  column->addWidget(note_);
  column->addWidget(view_);
  column->addLayout(buttons_);
  column->addStretch(1);
}

QString RunningAppsPanel::text(StringKey key) const { return toQString(localization_.text(key)); }

void RunningAppsPanel::refresh() {
  settings_look::nameControl(*heading_, text(StringKey::excludedHeading));
  add_->setText(text(StringKey::excludedAdd));
  remove_->setText(text(StringKey::excludedRemove));
  present();
}

void RunningAppsPanel::present() {
  const int row = std::max(view_->currentIndex().row(), 0);
  const QString before = view_->currentIndex().data(ApplicationRows::kIdentifierRole).toString();
  std::vector<ApplicationRow> rows;
  for (const auto& each : excluded_.rows()) {
    rows.push_back({toQString(each.bundleIdentifier), toQString(each.name), toQString(each.note), {}});
  }
  const int count = static_cast<int>(rows.size());
  const bool hadFocus = view_->hasFocus() || remove_->hasFocus();
  rows_->show(std::move(rows));
  const QModelIndex kept = rows_->find(before);
  view_->setCurrentIndex(kept.isValid() ? kept : rows_->index(std::min(row, count - 1)));
  view_->setVisible(count > 0);
  note_->setText(text(count == 0 ? StringKey::excludedNone : StringKey::excludedNote));
  remove_->setEnabled(count > 0);
  remove_->setVisible(count > 0);
  if (hadFocus && count == 0) add_->setFocus(Qt::OtherFocusReason);
  view_->updateGeometry();
}

void RunningAppsPanel::add() {
  ApplicationChooser::open(
      std::make_unique<ApplicationList>(applications_, excluded_.offer()), localization_, icons_,
      [this](const std::string& bundleIdentifier) {
        excluded_.exclude(bundleIdentifier);
        view_->setCurrentIndex(rows_->find(toQString(bundleIdentifier)));
      },
      *this);
}

void RunningAppsPanel::removeCurrent() {
  const QModelIndex current = view_->currentIndex();
  if (current.isValid()) excluded_.include(current.data(ApplicationRows::kIdentifierRole).toString().toStdString());
}

bool RunningAppsPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Delete) return QWidget::eventFilter(watched, event);
  removeCurrent();
  return true;
}

/// Long texts put the buttons below each other.
void RunningAppsPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int beside = add_->sizeHint().width() + remove_->sizeHint().width() + buttons_->spacing();
  buttons_->setDirection(beside <= width() ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

}  // namespace rondora
