#include "ui/qt/settings/appearance_page.h"

#include <QHBoxLayout>
#include <QResizeEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

/// What the preview gets beside the fields, at least, and above them.
constexpr int kPreviewWidth = 280;
constexpr int kPreviewHeight = 220;
constexpr int kMinFieldsHeight = 120;
constexpr int kMinMenuLetters = 12;

}  // namespace

AppearancePage::AppearancePage(AppearanceEditor& editor, const LocalizationStore& localization, const ItemIcons& icons,
                               QWidget* preview)
    : editor_(editor),
      localization_(localization),
      icons_(icons),
      title_(settings_look::makeTitle()),
      menus_(new Unscrolled<QComboBox>),
      menusLabel_(settings_look::makeLabelFor(*menus_)),
      copyToAll_(new QPushButton),
      resetAll_(new QPushButton) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  placeHeader(*column);
  placeBody(*column, preview);
  refresh();
}

void AppearancePage::placeHeader(QVBoxLayout& column) {
  using namespace settings_look;
  menus_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  menus_->setMinimumContentsLength(kMinMenuLetters);
  connect(menus_, &QComboBox::activated, this,
          [this](int place) { editor_.showMenu(shownMenus_.at(static_cast<std::size_t>(place)).id); });
  for (QPushButton* button : {copyToAll_, resetAll_}) button->setAutoDefault(false);
  connect(copyToAll_, &QPushButton::clicked, this, [this] { editor_.copyToAll(); });
  connect(resetAll_, &QPushButton::clicked, this, [this] { editor_.resetAll(); });
  auto* header = new QVBoxLayout;
  header->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kRowGap);
  header->setSpacing(kRowGap);
  header->addWidget(title_);
  auto* row = new QHBoxLayout;
  row->setSpacing(kRowGap);
  row->addWidget(menusLabel_);
  row->addWidget(menus_, 1);
  row->addWidget(copyToAll_);
  header->addLayout(row);
  column.addLayout(header);
}

void AppearancePage::placeBody(QVBoxLayout& column, QWidget* preview) {
  body_ = new QBoxLayout(QBoxLayout::TopToBottom);
  body_->setContentsMargins(0, 0, 0, 0);
  body_->setSpacing(0);
  if (preview != nullptr) {
    previewHolder_ = new QWidget;
    auto* inside = new QVBoxLayout(previewHolder_);
    inside->addWidget(preview);
    body_->addWidget(previewHolder_);
  }
  fields_ = qobject_cast<QScrollArea*>(settings_look::makeScrollingPage(fieldsColumn_));
  fields_->widget()->installEventFilter(this);
  fieldsColumn_->addSpacing(settings_look::kSectionGap);
  fieldsColumn_->addWidget(resetAll_, 0, Qt::AlignLeading);
  fieldsColumn_->addStretch();
  body_->addWidget(fields_, 1);
  column.addLayout(body_, 1);
}

QSize AppearancePage::minimumSizeHint() const {
  const QSize header = layout()->itemAt(0)->minimumSize();
  const int preview = previewHolder_ == nullptr ? 0 : kPreviewHeight;
  return {std::max(header.width(), fields_->minimumSizeHint().width()), header.height() + preview + kMinFieldsHeight};
}

void AppearancePage::resizeEvent(QResizeEvent* event) {
  arrange();
  QWidget::resizeEvent(event);
}

// The fields have become wider or narrower.
bool AppearancePage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) arrange();
  return QWidget::eventFilter(watched, event);
}

void AppearancePage::arrange() {
  if (previewHolder_ == nullptr) return;
  const bool isBeside = width() >= fields_->minimumSizeHint().width() + kPreviewWidth;
  const auto direction = isBeside ? QBoxLayout::RightToLeft : QBoxLayout::TopToBottom;
  if (isArranged_ && body_->direction() == direction) return;
  isArranged_ = true;
  // To the trailing side of the fields, or above them.
  body_->setDirection(direction);
  const int side = isBeside ? settings_look::kRowGap : settings_look::kPageMargin;
  previewHolder_->layout()->setContentsMargins(side, 0, side, isBeside ? settings_look::kPageMargin : 0);
  previewHolder_->setMaximumHeight(isBeside ? QWIDGETSIZE_MAX : kPreviewHeight);
  previewHolder_->setMinimumSize(isBeside ? kPreviewWidth : 0, isBeside ? 0 : kPreviewHeight);
  body_->setStretch(0, isBeside ? 1 : 0);
  body_->setStretch(1, isBeside ? 2 : 1);
}

