#include "ui/qt/settings/menu_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/choice_box.h"
#include "ui/qt/settings/color_field.h"
#include "ui/qt/settings/hotkey_field.h"
#include "ui/qt/settings/item_list.h"
#include "ui/qt/settings/item_panel.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/ring_preview_view.h"

namespace rondora {
namespace {

constexpr double kNameScale = 1.35;
constexpr int kSideWidth = 330;
constexpr int kSideMargin = 16;

}  // namespace

MenuPage::MenuPage(const SettingsParts& parts, MakePanel makePanel)
    : parts_(parts),
      menu_(parts_.models.menu),
      name_(new QLineEdit),
      switch_(new QCheckBox),
      description_(settings_look::makeNote()),
      hotkey_(new HotkeyField(parts.contents.hotkeys, parts.models.localization, parts.icons)),
      fingers_(new ChoiceBox),
      trackpadNote_(settings_look::makeProblem()),
      preview_(new RingPreviewView(parts.models.preview, parts.models.localization, parts.rasterizer)),
      turnLeft_(new IconButton(parts.icons, "rotate.left", [this] { parts_.models.preview.turnBy(-1); })),
      turnRight_(new IconButton(parts.icons, "rotate.right", [this] { parts_.models.preview.turnBy(1); })),
      help_(settings_look::makeNote()),
      items_(new ItemList(parts.models, parts.icons)),
      chooseOne_(settings_look::makeNote()),
      item_(new ItemPanel(parts)),
      colorLabel_(settings_look::makeHeading()),
      color_(new ColorField(parts.models.localization)),
      menuSide_(new QWidget),
      makePanel_(std::move(makePanel)) {
  auto* left = new QVBoxLayout;
  left->setContentsMargins(settings_look::kPageMargin, settings_look::kPageMargin, kSideMargin,
                           settings_look::kPageMargin);
  left->setSpacing(settings_look::kRowGap);
  left->addWidget(makeHead());
  left->addWidget(makeRing(), 3);
  left->addWidget(items_, 2);
  auto* across = new QHBoxLayout(this);
  across->setContentsMargins(0, 0, 0, 0);
  across->setSpacing(0);
  across->addLayout(left, 1);
  auto* rule = new QFrame;
  rule->setFrameShape(QFrame::VLine);
  rule->setFrameShadow(QFrame::Sunken);
  across->addWidget(rule);
  across->addWidget(makeSide());
  connect(name_, &QLineEdit::textEdited, this, [this](const QString& text) { menu_.setName(text.toStdString()); });
  connect(switch_, &QCheckBox::toggled, this, [this](bool isOn) { menu_.setEnabled(isOn); });
  connect(fingers_, &QComboBox::activated, this,
          [this](int index) { menu_.setFingerCount(MenuEditor::kFingerCounts.at(static_cast<std::size_t>(index))); });
  color_->onChosen = [this](const ColorField::Choice& color) {
    if (color) menu_.setColor(*color);
  };
}

QString MenuPage::text(StringKey key) const { return toQString(parts_.models.localization.text(key)); }

QWidget* MenuPage::makeHead() {
  auto* head = new QWidget;
  auto* grid = new QGridLayout(head);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(settings_look::kRowGap);
  QFont font = name_->font();
  font.setPointSizeF(font.pointSizeF() * kNameScale);
  font.setWeight(QFont::DemiBold);
  name_->setFont(font);
  hotkeyLabel_ = settings_look::makeLabelFor(hotkey_->button());
  fingersLabel_ = settings_look::makeLabelFor(*fingers_);
  grid->addWidget(name_, 0, 0, 1, 4);
  grid->addWidget(description_, 1, 0, 1, 4);
  grid->addWidget(switch_, 2, 0, 1, 4);
  grid->addWidget(hotkeyLabel_, 3, 0, Qt::AlignTop);
  grid->addWidget(hotkey_, 4, 0, Qt::AlignTop);
  grid->addWidget(fingersLabel_, 3, 1, Qt::AlignTop);
  grid->addWidget(fingers_, 4, 1, Qt::AlignTop);
  grid->addWidget(trackpadNote_, 5, 0, 1, 4);
  grid->setColumnStretch(0, 3);
  grid->setColumnStretch(1, 2);
  return head;
}

QWidget* MenuPage::makeRing() {
  auto* ring = new QWidget;
  auto* column = new QVBoxLayout(ring);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(settings_look::kSmallGap);
  column->addWidget(preview_, 1);
  auto* below = new QHBoxLayout;
  below->addWidget(help_, 1000);
  below->addStretch(1);
  below->addWidget(turnLeft_);
  below->addWidget(turnRight_);
  column->addLayout(below);
  return ring;
}

QWidget* MenuPage::makeSide() {
  auto* content = new QWidget;
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(kSideMargin, settings_look::kPageMargin, kSideMargin, settings_look::kPageMargin);
  column->setSpacing(settings_look::kRowGap);
  auto* menuColumn = new QVBoxLayout(menuSide_);
  menuColumn->setContentsMargins(0, 0, 0, 0);
  menuColumn->addWidget(chooseOne_);
  menuColumn->addSpacing(settings_look::kSectionGap);
  menuColumn->addWidget(colorLabel_);
  menuColumn->addWidget(color_);
  menuColumn->addStretch(1);
  column->addWidget(menuSide_);
  column->addWidget(item_);
  sideColumn_ = column;
  side_ = settings_look::makeScrolling(*content);
  return side_;
}

void MenuPage::refresh() {
  if (menu_.menu() == nullptr) return;
  refreshHead();
  preview_->refresh();
  preview_->refreshIcons();
  const PieMenuItem* chosen = parts_.models.navigation.item();
  preview_->setChosen(chosen == nullptr ? QString() : toQString(menu_.title(*chosen)));
  turnLeft_->setName(text(StringKey::previewTurnLeft));
  turnRight_->setName(text(StringKey::previewTurnRight));
  help_->setText(text(StringKey::previewHelp));
  help_->setVisible(menu_.isStandard());
  items_->setVisible(menu_.isStandard());
  items_->refresh();
  refreshSide();
  if (parts_.models.navigation.takeNaming()) chosen == nullptr ? editName() : item_->editTitle();
}

void MenuPage::refreshHead() {
  const PieMenu& menu = *menu_.menu();
  name_->setAccessibleName(text(StringKey::menuName));
  const bool isOther = std::exchange(shownMenu_, menu.id) != menu.id;
  if (isOther || name_->text().toStdString() != menu.name) {
    name_->setText(toQString(menu.name));
    name_->setCursorPosition(0);
  }
  settings_look::showText(*description_, toQString(menu_.description()));
  switch_->setText(text(StringKey::menuSwitch));
  switch_->setVisible(!menu_.isStandard());
  settings_look::showChecked(*switch_, menu.isEnabled());
  hotkeyLabel_->setText(text(StringKey::menuHotkey));
  hotkey_->setMenu(menu.id.string());
  hotkey_->refresh();
  settings_look::nameControl(*fingersLabel_, text(StringKey::menuFingers));
  const QSignalBlocker blocker(fingers_);
  fingers_->clear();
  for (const std::int64_t count : MenuEditor::kFingerCounts) {
    fingers_->addItem(toQString(menu_.fingerCountText(count)));
    if (count == menu.trackpadFingerCount) fingers_->setCurrentIndex(fingers_->count() - 1);
  }
  settings_look::showText(*trackpadNote_, toQString(menu_.trackpadNote()));
}

void MenuPage::refreshSide() {
  const PieMenuKind kind = menu_.menu()->kind;
  const PieMenuItem* chosen = parts_.models.navigation.item();
  const bool isStandard = kind == PieMenuKind::standard;
  menuSide_->setVisible(isStandard && chosen == nullptr);
  item_->setVisible(isStandard && chosen != nullptr);
  for (const auto& [of, panel] : panels_) panel.widget->setVisible(of == kind);
  if (!isStandard) {
    if (!panels_.contains(kind))
      sideColumn_->addWidget(panels_.emplace(kind, makePanel_(kind)).first->second.widget, 1);
    panels_.at(kind).refresh();
  }
  chooseOne_->setText(text(StringKey::itemChooseOne));
  colorLabel_->setText(text(StringKey::menuColor));
  color_->setName(text(StringKey::menuColor));
  color_->refresh();
  color_->setColor(menu_.menu()->globalSidebarIconColorHex.value_or(std::string(kDefaultItemColor)));
  item_->refresh();
  const auto id = chosen == nullptr ? std::nullopt : std::optional(chosen->id);
  if (id != shownItem_) side_->verticalScrollBar()->setValue(0);
  shownItem_ = id;
  fitSide();
}

/// As wide as the widest that it shows, so that a choice moves nothing else.
void MenuPage::fitSide() {
  int width = std::max(menuSide_->minimumSizeHint().width(), item_->minimumSizeHint().width());
  for (const auto& [of, panel] : panels_) width = std::max(width, panel.widget->minimumSizeHint().width());
  width = std::max(width + 2 * kSideMargin, kSideWidth);
  side_->setFixedWidth(width + side_->verticalScrollBar()->sizeHint().width());
}

void MenuPage::editName() {
  name_->setFocus(Qt::OtherFocusReason);
  name_->selectAll();
}

}  // namespace rondora
