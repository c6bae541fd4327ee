#include "ui/qt/windows/onboarding_window.h"

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
#include "ui/qt/interface/language_chooser.h"
#include "ui/qt/painting/application_icon.h"
#include "ui/qt/windows/findings_view.h"
#include "ui/qt/windows/welcome_steps.h"

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

QLabel* makeWrapped() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
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

}  // namespace

QtOnboardingWindow::QtOnboardingWindow(WindowContents contents) : contents_(std::move(contents)) {
  refresh_.setSingleShot(true);
  refresh_.callOnTimeout(&refresh_, [this] { refresh(); });
  reminder_.setSingleShot(true);
  reminder_.setInterval(kEmphasis);
  reminder_.callOnTimeout(&reminder_, [this] {
    if (dialog_) steps_->emphasize(false);
  });
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
  QWidget* page = makePage();
  scroll_->setWidget(page);
  foot_ = makeFoot();
  layout->addWidget(foot_);
  refresh();
  QPushButton& first = steps_->openRing().isHidden() ? *close_ : steps_->openRing();
  first.setFocus();
  welcomeChanged_ = contents_.welcome->onChanged([this] { refresh_.start(0); });
  new LayoutWatch(*page, reminder_, [this] { fitScreen(); });
  QObject::connect(dialog_.get(), &QDialog::finished, dialog_.get(), [this] { handleClosed(); });
}

void QtOnboardingWindow::refresh() {
  const WelcomeContents shown = contents_.welcome->contents();
  dialog_->setWindowTitle(toQString(shown.title));
  QFont font = dialog_->font();
  font.setPointSizeF(font.pointSizeF() * kHeadlineScale);
  font.setWeight(QFont::DemiBold);
  headline_->setFont(font);
  headline_->setText(toQString(shown.headline));
  introduction_->setText(toQString(shown.introduction));
  steps_->present(shown);
  findings_->setMarkNames(shown.works, shown.fails);
  findings_->refresh();
  whereItLives_->setText(toQString(shown.whereItLives));
  languageLabel_->setText(toQString(shown.language));
  language_->setAccessibleName(toQString(shown.language));
  language_->setLanguage(contents_.language());
  close_->setText(toQString(shown.close));
  if (shown.isDone && !close_->isDefault()) {
    close_->setAccessibleDescription(toQString(shown.headline));
    close_->setDefault(true);
    close_->setFocus();
  }
  fitScreen();
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

QWidget* QtOnboardingWindow::makePage() {
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(kMargin, kMargin, kMargin, 0);
  column->setSpacing(kSpacing);
  column->addLayout(makeGreeting());
  steps_ = new WelcomeSteps(*contents_.welcome);
  column->addWidget(steps_);
  // Explains to new users why a hotkey or the tray icon does not work.
  findings_ = new FindingsView(contents_.watchFailures, contents_.press);
  findings_->setFixedWidth(kTextWidth);
  findings_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  column->addWidget(findings_);
  whereItLives_ = makeWrapped();
  column->addWidget(whereItLives_);
  column->addStretch();
  return page;
}

QLayout* QtOnboardingWindow::makeGreeting() {
  auto* row = new QHBoxLayout;
  row->setSpacing(kMargin);
  auto* icon = new QLabel;
  icon->setPixmap(applicationPixmap(kIconSide, dialog_->devicePixelRatioF()));
  row->addWidget(icon, 0, Qt::AlignTop);
  auto* column = new QVBoxLayout;
  headline_ = makeWrapped();
  introduction_ = makeWrapped();
  column->addWidget(headline_);
  column->addWidget(introduction_);
  column->addStretch(1);
  row->addLayout(column, 1);
  return row;
}

QWidget* QtOnboardingWindow::makeFoot() {
  auto* foot = new QWidget;
  auto* row = new QHBoxLayout(foot);
  row->setContentsMargins(kMargin, kSpacing, kMargin, kMargin);
  languageLabel_ = new QLabel;
  language_ = new LanguageChooser(contents_.chooseLanguage);
  languageLabel_->setBuddy(language_);
  close_ = new QPushButton;
  // Until all steps are done, Return closes nothing.
  close_->setAutoDefault(false);
  QObject::connect(close_, &QPushButton::clicked, dialog_.get(), &QDialog::accept);
  row->addWidget(languageLabel_);
  row->addWidget(language_);
  row->addStretch();
  row->addWidget(close_);
  return foot;
}

void QtOnboardingWindow::remindToHold() {
  if (!dialog_) return;
  steps_->emphasize(true);
  reminder_.start();
  dialog_->raise();
  scroll_->ensureWidgetVisible(steps_);
}

void QtOnboardingWindow::handleClosed() {
  welcomeChanged_.reset();
  refresh_.stop();
  reminder_.stop();
  // The dialog itself is calling.
  dialog_.release()->deleteLater();
  const auto closed = std::move(closed_);
  closed();  // may destroy this object
}

}  // namespace rondora
