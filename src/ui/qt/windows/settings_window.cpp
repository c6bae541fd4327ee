#include "ui/qt/windows/settings_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStyle>
#include <QVBoxLayout>
#include <initializer_list>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/application_icon.h"

namespace rondora {

namespace {

constexpr int kMargin = 24;
constexpr int kScrollBarGap = 6;
constexpr QSize kInitialSize(600, 620);
/// For the frame that the window manager adds.
constexpr QSize kFrameRoom(20, 60);

QHBoxLayout& addRow(QVBoxLayout& column, std::initializer_list<QWidget*> widgets) {
  auto* row = new QHBoxLayout;
  for (QWidget* widget : widgets) row->addWidget(widget);
  column.addLayout(row);
  return *row;
}

QScrollArea* scrolling(QWidget& page) {
  auto* area = new QScrollArea;
  area->setFrameShape(QFrame::NoFrame);
  area->setWidgetResizable(true);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidget(&page);
  area->viewport()->setAutoFillBackground(false);
  page.setAutoFillBackground(false);
  return area;
}

void makeHeading(QLabel& label) {
  QFont font = label.font();
  font.setBold(true);
  label.setFont(font);
}

}  // namespace

// The widgets are members and outlive the layouts; on destruction each leaves its parent before the window ends.
QtSettingsWindow::QtSettingsWindow(WindowContents contents)
    : contents_(std::move(contents)),
      language_(contents_.chooseLanguage),
      hotkeys_(contents_.hotkeys),
      findings_(contents_.watchFindings, contents_.press) {
  build();
  arrange();
  connectButtons();
  if (contents_.onTextsChanged) textsChanged_ = contents_.onTextsChanged([this] { refreshTexts(); });
}

void QtSettingsWindow::build() {
  // An independent window, not a dialog of another.
  window_.setWindowFlags(Qt::Window);
  window_.setWindowIcon(applicationIcon());
  fitScreen();
  for (QLabel* heading : {&documentHeading_, &hotkeysHeading_, &sessionHeading_}) makeHeading(*heading);
  introduction_.setWordWrap(true);
  introduction_.setTextFormat(Qt::PlainText);
  documentPath_.setReadOnly(true);
  documentPath_.setLayoutDirection(Qt::LeftToRight);
  documentPath_.setContextMenuPolicy(Qt::ActionsContextMenu);
  documentPath_.addAction(&copyAction_);
  documentHeading_.setBuddy(&documentPath_);
  languageLabel_.setBuddy(&language_);
  hotkeys_.follow(startAtLogin_);
  findings_.follow(startAtLogin_);
  hotkeys_.onRebuilt = [this] { findings_.follow(hotkeys_.last()); };
  loginFailure_.setWordWrap(true);
  loginFailure_.setTextFormat(Qt::PlainText);
  loginFailure_.hide();
  for (QPushButton* button : {&copy_, &openFolder_, &quit_}) button->setAutoDefault(false);
  close_.setDefault(true);
}

// A dialog places itself higher than the middle, which can put its title bar above a small screen.
void QtSettingsWindow::fitScreen() {
  const QRect available = window_.screen()->availableGeometry();
  const QSize size = kInitialSize.boundedTo(available.size() - kFrameRoom);
  window_.resize(size);
  window_.move(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size + kFrameRoom, available).topLeft());
}

// In Tab order. All but the last row scrolls on a small screen.
void QtSettingsWindow::arrange() {
  auto* page = new QWidget;
  auto* padded = new QHBoxLayout(page);
  padded->setContentsMargins(0, 0, 0, 0);
  auto* column = new QVBoxLayout;
  padded->addLayout(column);
  padded->addSpacing(kScrollBarGap);
  column->addWidget(&introduction_);
  column->addSpacing(kMargin / 2);
  column->addWidget(&documentHeading_);
  addRow(*column, {&documentPath_, &copy_, &openFolder_});
  column->addSpacing(kMargin / 2);
  addRow(*column, {&languageLabel_, &language_}).addStretch();
  column->addWidget(&startAtLogin_);
  column->addWidget(&loginFailure_);
  column->addSpacing(kMargin / 2);
  column->addWidget(&hotkeysHeading_);
  column->addWidget(&hotkeys_);
  column->addSpacing(kMargin / 2);
  column->addWidget(&sessionHeading_);
  column->addWidget(&findings_, 1);
  auto* whole = new QVBoxLayout(&window_);
  whole->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  whole->addWidget(scrolling(*page), 1);
  whole->addSpacing(kMargin / 2);
  addRow(*whole, {&quit_, &close_}).insertStretch(1);
}

