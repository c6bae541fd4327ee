#include "ui/qt/settings/settings_view.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QCloseEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/interface/toolkit_dialogs.h"
#include "ui/qt/painting/application_icon.h"
#include "ui/qt/settings/app_commands_panel.h"
#include "ui/qt/settings/appearance_page.h"
#include "ui/qt/settings/application_chooser.h"
#include "ui/qt/settings/backup_page.h"
#include "ui/qt/settings/embedded_icon_names.h"
#include "ui/qt/settings/findings_list.h"
#include "ui/qt/settings/general_page.h"
#include "ui/qt/settings/icon_picker.h"
#include "ui/qt/settings/notice_bar.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/page_room.h"
#include "ui/qt/settings/ring_preview_view.h"
#include "ui/qt/settings/running_apps_panel.h"
#include "ui/qt/settings/session_page.h"
#include "ui/qt/settings/sidebar.h"

namespace rondora {
namespace {

constexpr QSize kInitialSize(1060, 720);
/// For the frame that the window manager adds.
constexpr QSize kFrameRoom(20, 60);

}  // namespace

SettingsView::SettingsView(const WindowContents& contents, SettingsDrawing drawing)
    : contents_(contents),
      rasterizer_(std::move(drawing.rasterizer)),
      icons_(std::move(drawing.icon), contents.onIconsDecoded),
      parts_{contents.settings(),
             contents_,
             icons_,
             *rasterizer_,
             [this](QWidget& parent, const auto& chosen) { chooseApplication(parent, chosen); },
             [this](QWidget& parent, const PieMenuItem& item, auto chosen) {
               chooseIcon(parent, item, std::move(chosen));
             }},
      sidebar_(new Sidebar(parts_.models, icons_)),
      notice_(new NoticeBar(parts_.models, icons_)),
      unsaved_(new FindingsList(contents.watchUnsaved, contents.press)),
      stack_(new QStackedWidget) {
  QAccessible::registerAccessibleInterface(new QAccessibleWidget(this, QAccessible::Window));
  setWindowIcon(applicationIcon());
  auto* across = new QHBoxLayout(this);
  across->setContentsMargins(0, 0, 0, 0);
  across->setSpacing(0);
  across->addWidget(sidebar_);
  auto* rule = new QFrame;
  rule->setFrameShape(QFrame::VLine);
  rule->setFrameShadow(QFrame::Sunken);
  across->addWidget(rule);
  auto* column = new QVBoxLayout;
  column->setSpacing(0);
  column->addWidget(notice_);
  column->addWidget(unsaved_);
  unsaved_->onRebuilt = [this] { fitUnsaved(); };
  column->addWidget(new PageRoom(*stack_, *sidebar_, kFrameRoom), 1);
  across->addLayout(column, 1);
  addShortcuts();
  qApp->installEventFilter(this);
  fitScreen();
  navigation_ = parts_.models.navigation.onChanged([this] { refreshSoon(); });
  if (contents_.onTextsChanged) texts_ = contents_.onTextsChanged([this] { refreshSoon(); });
  decoded_ = icons_.onDecoded([this] { refreshSoon(); });
  refresh();
}

SettingsView::~SettingsView() = default;

void SettingsView::addShortcuts() {
  // A standard key may have several combinations.
  const auto add = [this](QKeySequence::StandardKey key, auto act) { new QShortcut(key, this, this, act); };
  add(QKeySequence::Close, [this] { close(); });
  add(QKeySequence::Find, [this] { sidebar_->search(); });
  add(QKeySequence::New, [this] { parts_.models.menus.add(); });
  add(QKeySequence::Undo, [this] { parts_.models.history.undo(); });
  add(QKeySequence::Redo, [this] { parts_.models.history.redo(); });
  new QShortcut(QKeySequence(QStringLiteral("Ctrl+PgDown")), this, this, [this] { parts_.models.navigation.step(1); });
  new QShortcut(QKeySequence(QStringLiteral("Ctrl+PgUp")), this, this, [this] { parts_.models.navigation.step(-1); });
  new QShortcut(QKeySequence(QStringLiteral("Ctrl+Q")), this, this, [this] {
    if (contents_.quit) contents_.quit();
  });
}

// The window manager may place the title bar above a small screen.
void SettingsView::fitScreen() {
  const QRect available = screen()->availableGeometry();
  const QSize size = kInitialSize.boundedTo(available.size() - kFrameRoom);
  resize(size);
  move(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size + kFrameRoom, available).topLeft());
}

void SettingsView::present() {
  refresh();
  if (!isVisible()) sidebar_->menus().setFocus();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
}

/// Several parts of one edit report a change. Another page is shown at once, so that the next key reaches it.
void SettingsView::refreshSoon() {
  if (shownPage_ != parts_.models.navigation.page()) return refresh();
  if (std::exchange(isRefreshDue_, true)) return;
  QTimer::singleShot(0, this, [this] { refresh(); });
}

