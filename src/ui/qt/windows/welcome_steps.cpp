#include "ui/qt/windows/welcome_steps.h"

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>

#include "platform/qt/qt_text.h"
#include "ui/qt/interface/interface_language.h"
#include "ui/qt/windows/onboarding_art.h"

namespace rondora {

namespace {

constexpr int kMargin = 16;
constexpr int kSpacing = 12;

void setTitle(QPushButton& button, const std::string& title) {
  button.setText(toQString(title));
  button.setVisible(!title.empty());
}

}  // namespace

WelcomeSteps::WelcomeSteps(const Welcome& welcome)
    : caps_(new QLabel), openRing_(new QPushButton), chooseHotkey_(new QPushButton) {
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  grid->setHorizontalSpacing(kSpacing);
  grid->setVerticalSpacing(kSpacing);
  grid->setColumnStretch(1, 1);
  // The Tab order is that of addition.
  rows_[0] = addRow(*grid, 0);
  grid->addWidget(caps_, 1, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(openRing_);
  buttons->addWidget(chooseHotkey_);
  buttons->addStretch();
  grid->addLayout(buttons, 2, 1);
  rows_[1] = addRow(*grid, 3);
  connect(openRing_, &QPushButton::clicked, this, [&welcome] { welcome.openRing(); });
  connect(chooseHotkey_, &QPushButton::clicked, this, [&welcome] { welcome.chooseHotkey(); });
}

WelcomeSteps::Row WelcomeSteps::addRow(QGridLayout& grid, int place) {
  const Row row{new QLabel, new QLabel};
  row.text->setTextFormat(Qt::PlainText);
  row.text->setWordWrap(true);
  row.text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // The toolkit's own menu is only in English.
  row.text->setContextMenuPolicy(Qt::NoContextMenu);
  grid.addWidget(row.mark, place, 0, Qt::AlignTop);
  grid.addWidget(row.text, place, 1);
  return row;
}

void WelcomeSteps::present(const WelcomeContents& contents) {
  contents_ = contents;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    QLabel& text = *rows_[i].text;
    text.setText(toQString(contents.steps[i].text));
    text.setAccessibleName(toQString(contents.steps[i].name));
    text.setAlignment(leadingAlignment() | Qt::AlignVCenter);
  }
  caps_->setVisible(!contents.hotkey.empty());
  setTitle(*openRing_, contents.openRing);
  setTitle(*chooseHotkey_, contents.chooseHotkey);
  drawPictures();
}

void WelcomeSteps::drawPictures() {
  const double ratio = devicePixelRatioF();
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const WelcomeContents::Step& step = contents_.steps[i];
    rows_[i].mark->setPixmap(stepMarkPixmap(step.isDone, step.isNext, palette(), ratio));
  }
  caps_->setPixmap(keyCapsPixmap(toQString(contents_.hotkey), palette(), ratio));
}

void WelcomeSteps::emphasize(bool isEmphasized) {
  const QPalette usual = QApplication::palette(this);
  QPalette palette = usual;
  if (isEmphasized) {
    palette.setColor(QPalette::Window, usual.color(QPalette::Highlight));
    palette.setColor(QPalette::WindowText, usual.color(QPalette::HighlightedText));
  }
  setPalette(isEmphasized ? palette : QPalette());
}

void WelcomeSteps::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) drawPictures();
  QFrame::changeEvent(event);
}

}  // namespace rondora
