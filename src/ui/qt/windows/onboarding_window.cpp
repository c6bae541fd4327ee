#include "ui/qt/windows/onboarding_window.h"

#include <QComboBox>
#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/application_icon.h"
#include "ui/qt/windows/findings_view.h"
#include "ui/qt/windows/language_chooser.h"
#include "ui/qt/windows/onboarding_art.h"

namespace rondora {

namespace {

constexpr int kMargin = 24;
constexpr int kSpacing = 14;
constexpr int kTextWidth = 520;
constexpr int kIconSide = 88;
constexpr double kHeadlineScale = 1.5;
constexpr int kEmphasis = 6000;  // milliseconds
/// For the frame that the window manager adds.
constexpr QSize kFrameRoom(20, 60);

QLabel* wrapped(const std::string& text) {
  auto* label = new QLabel(toQString(text));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

QLabel* headline(const std::string& text) {
  QLabel* label = wrapped(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * kHeadlineScale);
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
  return label;
}

QLabel* picture(const QPixmap& pixmap) {
  auto* label = new QLabel;
  label->setPixmap(pixmap);
  return label;
}

/// Calls back when a widget in the watched one has another size than before, as long as `context` lives.
class LayoutWatch : public QObject {
 public:
  LayoutWatch(QWidget& widget, QObject& context, std::function<void()> changed)
      : QObject(&widget), context_(&context), changed_(std::move(changed)) {
    widget.installEventFilter(this);
  }
  bool eventFilter(QObject* /*widget*/, QEvent* event) override {
    if (event->type() == QEvent::LayoutRequest && context_) QTimer::singleShot(0, context_, changed_);
    return false;
  }

 private:
  QPointer<QObject> context_;
  std::function<void()> changed_;
};

QLayout* makeGreeting(const WindowTexts& texts, double devicePixelRatio) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kMargin);
  row->addWidget(picture(applicationPixmap(kIconSide, devicePixelRatio)), 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  column->addWidget(headline(texts.onboardingHeadline));
  column->addWidget(wrapped(texts.onboardingIntroduction));
  column->addStretch();
  row->addLayout(column, 1);
  return row;
}

}  // namespace

QtOnboardingWindow::QtOnboardingWindow(WindowContents contents) : contents_(std::move(contents)) {
  reminder_.setSingleShot(true);
  reminder_.setInterval(kEmphasis);
  reminder_.callOnTimeout(&reminder_, [this] { emphasize(false); });
}

QtOnboardingWindow::~QtOnboardingWindow() {
  if (dialog_) dialog_->disconnect();
}

void QtOnboardingWindow::present(std::function<void()> closed) {
  closed_ = std::move(closed);
  build();
  dialog_->show();
  dialog_->raise();
  dialog_->activateWindow();
}

bool QtOnboardingWindow::isUp() const { return dialog_ && dialog_->isVisible(); }

void QtOnboardingWindow::close() {
  if (isUp()) dialog_->close();
}

void QtOnboardingWindow::build() {
  dialog_ = std::make_unique<QDialog>();
  dialog_->setWindowIcon(applicationIcon());
  auto* layout = new QVBoxLayout(dialog_.get());
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  scroll_ = new QScrollArea;
  scroll_->setFrameShape(QFrame::NoFrame);
  scroll_->setWidgetResizable(true);
  scroll_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  scroll_->setFocusPolicy(Qt::NoFocus);
  layout->addWidget(scroll_);
  fill();
  if (contents_.onTextsChanged) textsChanged_ = contents_.onTextsChanged([this] { fill(); });
  QObject::connect(dialog_.get(), &QDialog::finished, dialog_.get(), [this] { handleClosed(); });
}

void QtOnboardingWindow::fill() {
  const WindowTexts texts = contents_.texts();
  dialog_->setWindowTitle(toQString(texts.onboardingTitle));
  const bool isChoosingLanguage = foot_ != nullptr && dynamic_cast<QComboBox*>(dialog_->focusWidget()) != nullptr;
  // Their widgets may be calling.
  for (QWidget* former : {scroll_->takeWidget(), foot_}) {
    if (former != nullptr) former->deleteLater();
  }
  QWidget* page = makePage(texts);
  scroll_->setWidget(page);
  foot_ = makeFoot(texts);
  dialog_->layout()->addWidget(foot_);
  QWidget* focused = foot_->findChild<QPushButton*>();
  if (isChoosingLanguage) focused = foot_->findChild<QComboBox*>();
  focused->setFocus();
  fitScreen();
  new LayoutWatch(*page, reminder_, [this] { fitScreen(); });
}

// Scrolls only where the screen is smaller than the page.
void QtOnboardingWindow::fitScreen() {
  if (!dialog_) return;
  constexpr int kWidth = kTextWidth + 2 * kMargin;
  const int height = scroll_->widget()->heightForWidth(kWidth) + foot_->sizeHint().height();
  const QRect available = dialog_->screen()->availableGeometry();
  const QSize size = QSize(kWidth, height).boundedTo(available.size() - kFrameRoom);
  dialog_->setFixedSize(size);
  if (!dialog_->isVisible()) {
    dialog_->move(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size + kFrameRoom, available).topLeft());
  }
}

