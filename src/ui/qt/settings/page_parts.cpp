#include "ui/qt/settings/page_parts.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QPainter>
#include <QPalette>
#include <QResizeEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyle>

#include "ui/qt/interface/interface_language.h"
#include "ui/qt/interface/qt_conversions.h"

namespace rondora::settings_look {
namespace {

constexpr double kTitleScale = 1.45;
constexpr double kNoteScale = 0.92;
/// The share of the text colour in quiet letters; dark and light schemes stay above 4.5 : 1.
constexpr double kQuiet = 0.72;
constexpr int kProblemMark = 14;
constexpr int kProblemGap = 5;

/// A label that follows the interface's font, colours and direction.
class Text : public QLabel {
 public:
  enum class Role { plain, title, heading, note, problem };

  Text(const QString& text, Role role) : QLabel(text), role_(role) {
    setTextFormat(Qt::PlainText);
    adapt();
  }

  // The toolkit assumes a wide label and so lets a narrow one be cut off.
  QSize minimumSizeHint() const override {
    const QSize hint = QLabel::minimumSizeHint();
    return wordWrap() && isVisible() ? QSize(hint.width(), heightForWidth(width())) : hint;
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QLabel::resizeEvent(event);
    if (wordWrap() && event->oldSize().width() != width()) updateGeometry();
  }
  void paintEvent(QPaintEvent* event) override {
    QLabel::paintEvent(event);
    if (role_ != Role::problem) return;
    QPainter painter(this);
    const int line = fontMetrics().height();
    const QRect mark(0, (line - kProblemMark) / 2, kProblemMark, kProblemMark);
    style()
        ->standardIcon(QStyle::SP_MessageBoxWarning)
        .paint(&painter, QStyle::visualRect(layoutDirection(), rect(), mark));
  }
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    const auto type = event->type();
    const bool matters = type == QEvent::ApplicationFontChange || type == QEvent::ApplicationPaletteChange ||
                         type == QEvent::LayoutDirectionChange || type == QEvent::ParentChange;
    if (matters && !isAdapting_) adapt();
  }
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ApplicationPaletteChange && !isAdapting_) adapt();
    return QLabel::event(event);
  }

 private:
  void adapt() {
    isAdapting_ = true;
    QFont font;
    if (role_ == Role::title) font.setPointSizeF(font.pointSizeF() * kTitleScale);
    if (role_ == Role::title || role_ == Role::heading) font.setWeight(QFont::DemiBold);
    if (role_ == Role::note || role_ == Role::problem) font.setPointSizeF(font.pointSizeF() * kNoteScale);
    setFont(font);
    if (role_ == Role::note) {
      const QPalette application;
      QPalette quiet = application;
      const auto color = [&](QPalette::ColorRole role) { return toColor(application.color(role)); };
      quiet.setColor(QPalette::WindowText, toQColor(mix(color(QPalette::Window), color(QPalette::WindowText), kQuiet)));
      setPalette(quiet);
    }
    if (role_ == Role::problem) {
      const int indent = kProblemMark + kProblemGap;
      setContentsMargins(isRightToLeft() ? 0 : indent, 0, isRightToLeft() ? indent : 0, 0);
    }
    setWordWrap(role_ != Role::plain);
    if (role_ != Role::plain) setAlignment(leadingAlignment() | Qt::AlignTop);
    isAdapting_ = false;
  }

  Role role_;
  bool isAdapting_ = false;
};

/// The page inside is as wide as the area, but no wider than is readable.
class PageArea : public QScrollArea {
 public:
  explicit PageArea(QWidget& page) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidget(&page);
    viewport()->setAutoFillBackground(false);
    page.setAutoFillBackground(false);
  }
  QSize minimumSizeHint() const override {
    const QSize content = widget()->minimumSizeHint().expandedTo(widget()->minimumSize());
    return {content.width() + verticalScrollBar()->sizeHint().width(), 0};
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == widget() && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
  }
};

}  // namespace

QLabel* makeTitle(const QString& text) { return new Text(text, Text::Role::title); }
QLabel* makeHeading(const QString& text) { return new Text(text, Text::Role::heading); }
QLabel* makeNote(const QString& text) { return new Text(text, Text::Role::note); }

QLabel* makeProblem() {
  auto* label = new Text({}, Text::Role::problem);
  label->hide();
  return label;
}

void showText(QLabel& label, const QString& text) {
  label.setText(text);
  label.setVisible(!text.isEmpty());
}

void showChecked(QAbstractButton& button, bool isChecked) {
  const QSignalBlocker blocker(button);
  button.setChecked(isChecked);
}

QLabel* makeLabelFor(QWidget& control, const QString& text) {
  auto* label = new Text(text, Text::Role::plain);
  label->setBuddy(&control);
  nameControl(*label, text);
  return label;
}

void nameControl(QLabel& label, const QString& text) {
  label.setText(text);
  if (label.buddy() != nullptr) label.buddy()->setAccessibleName(text);
}

QScrollArea* makeScrolling(QWidget& content) { return new PageArea(content); }

QWidget* makeScrollingPage(QVBoxLayout*& column) {
  auto* page = new QWidget;
  auto* across = new QHBoxLayout(page);
  across->setContentsMargins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
  auto* content = new QWidget;
  content->setMaximumWidth(kMaxPageWidth);
  column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kRowGap);
  across->addWidget(content, 1000);
  across->addStretch(1);
  return new PageArea(*page);
}

QWidget* makeRule() {
  auto* rule = new QFrame;
  rule->setFrameShape(QFrame::HLine);
  rule->setFrameShadow(QFrame::Sunken);
  return rule;
}

}  // namespace rondora::settings_look