void AppearancePage::refresh() {
  const auto text = [this](StringKey key) { return toQString(localization_.text(key)); };
  title_->setText(text(StringKey::pageAppearance));
  settings_look::nameControl(*menusLabel_, text(StringKey::lookMenu));
  copyToAll_->setText(text(StringKey::lookCopyToAll));
  resetAll_->setText(text(StringKey::lookResetAll));
  const bool areAlike = editor_.differingMenus() == 0;
  copyToAll_->setEnabled(!areAlike);
  resetAll_->setEnabled(!editor_.isAllDefault());
  copyToAll_->setToolTip(areAlike ? text(StringKey::lookAllAlike) : QString());
  copyToAll_->setAccessibleDescription(copyToAll_->toolTip());
  showMenus();
  showRows();
}

void AppearancePage::showMenus() {
  const QSignalBlocker blocker(menus_);
  if (auto menus = editor_.menus(); menus != shownMenus_) {
    shownMenus_ = std::move(menus);
    menus_->clear();
    for (const AppearanceEditor::Menu& each : shownMenus_) menus_->addItem(toQString(each.name));
  }
  const PieMenu* menu = editor_.menu();
  const auto shown = std::ranges::find_if(
      shownMenus_, [menu](const AppearanceEditor::Menu& each) { return menu != nullptr && each.id == menu->id; });
  menus_->setCurrentIndex(shown == shownMenus_.end() ? -1 : static_cast<int>(shown - shownMenus_.begin()));
  menus_->setEnabled(!shownMenus_.empty());
}

void AppearancePage::showRows() {
  const auto rows = editor_.rows();
  if (!std::ranges::equal(rows, keys_, {}, &AppearanceRow::key)) return rebuild(rows);
  for (std::size_t i = 0; i < groups_.size(); ++i) headings_[i]->setText(toQString(editor_.groupTitle(groups_[i])));
  for (std::size_t i = 0; i < rows.size(); ++i) rows_[i]->show(rows[i]);
  alignEntries();
}

void AppearancePage::alignEntries() {
  int width = 0;
  for (const AppearanceRowView* row : rows_) width = std::max(width, row->entryWidth());
  for (AppearanceRowView* row : rows_) row->setEntryWidth(width);
}

/// Menus of another kind have other fields.
void AppearancePage::rebuild(const std::vector<AppearanceRow>& rows) {
  using namespace settings_look;
  // Later: one of its controls may be calling.
  if (grid_ != nullptr) {
    grid_->hide();
    grid_->deleteLater();
  }
  keys_.clear();
  rows_.clear();
  groups_.clear();
  headings_.clear();
  grid_ = new QWidget;
  auto* grid = new QGridLayout(grid_);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(2 * kRowGap);
  grid->setVerticalSpacing(kRowGap);
  grid->setColumnStretch(1, 1);
  int line = 0;
  for (const AppearanceRow& row : rows) {
    if (groups_.empty() || groups_.back() != row.group) {
      if (line > 0) grid->setRowMinimumHeight(line++, kSectionGap - 2 * kRowGap);
      groups_.push_back(row.group);
      headings_.push_back(makeHeading(toQString(editor_.groupTitle(row.group))));
      grid->addWidget(headings_.back(), line++, 0, 1, AppearanceRowView::kColumns);
    }
    keys_.push_back(row.key);
    rows_.push_back(new AppearanceRowView(*grid, line++, editor_, localization_, icons_, row));
  }
  alignEntries();
  fieldsColumn_->insertWidget(0, grid_);
  if (!rows_.empty()) setTabOrder(&rows_.back()->lastControl(), resetAll_);
  updateGeometry();
}

}  // namespace rondora