QWidget* QtOnboardingWindow::makePage(const WindowTexts& texts) {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(kMargin, kMargin, kMargin, 0);
  column->setSpacing(kSpacing);
  column->addLayout(makeGreeting(texts, dialog_->devicePixelRatioF()));
  instructions_ = texts.onboardingHotkey.empty() ? nullptr : makeInstructions(texts);
  if (instructions_ != nullptr) column->addWidget(instructions_);
  column->addWidget(makeFindings(texts));
  column->addWidget(wrapped(texts.onboardingWhereItLives));
  column->addStretch();
  return page;
}

/// How the ring is opened and used.
QWidget* QtOnboardingWindow::makeInstructions(const WindowTexts& texts) {
  auto* card = new QFrame;
  card->setFrameShape(QFrame::StyledPanel);
  card->setAutoFillBackground(true);
  auto* column = new QVBoxLayout(card);
  column->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
  column->addWidget(wrapped(texts.onboardingHowToOpen));
  column->addWidget(
      picture(keyCapsPixmap(toQString(texts.onboardingHotkey), dialog_->palette(), dialog_->devicePixelRatioF())), 0,
      Qt::AlignCenter);
  column->addWidget(wrapped(texts.onboardingHowToChoose));
  return card;
}

/// Explains to new users why a hotkey or the tray icon does not work.
QWidget* QtOnboardingWindow::makeFindings(const WindowTexts& texts) {
  auto* findings = new FindingsView(contents_.watchFailures, contents_.press);
  findings->setMarkNames(texts.works, texts.fails);
  findings->setFixedWidth(kTextWidth);
  findings->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  findings->refresh();
  return findings;
}

QWidget* QtOnboardingWindow::makeFoot(const WindowTexts& texts) {
  auto* foot = new QWidget;
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(kMargin, kSpacing, kMargin, kMargin);
  auto* languageLabel = new QLabel(toQString(texts.language));
  auto* language = new LanguageChooser(contents_.chooseLanguage);
  language->setLanguage(contents_.language());
  language->setAccessibleName(toQString(texts.language));
  languageLabel->setBuddy(language);
  auto* done = new QPushButton(toQString(texts.onboardingDone));
  done->setDefault(true);
  QObject::connect(done, &QPushButton::clicked, dialog_.get(), &QDialog::accept);
  row->addWidget(languageLabel);
  row->addWidget(language);
  row->addStretch();
  row->addWidget(done);
  return foot;
}

void QtOnboardingWindow::remindToHold() {
  if (instructions_ == nullptr) return;
  emphasize(true);
  reminder_.start();
  dialog_->raise();
  scroll_->ensureWidgetVisible(instructions_);
}

void QtOnboardingWindow::emphasize(bool isEmphasized) {
  if (instructions_ == nullptr) return;
  const QPalette usual = dialog_->palette();
  QPalette palette = usual;
  if (isEmphasized) {
    palette.setColor(QPalette::Window, usual.color(QPalette::Highlight));
    palette.setColor(QPalette::WindowText, usual.color(QPalette::HighlightedText));
  }
  instructions_->setPalette(palette);
}

void QtOnboardingWindow::handleClosed() {
  textsChanged_.reset();
  reminder_.stop();
  instructions_ = nullptr;
  foot_ = nullptr;
  // The dialog itself is calling.
  dialog_.release()->deleteLater();
  const auto closed = std::move(closed_);
  closed();  // may destroy this object
}

}  // namespace rondora