void QtSettingsWindow::connectButtons() {
  QObject::connect(&close_, &QPushButton::clicked, &window_, &QWidget::close);
  QObject::connect(&copy_, &QPushButton::clicked, &window_, [this] { copyPath(); });
  QObject::connect(&copyAction_, &QAction::triggered, &window_, [this] { copyPath(); });
  QObject::connect(&openFolder_, &QPushButton::clicked, &window_, [this] {
    if (contents_.openDocumentFolder) contents_.openDocumentFolder();
  });
  QObject::connect(&quit_, &QPushButton::clicked, &window_, [this] {
    if (contents_.quit) contents_.quit();
  });
  QObject::connect(&startAtLogin_, &QCheckBox::clicked, &window_, [this](bool opens) { switchLogin(opens); });
  new QShortcut(QKeySequence::Undo, &window_, &window_, [this] {
    if (contents_.undo) contents_.undo();
  });
  new QShortcut(QKeySequence::Redo, &window_, &window_, [this] {
    if (contents_.redo) contents_.redo();
  });
  // QDialog handles Escape.
  new QShortcut(QKeySequence::Close, &window_, &window_, &QWidget::close);
  new QShortcut(QKeySequence(QStringLiteral("Ctrl+Q")), &window_, &quit_, &QPushButton::click);
}

void QtSettingsWindow::copyPath() {
  documentPath_.selectAll();
  QGuiApplication::clipboard()->setText(documentPath_.text());
}

void QtSettingsWindow::switchLogin(bool opens) {
  const std::string failure = contents_.login.set ? contents_.login.set(opens) : "";
  loginFailure_.setText(toQString(failure));
  loginFailure_.setVisible(!failure.empty());
  startAtLogin_.setChecked(contents_.login.isOn && contents_.login.isOn());
}

void QtSettingsWindow::show() {
  refreshTexts();
  if (!window_.isVisible()) close_.setFocus();
  window_.setWindowState(window_.windowState() & ~Qt::WindowMinimized);
  window_.show();
  window_.raise();
  window_.activateWindow();
}

void QtSettingsWindow::refreshTexts() {
  const WindowTexts texts = contents_.texts();
  window_.setWindowTitle(toQString(texts.settingsTitle));
  introduction_.setText(toQString(texts.settingsIntroduction));
  documentHeading_.setText(toQString(texts.documentHeading));
  if (documentPath_.text() != toQString(contents_.documentPath)) {
    documentPath_.setText(toQString(contents_.documentPath));
    documentPath_.setCursorPosition(0);
  }
  documentPath_.setAccessibleName(toQString(texts.documentHeading));
  copyAction_.setText(toQString(texts.copy));
  copy_.setText(toQString(texts.copy));
  openFolder_.setText(toQString(texts.openFolder));
  languageLabel_.setText(toQString(texts.language));
  language_.setAccessibleName(toQString(texts.language));
  language_.setLanguage(contents_.language());
  startAtLogin_.setText(toQString(texts.startAtLogin));
  startAtLogin_.setChecked(contents_.login.isOn && contents_.login.isOn());
  hotkeysHeading_.setText(toQString(texts.hotkeysHeading));
  hotkeys_.setTexts({texts.recordHotkey, texts.cancelRecording, texts.removeHotkey});
  hotkeys_.setAccessibleName(toQString(texts.hotkeysHeading));
  sessionHeading_.setText(toQString(texts.sessionHeading));
  findings_.setMarkNames(texts.works, texts.fails);
  findings_.setAccessibleName(toQString(texts.sessionHeading));
  findings_.refresh();
  quit_.setText(toQString(texts.quit));
  close_.setText(toQString(texts.close));
}

}  // namespace rondora