void SettingsView::refresh() {
  isRefreshDue_ = false;
  prepareToolkitDialogs(parts_.models.localization.language());
  setWindowTitle(toQString(parts_.models.localization.text(StringKey::settingsTitle)));
  sidebar_->refresh();
  notice_->refresh();
  unsaved_->setMarkNames(std::string(parts_.models.localization.text(StringKey::sessionWorks)),
                         std::string(parts_.models.localization.text(StringKey::sessionFails)));
  shownPage_ = parts_.models.navigation.page();
  const Page& shown = page(*shownPage_);
  shown.refresh();
  stack_->setCurrentWidget(shown.widget);
}

void SettingsView::fitUnsaved() {
  using namespace settings_look;
  const int margin = unsaved_->isEmpty() ? 0 : kPageMargin;
  unsaved_->setContentsMargins(margin, margin / 2, margin, 0);
}

const SettingsView::Page& SettingsView::page(SettingsPage page) {
  auto found = pages_.find(page);
  if (found == pages_.end()) {
    found = pages_.emplace(page, makePage(page)).first;
    stack_->addWidget(found->second.widget);
  }
  return found->second;
}

SettingsView::Page SettingsView::makePage(SettingsPage page) {
  SettingsModels& models = parts_.models;
  const auto with = [](auto* widget) { return Page{widget, [widget] { widget->refresh(); }}; };
  switch (page) {
    case SettingsPage::menu:
      return with(new MenuPage(parts_, [this](PieMenuKind kind) { return makePanel(kind); }));
    case SettingsPage::general:
      return with(new GeneralPage(models.general, models.localization));
    case SettingsPage::session:
      return with(new SessionPage(contents_.watchFindings, contents_.press, models.localization));
    case SettingsPage::backup:
      return with(new BackupPage(models.backup, models.localization, icons_, models.fileChooser));
    case SettingsPage::appearance: {
      auto* ring = new RingPreviewView(models.preview, models.localization, *rasterizer_);
      auto* appearance = new AppearancePage(models.appearance, models.localization, icons_, ring);
      return {appearance, [appearance, ring] {
                appearance->refresh();
                ring->refresh();
                ring->refreshIcons();
              }};
    }
  }
  return {};
}

MenuPage::Panel SettingsView::makePanel(PieMenuKind kind) {
  SettingsModels& models = parts_.models;
  const auto with = [](auto* widget) { return MenuPage::Panel{widget, [widget] { widget->refresh(); }}; };
  switch (kind) {
    case PieMenuKind::standard:
      return {};
    case PieMenuKind::runningApps:
      return with(new RunningAppsPanel(models.excluded, models.applications, models.localization, icons_));
    case PieMenuKind::appCommands:
      return with(new AppCommandsPanel(models.commandSets, models.localization, icons_,
                                       {parts_.chooseApplication, parts_.chooseIcon}));
  }
  return {};
}

void SettingsView::chooseApplication(QWidget& parent, const std::function<void(std::string)>& chosen) {
  ApplicationChooser::open(
      std::make_unique<ApplicationList>(parts_.models.applications, ApplicationList::Offer{true, false, {}}),
      parts_.models.localization, icons_, chosen, parent);
}

void SettingsView::chooseIcon(QWidget& parent, const PieMenuItem& item, std::function<void(std::string)> chosen) {
  const SettingsModels& models = parts_.models;
  const auto chooseFile = [this](QWidget& /*above*/, const IconPicker::Answer& answer) {
    FileChoice choice;
    choice.title = parts_.models.localization.text(StringKey::itemIconChange);
    choice.kinds = {{"PNG, SVG, JPEG, WebP", {"*.png", "*.svg", "*.jpg", "*.jpeg", "*.webp", "*.ico", "*.gif"}}};
    parts_.models.fileChooser.choose(choice, [answer](const std::optional<std::string>& path) {
      if (path) answer(*path);
    });
  };
  auto* picker = new IconPicker(
      std::make_unique<IconChoice>(models.localization, embeddedIconNames, models.recentIcons, item), icons_,
      {[this](QWidget& above, const IconPicker::Answer& answer) { chooseApplication(above, answer); }, chooseFile},
      std::move(chosen), &parent);
  picker->show();
}

/// A text field takes the keys of undo and redo for itself, also when it has nothing to undo.
bool SettingsView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride) return QWidget::eventFilter(watched, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool undoes = key.matches(QKeySequence::Undo);
  if (!undoes && !key.matches(QKeySequence::Redo)) return false;
  const auto* line = qobject_cast<const QLineEdit*>(watched);
  const auto* text = qobject_cast<const QPlainTextEdit*>(watched);
  if (line == nullptr && text == nullptr) return false;
  const bool hasOwn = line != nullptr
                          ? (undoes ? line->isUndoAvailable() : line->isRedoAvailable())
                          : (undoes ? text->document()->isUndoAvailable() : text->document()->isRedoAvailable());
  if (hasOwn) return false;
  event->ignore();
  return true;
}

void SettingsView::closeEvent(QCloseEvent* event) {
  parts_.models.history.save();
  QWidget::closeEvent(event);
  if (onClosed) onClosed();
}

void SettingsView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    if (!sidebar_->endSearch()) close();
    return;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace rondora
