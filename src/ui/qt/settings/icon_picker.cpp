#include "ui/qt/settings/icon_picker.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTimer>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

using namespace settings_look;

/// Points.
constexpr int kTabIcon = 22;
constexpr int kMargin = 16;
constexpr int kOtherColumns = 2;
/// With the gap around it, for which the button has no margin.
constexpr int kOtherIcon = kListIcon + 2 * kSmallGap;

QIcon withGap(const QPixmap& picture) {
  QPixmap result(QSize(kOtherIcon, kOtherIcon) * picture.devicePixelRatio());
  result.setDevicePixelRatio(picture.devicePixelRatio());
  result.fill(Qt::transparent);
  QPainter(&result).drawPixmap(kSmallGap, kSmallGap, picture);
  return result;
}

}  // namespace

IconPicker::IconPicker(std::unique_ptr<IconChoice> choice, const ItemIcons& icons, Questions questions, Answer chosen,
                       QWidget* parent)
    : QDialog(parent),
      choice_(std::move(choice)),
      icons_(icons),
      questions_(std::move(questions)),
      chosen_(std::move(chosen)),
      search_(new QLineEdit),
      sections_(new QTabBar),
      heading_(makeHeading()),
      note_(makeNote()),
      grid_(makeGrid()) {
  setAttribute(Qt::WA_DeleteOnClose);
  setWindowModality(Qt::WindowModal);
  setWindowTitle(toQString(choice_->texts().text(StringKey::iconPickerTitle)));
  const QString prompt = toQString(choice_->texts().text(StringKey::iconPickerSearch));
  search_->setPlaceholderText(prompt);
  search_->setAccessibleName(prompt);
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  fillSections();
  layOut();
  QObject::connect(search_, &QLineEdit::textChanged, this, [this](const QString& query) { search(query); });
  QObject::connect(search_, &QLineEdit::returnPressed, this, [this] { grid_->chooseCurrent(); });
  QObject::connect(sections_, &QTabBar::currentChanged, this, [this](int section) { showSection(section); });
  QObject::connect(sections_, &QTabBar::tabBarClicked, this, [this](int section) {
    if (section == sections_->currentIndex()) showSection(section);
  });
  decoded_ = icons_.onDecoded([this] { showPictures(); });
  showPictures();
  showCells();
  search_->setFocus();
}

IconGrid* IconPicker::makeGrid() {
  IconGrid::Handlers handlers;
  handlers.choose = [this](const IconChoice::Cell& cell) {
    choice_->chose(cell);
    choose(cell.icon);
  };
  handlers.highlight = [this](const IconChoice::Cell* cell) {
    const QString text = toQString(cell != nullptr ? cell->name : choice_->note());
    note_->setText(text.isEmpty() ? QString(QChar::Nbsp) : text);
  };
  handlers.type = [this](QKeyEvent& event) { typeIntoSearch(event); };
  handlers.leaveUpwards = [this] { search_->setFocus(); };
  return new IconGrid(std::move(handlers));
}

void IconPicker::layOut() {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(kRowGap);
  column->addWidget(search_);
  column->addWidget(sections_);
  column->addWidget(heading_);
  column->addWidget(grid_, 1);
  column->addWidget(note_);
  column->addWidget(makeRule());
  column->addWidget(makeOthers());
  column->addWidget(makeButtons());
}

void IconPicker::fillSections() {
  sections_->setDrawBase(false);
  sections_->setUsesScrollButtons(false);
  sections_->setIconSize({kTabIcon, kTabIcon});
  for (const IconChoice::Section& section : choice_->sections()) {
    const int tab = sections_->addTab(QString());
    sections_->setTabToolTip(tab, toQString(section.title));
    sections_->setAccessibleTabName(tab, toQString(section.title));
  }
  sections_->setCurrentIndex(static_cast<int>(choice_->section()));
}

QWidget* IconPicker::makeOthers() {
  auto* others = new QWidget;
  auto* grid = new QGridLayout(others);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(kRowGap);
  for (IconChoice::Other& other : choice_->others()) {
    // Not a push button, whose icon and text lie apart in a right-to-left layout.
    auto* button = new QToolButton;
    button->setText(toQString(other.title));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIconSize({kOtherIcon, kOtherIcon});
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->setFocusPolicy(Qt::StrongFocus);
    const int place = static_cast<int>(others_.size());
    grid->addWidget(button, place / kOtherColumns, place % kOtherColumns);
    grid->setColumnStretch(place % kOtherColumns, 1);
    others_.emplace_back(button, other.picture);
    QObject::connect(button, &QToolButton::clicked, this, [this, other = std::move(other)] { press(other); });
  }
  return others;
}

QWidget* IconPicker::makeButtons() {
  auto* buttons = new QDialogButtonBox;
  const QString title = toQString(choice_->texts().text(StringKey::hotkeyCancel));
  buttons->addButton(title, QDialogButtonBox::RejectRole)->setAutoDefault(false);
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  return buttons;
}

void IconPicker::showSection(int section) {
  if (section < 0) return;
  const QSignalBlocker blocker(search_);
  search_->clear();
  choice_->showSection(static_cast<std::size_t>(section));
  showCells();
}

void IconPicker::search(const QString& query) {
  choice_->search(query.toStdString());
  showCells();
}

void IconPicker::showCells() {
  const QString heading = toQString(choice_->heading());
  heading_->setText(heading);
  grid_->setAccessibleName(heading);
  grid_->setCells(choice_->cells(), choice_->startingCell());
}

void IconPicker::showPictures() {
  const auto picture = [&](const IconReference& icon, int side, QPalette::ColorRole tint) {
    return icons_.picture(icon, side, palette().color(tint), devicePixelRatioF());
  };
  int tab = 0;
  for (const IconChoice::Section& section : choice_->sections()) {
    sections_->setTabIcon(tab++, picture(section.picture, kTabIcon, QPalette::WindowText));
  }
  for (const auto& [button, icon] : others_) {
    button->setIcon(withGap(picture(icon, kListIcon, QPalette::ButtonText)));
  }
}

void IconPicker::typeIntoSearch(QKeyEvent& event) {
  search_->setFocus();
  QCoreApplication::sendEvent(search_, &event);
}

void IconPicker::choose(std::string icon) {
  const Answer chosen = chosen_;
  // With a dialog of its own that closes at the same time, some window managers would leave no window active.
  if (parentWidget() != nullptr) {
    QTimer::singleShot(0, parentWidget(), [owner = parentWidget()] { owner->window()->activateWindow(); });
  }
  accept();
  chosen(std::move(icon));
}

void IconPicker::press(const IconChoice::Other& other) {
  if (other.icon) return choose(*other.icon);
  const bool isFile = other.kind == IconChoice::Other::Kind::imageFile;
  const auto& question = isFile ? questions_.imageFile : questions_.application;
  question(*this, [self = QPointer(this), isFile](const std::string& answer) {
    if (self && !answer.empty()) self->choose(isFile ? answer : IconReference::application(answer));
  });
}

void IconPicker::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) showPictures();
}

bool IconPicker::eventFilter(QObject* watched, QEvent* event) {
  const bool isKey = watched == search_ && event->type() == QEvent::KeyPress;
  if (!isKey || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Down) return QDialog::eventFilter(watched, event);
  grid_->enter();
  return true;
}

}  // namespace rondora
