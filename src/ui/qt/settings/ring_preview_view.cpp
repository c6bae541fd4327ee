#include "ui/qt/settings/ring_preview_view.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionFocusRect>
#include <algorithm>

#include "platform/qt/qt_text.h"

namespace rondora {
namespace {

constexpr int kUsualSide = 380;
constexpr int kLeastSide = 260;
constexpr double kCorner = 14;
/// The empty band around the shadow of the ring that the backdrop need not show.
constexpr double kShadowCut = 0.5;

PixelBuffer buffer(QImage& image) {
  return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
          static_cast<int>(image.bytesPerLine() / static_cast<int>(sizeof(std::uint32_t)))};
}

}  // namespace

RingPreviewView::RingPreviewView(RingPreview& preview, const LocalizationStore& localization,
                                 PictureRasterizer& rasterizer)
    : preview_(preview), localization_(localization), rasterizer_(rasterizer) {
  QAccessible::registerAccessibleInterface(new QAccessibleWidget(this, QAccessible::Canvas));
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  changes_ = preview_.onChanged([this] {
    showCursor();
    update();
  });
}

RingPreviewView::~RingPreviewView() = default;

void RingPreviewView::refresh() {
  setAccessibleName(toQString(localization_.text(StringKey::previewName)));
  setToolTip(preview_.editsSectors() ? toQString(localization_.text(StringKey::previewHelp)) : QString());
}

void RingPreviewView::refreshIcons() {
  if (prepared_ && prepared_->refreshIcons()) update();
}

void RingPreviewView::setChosen(const QString& title) {
  if (accessibleDescription() == title) return;
  setAccessibleDescription(title);
  QAccessibleEvent event(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&event);
}

QSize RingPreviewView::sizeHint() const { return {kUsualSide, kUsualSide}; }
QSize RingPreviewView::minimumSizeHint() const { return {kLeastSide, kLeastSide}; }

double RingPreviewView::scale() const {
  const RingLayout& layout = preview_.ring().layout;
  const double side = 2 * (layout.halfSide() - layout.shadowWidth() * kShadowCut);
  return std::min({1.0, width() / side, height() / side});
}

QPointF RingPreviewView::corner() const {
  const double half = preview_.ring().layout.halfSide() * scale();
  return {width() / 2.0 - half, height() / 2.0 - half};
}

Point RingPreviewView::inPicture(QPointF position) const {
  const QPointF point = (position - corner()) / scale();
  return {point.x(), point.y()};
}

/// What the glass lies on: light, dark and colour, as a desktop has them.
void RingPreviewView::drawBackdrop(QPainter& painter) const {
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor accent = palette().color(QPalette::Highlight);
  const bool isDark = palette().color(QPalette::Window).lightnessF() < 0.5F;
  QLinearGradient gradient(0, 0, width(), height());
  gradient.setColorAt(0, accent.lighter(isDark ? 90 : 165));
  gradient.setColorAt(0.55, accent.lighter(isDark ? 55 : 130));
  gradient.setColorAt(1, QColor::fromHslF(std::fmod(accent.hslHueF() + 1.12F, 1.0F), 0.35F, isDark ? 0.22F : 0.62F));
  QPainterPath path;
  path.addRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCorner, kCorner);
  painter.fillPath(path, gradient);
}

void RingPreviewView::prepare() {
  const double pixelsPerPoint = devicePixelRatioF() * scale();
  if (prepared_ && pixelsPerPoint == pixelsPerPoint_ && picture_ == preview_.ring().picture &&
      backdrop_.size() == size() * devicePixelRatioF()) {
    return;
  }
  picture_ = preview_.ring().picture;
  pixelsPerPoint_ = pixelsPerPoint;
  prepared_.reset();
  prepared_ = rasterizer_.prepare(picture_, pixelsPerPoint);
  const QSize pixels = size() * devicePixelRatioF();
  if (backdrop_.size() != pixels) {
    backdrop_ = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
    backdrop_.fill(Qt::transparent);
    backdrop_.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&backdrop_);
    drawBackdrop(painter);
  }
  const int side = static_cast<int>(std::ceil(2 * preview_.ring().layout.halfSide() * pixelsPerPoint));
  pixels_ = QImage(side, side, QImage::Format_ARGB32_Premultiplied);
  const QPoint from = (corner() * devicePixelRatioF()).toPoint();
  QImage beneath = backdrop_.copy(QRect(from, QSize(side, side)));
  prepared_->setSnapshot(buffer(beneath));
}

void RingPreviewView::paintEvent(QPaintEvent* /*event*/) {
  prepare();
  const double side = 2 * preview_.ring().layout.halfSide();
  const std::vector<double> states = preview_.states();
  prepared_->paint(states, {.pixelsPerPoint = pixelsPerPoint_, .scale = 1, .opacity = 1, .dirty = {{}, {side, side}}},
                   buffer(pixels_));
  QPainter painter(this);
  painter.drawImage(0, 0, backdrop_);
  pixels_.setDevicePixelRatio(devicePixelRatioF());
  painter.drawImage(corner(), pixels_);
  pixels_.setDevicePixelRatio(1);
  if (!hasFocus()) return;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
  painter.drawRoundedRect(QRectF(rect()).adjusted(2, 2, -2, -2), kCorner - 1, kCorner - 1);
}

void RingPreviewView::resizeEvent(QResizeEvent* event) {
  prepared_.reset();
  QWidget::resizeEvent(event);
}

void RingPreviewView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) {
    backdrop_ = QImage();
    prepared_.reset();
    update();
  }
  QWidget::changeEvent(event);
}

void RingPreviewView::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  preview_.press(inPicture(event->position()));
  showCursor();
}

void RingPreviewView::mouseMoveEvent(QMouseEvent* event) {
  preview_.moveTo(inPicture(event->position()));
  showCursor();
}

void RingPreviewView::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  preview_.release();
  showCursor();
}

void RingPreviewView::leaveEvent(QEvent* /*event*/) { preview_.leave(); }

void RingPreviewView::showCursor() {
  switch (preview_.cursor()) {
    case RingPreview::Cursor::arrow:
      return setCursor(Qt::ArrowCursor);
    case RingPreview::Cursor::choose:
      return setCursor(Qt::PointingHandCursor);
    case RingPreview::Cursor::drag:
      return setCursor(Qt::ClosedHandCursor);
    case RingPreview::Cursor::turn:
      return setCursor(Qt::SizeAllCursor);
  }
}

// Sectors run clockwise in every language.
void RingPreviewView::keyPressEvent(QKeyEvent* event) {
  const bool moves = event->modifiers() == Qt::AltModifier;
  const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  const auto go = [&](int direction) { moves ? preview_.moveChosen(direction) : preview_.step(direction); };
  if (!moves && !isPlain) return QWidget::keyPressEvent(event);
  switch (event->key()) {
    case Qt::Key_Right:
    case Qt::Key_Down:
      return go(1);
    case Qt::Key_Left:
    case Qt::Key_Up:
      return go(-1);
    case Qt::Key_PageDown:
      return preview_.turnBy(1);
    case Qt::Key_PageUp:
      return preview_.turnBy(-1);
    case Qt::Key_Escape:
      if (preview_.cancel()) return;
      break;
    default:
      break;
  }
  QWidget::keyPressEvent(event);
}

}  // namespace rondora
