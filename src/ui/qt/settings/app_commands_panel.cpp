#include "ui/qt/settings/app_commands_panel.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QHBoxLayout>
#include <QPointer>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QVBoxLayout>
#include <utility>

#include "base/unicode.h"
#include "platform/qt/qt_text.h"
#include "ui/qt/settings/command_catalog_dialog.h"
#include "ui/qt/settings/command_entries_view.h"
#include "ui/qt/settings/icon_button.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

/// Long names of applications do not widen the panel.
constexpr int kNameCharacters = 12;
constexpr std::size_t kMaxNameCharacters = 24;
/// Around the text of the chooser, which always shows the default set's title whole.
constexpr int kChooserPadding = 12;

}  // namespace

AppCommandsPanel::AppCommandsPanel(AppCommandSets& sets, const LocalizationStore& localization, const ItemIcons& icons,
                                   Questions questions)
    : sets_(sets),
      localization_(localization),
      icons_(icons),
      questions_(std::move(questions)),
      set_(new QComboBox),
      setLabel_(settings_look::makeLabelFor(*set_)),
      addSet_(new IconButton(icons, "plus", [this] { addApplication(); })),
      removeSet_(new IconButton(icons, "trash.fill", [this] { sets_.remove(); })),
      note_(settings_look::makeNote()),
      heading_(settings_look::makeHeading()),
      addMenu_(new QMenu(this)),
      add_(new IconButton(icons, "plus", [] {})),
      icon_(new IconButton(icons, "photo.fill", [this] { chooseIcon(); })),
      remove_(new IconButton(icons, "trash.fill", [this] { entries_->removeChosen(); })),
      up_(new IconButton(icons, "chevron.up", [this] { entries_->moveChosen(-1); })),
      down_(new IconButton(icons, "chevron.down", [this] { entries_->moveChosen(1); })),
      entries_(new CommandEntriesView(sets, icons)),
      suggest_(new QPushButton),
      suggestNote_(settings_look::makeNote()),
      reset_(new QPushButton) {
  set_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  set_->setMinimumContentsLength(kNameCharacters);
  set_->setIconSize({settings_look::kListIcon, settings_look::kListIcon});
  add_->setMenu(addMenu_);
  add_->setPopupMode(QToolButton::InstantPopup);
  for (QPushButton* button : {suggest_, reset_}) button->setAutoDefault(false);
  makeLayout();
  // The buttons below stay where they are.
  QSizePolicy kept = note_->sizePolicy();
  kept.setRetainSizeWhenHidden(true);
  note_->setSizePolicy(kept);
  connect(set_, &QComboBox::activated, this,
          [this](int row) { sets_.choose(set_->itemData(row).toString().toStdString()); });
  connect(addMenu_, &QMenu::aboutToShow, this, [this] { fillAddMenu(); });
  connect(suggest_, &QPushButton::clicked, this, [this] { sets_.suggest(); });
  connect(reset_, &QPushButton::clicked, this, [this] { sets_.reset(); });
  entries_->onOpen = [this] { chooseIcon(); };
}

void AppCommandsPanel::makeLayout() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(settings_look::kSmallGap);
  auto* chooser = new QHBoxLayout;
  chooser->setSpacing(settings_look::kSmallGap);
  chooser->addWidget(set_, 1);
  for (IconButton* button : {addSet_, removeSet_}) chooser->addWidget(button);
  auto* head = new QHBoxLayout;
  head->setSpacing(0);
  head->addWidget(heading_, 1);
  for (IconButton* button : {add_, icon_, remove_, up_, down_}) head->addWidget(button);
  column->addWidget(setLabel_);
  column->addLayout(chooser);
  column->addWidget(note_);
  column->addSpacing(settings_look::kRowGap);
  column->addLayout(head);
  column->addWidget(entries_, 1);
  column->addSpacing(settings_look::kSmallGap);
  column->addWidget(suggest_);
  column->addWidget(suggestNote_);
  column->addWidget(reset_);
}

QString AppCommandsPanel::text(StringKey key) const { return toQString(localization_.text(key)); }

void AppCommandsPanel::refresh() {
  settings_look::nameControl(*setLabel_, text(StringKey::commandsSet));
  heading_->setText(text(StringKey::commandsList));
  entries_->setAccessibleName(text(StringKey::commandsList));
  refreshSets();
  entries_->refresh();
  refreshButtons();
}

