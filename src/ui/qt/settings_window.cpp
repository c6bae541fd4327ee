#include "ui/qt/settings_window.h"

#include <QHBoxLayout>
#include <QStringList>
#include <QVBoxLayout>
#include <utility>

#include "ui/qt/qt_conversions.h"
#include "ui/qt/status_bar_icon.h"

namespace rondora {

namespace {

constexpr int kRefreshMilliseconds = 1000;
constexpr int kMargin = 24;
constexpr QSize kInitialSize(520, 360);

void makeHeading(QLabel& label) {
  QFont font = label.font();
  font.setBold(true);
  label.setFont(font);
}

void makeWrapped(QLabel& label) {
  label.setWordWrap(true);
  label.setTextFormat(Qt::PlainText);
  label.setTextInteractionFlags(Qt::TextSelectableByMouse);
}

}  // namespace

// The widgets are members and outlive the layouts, which only arrange them; each is taken out of its parent again when
// it is destroyed, before the window.
QtSettingsWindow::QtSettingsWindow(WindowContents contents)
    : contents_(std::move(contents)), language_(contents_.chooseLanguage) {
  build();
  refresh_.setInterval(kRefreshMilliseconds);
  QObject::connect(&refresh_, &QTimer::timeout, &window_, [this] {
    if (window_.isVisible()) {
      refreshStatus();
    } else {
      refresh_.stop();
    }
  });
  if (contents_.onTextsChanged) {
    textsChanged_ = contents_.onTextsChanged([this] {
      refreshTexts();
      refreshStatus();
    });
  }
  QObject::connect(&close_, &QPushButton::clicked, &window_, &QWidget::close);
  QObject::connect(&openFolder_, &QPushButton::clicked, &window_, [this] {
    if (contents_.openDocumentFolder) contents_.openDocumentFolder();
  });
}

void QtSettingsWindow::build() {
  for (QLabel* heading : {&documentHeading_, &statusHeading_}) makeHeading(*heading);
  for (QLabel* text : {&introduction_, &documentPath_, &status_}) makeWrapped(*text);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(&openFolder_);
  buttons->addStretch();
  buttons->addWidget(&close_);
  languageLabel_.setBuddy(&language_);
  auto* language = new QHBoxLayout;
  language->addWidget(&languageLabel_);
  language->addWidget(&language_);
  language->addStretch();
  auto* column = new QVBoxLayout(&window_);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->addWidget(&introduction_);
  column->addSpacing(kMargin / 2);
  column->addWidget(&documentHeading_);
  column->addWidget(&documentPath_);
  column->addSpacing(kMargin / 2);
  column->addLayout(language);
  column->addSpacing(kMargin / 2);
  column->addWidget(&statusHeading_);
  column->addWidget(&status_);
  column->addStretch();
  column->addLayout(buttons);
  window_.resize(kInitialSize);
  window_.setWindowIcon(StatusBarIcon::make());
  close_.setDefault(true);
}

void QtSettingsWindow::show() {
  refreshTexts();
  refreshStatus();
  refresh_.start();
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
  documentPath_.setText(toQString(contents_.documentPath));
  statusHeading_.setText(toQString(texts.statusHeading));
  openFolder_.setText(toQString(texts.openFolder));
  languageLabel_.setText(toQString(texts.language));
  language_.setLanguage(contents_.language());
  close_.setText(toQString(texts.close));
  close_.setVisible(!texts.close.empty());
}

void QtSettingsWindow::refreshStatus() {
  QStringList lines;
  if (contents_.statusLines) {
    for (const std::string& line : contents_.statusLines()) lines << toQString(line);
  }
  statusHeading_.setVisible(!lines.isEmpty());
  status_.setText(lines.join('\n'));
}

}  // namespace rondora
