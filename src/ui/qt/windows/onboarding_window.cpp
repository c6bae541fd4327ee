#include "ui/qt/windows/onboarding_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/application_icon.h"
#include "ui/qt/windows/findings_view.h"
#include "ui/qt/windows/onboarding_art.h"

namespace rondora {

namespace {

constexpr int kMargin = 32;
constexpr int kTextWidth = 400;
constexpr int kIconSide = 112;
constexpr int kMaxFindingsHeight = 180;
constexpr double kHeadlineScale = 1.6;

QLabel* centredText(const std::string& text) {
  auto* label = new QLabel(toQString(text));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignCenter);
  label->setFixedWidth(kTextWidth);
  return label;
}

QLabel* headline(const std::string& text) {
  QLabel* label = centredText(text);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * kHeadlineScale);
  font.setWeight(QFont::DemiBold);
  label->setFont(font);
  return label;
}

QLabel* picture(const QPixmap& pixmap) {
  auto* label = new QLabel;
  label->setPixmap(pixmap);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

}  // namespace

QtOnboardingWindow::QtOnboardingWindow(WindowContents contents) : contents_(std::move(contents)) {}

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
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  fill();
  if (contents_.onTextsChanged) textsChanged_ = contents_.onTextsChanged([this] { fill(); });
  QObject::connect(dialog_.get(), &QDialog::finished, dialog_.get(), [this] { handleClosed(); });
}

void QtOnboardingWindow::fill() {
  const WindowTexts texts = contents_.texts();
  dialog_->setWindowTitle(toQString(texts.onboardingTitle));
  delete page_;
  page_ = makePage(texts);
  dialog_->layout()->addWidget(page_);
  page_->show();
}

QWidget* QtOnboardingWindow::makePage(const WindowTexts& texts) {
  const double ratio = dialog_->devicePixelRatioF();
  auto* page = new QWidget;
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(14);
  column->addWidget(picture(applicationPixmap(kIconSide, ratio)));
  column->addWidget(headline(texts.onboardingHeadline));
  column->addWidget(centredText(texts.onboardingIntroduction));
  if (!texts.onboardingHotkey.empty()) {
    column->addWidget(centredText(texts.onboardingHowToOpen));
    column->addWidget(picture(keyCapsPixmap(toQString(texts.onboardingHotkey), dialog_->palette(), ratio)));
  }
  column->addWidget(centredText(texts.onboardingHowToChoose));
  column->addWidget(centredText(texts.onboardingWhereItLives));
  addFindings(*column, texts);
  column->addSpacing(6);
  auto* done = new QPushButton(toQString(texts.onboardingDone));
  done->setDefault(true);
  column->addWidget(done, 0, Qt::AlignCenter);
  QObject::connect(done, &QPushButton::clicked, dialog_.get(), &QDialog::accept);
  return page;
}

/// Explains to new users why a hotkey or the tray icon does not work.
void QtOnboardingWindow::addFindings(QVBoxLayout& column, const WindowTexts& texts) {
  auto* findings = new FindingsView(contents_.watchFailures, contents_.press);
  findings->setMarkNames(texts.works, texts.fails);
  findings->setFixedWidth(kTextWidth);
  findings->setMaximumHeight(kMaxFindingsHeight);
  findings->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  findings->refresh();
  column.addWidget(findings, 0, Qt::AlignHCenter);
}

void QtOnboardingWindow::handleClosed() {
  textsChanged_.reset();
  // The dialog itself is calling.
  dialog_.release()->deleteLater();
  const auto closed = std::move(closed_);
  closed();  // may destroy this object
}

}  // namespace rondora