void AppCommandsPanel::refreshSets() {
  if (set_->view()->isVisible()) return;
  const QSignalBlocker blocker(set_);
  const double ratio = devicePixelRatioF();
  set_->clear();
  for (const AppCommandSets::Set& set : sets_.sets()) {
    const bool isDefault = set.application.empty();
    const auto icon =
        IconReference::parse(isDefault ? "square.grid.2x2.fill" : IconReference::application(set.application));
    const std::string title = isDefault ? set.title : shortened(set.title, kMaxNameCharacters);
    set_->addItem(icons_.ofRow(icon, settings_look::kListIcon, palette(), ratio), toQString(title),
                  toQString(set.application));
    set_->setItemData(set_->count() - 1, toQString(set.title), Qt::ToolTipRole);
    if (set.application == sets_.chosen()) set_->setCurrentIndex(set_->count() - 1);
  }
  QStyleOptionComboBox option;
  option.initFrom(set_);
  const int width =
      settings_look::kListIcon + set_->fontMetrics().horizontalAdvance(set_->itemText(0)) + kChooserPadding;
  set_->setMinimumWidth(style()->sizeFromContents(QStyle::CT_ComboBox, &option, {width, 0}, set_).width());
  set_->setToolTip(set_->currentData(Qt::ToolTipRole).toString());
}

void AppCommandsPanel::refreshButtons() {
  addSet_->setName(text(StringKey::commandsAddSet));
  removeSet_->setName(toQString(localization_.text(StringKey::commandsRemoveSet, sets_.chosenTitle())));
  removeSet_->setEnabled(!sets_.isDefaultChosen());
  add_->setName(text(StringKey::commandsAdd));
  icon_->setName(text(StringKey::itemIconChange));
  icon_->setVisible(static_cast<bool>(questions_.icon));
  remove_->setName(text(StringKey::commandsRemove));
  up_->setName(text(StringKey::settingsMoveUp));
  down_->setName(text(StringKey::settingsMoveDown));
  const auto place = sets_.chosenPlace();
  icon_->setEnabled(place.has_value());
  remove_->setEnabled(place && sets_.canRemoveEntry());
  up_->setEnabled(place && *place > 0);
  down_->setEnabled(place && static_cast<int>(*place) + 1 < entries_->count());
  settings_look::showText(*note_, toQString(sets_.note()));
  suggest_->setText(text(StringKey::commandsSuggest));
  suggest_->setVisible(!sets_.isDefaultChosen());
  suggest_->setEnabled(sets_.canSuggest());
  const std::string reason = sets_.catalog().note();
  suggestNote_->setText(reason.empty() ? text(StringKey::commandsSuggestNote) : toQString(reason));
  suggestNote_->setVisible(!sets_.isDefaultChosen());
  suggest_->setAccessibleDescription(suggestNote_->text());
  reset_->setText(text(StringKey::commandsReset));
  reset_->setVisible(sets_.isDefaultChosen());
  reset_->setEnabled(sets_.canReset());
}

void AppCommandsPanel::fillAddMenu() {
  addMenu_->clear();
  QAction* fromMenus = addMenu_->addAction(text(StringKey::commandsFromMenus), this, [this] { openCatalog(); });
  fromMenus->setVisible(!sets_.isDefaultChosen());
  addMenu_->addSeparator()->setVisible(!sets_.isDefaultChosen());
  const QColor tint = addMenu_->palette().color(QPalette::Text);
  for (const AppCommandSets::GeneralCommand& command : sets_.generalCommands()) {
    const QPixmap icon =
        icons_.picture(IconReference::parse(command.icon), settings_look::kListIcon, tint, devicePixelRatioF());
    addMenu_->addAction(icon, toQString(command.title), this, [this, kind = command.kind] {
      if (const auto added = sets_.addGeneralCommand(kind)) sets_.chooseEntry(added);
    });
  }
}

void AppCommandsPanel::addApplication() {
  if (!questions_.application) return;
  questions_.application(*this, [panel = QPointer<AppCommandsPanel>(this)](const std::string& bundleIdentifier) {
    if (panel) panel->sets_.add(bundleIdentifier);
  });
}

void AppCommandsPanel::chooseIcon() {
  const auto place = sets_.chosenPlace();
  if (!place || !questions_.icon) return;
  const PieMenuItem item = sets_.items().at(*place);
  questions_.icon(*this, item, [panel = QPointer<AppCommandsPanel>(this), id = item.id](const std::string& icon) {
    if (panel) panel->sets_.setIcon(id, icon);
  });
}

void AppCommandsPanel::openCatalog() {
  auto* dialog = new CommandCatalogDialog(sets_, localization_, icons_, this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->open();
}

void AppCommandsPanel::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && isVisible()) refresh();
}

void AppCommandsPanel::showEvent(QShowEvent* event) {
  changed_ = sets_.onChanged([this] { refresh(); });
  decoded_ = icons_.onDecoded([this] { refresh(); });
  refresh();
  QWidget::showEvent(event);
}

void AppCommandsPanel::hideEvent(QHideEvent* event) {
  changed_.reset();
  decoded_.reset();
  QWidget::hideEvent(event);
}

}  // namespace rondora
