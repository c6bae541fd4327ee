#include "ui/qt/settings/page_room.h"

#include <QEvent>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollBar>

namespace rondora {
namespace {

/// Between the pages and what is beside them.
constexpr int kRule = 4;

/// Holds the pages without a layout, for which the toolkit's scroll area would ask for more than the least height.
class PageHolder : public QWidget {
 public:
  explicit PageHolder(QWidget& pages) : pages_(pages) {
    pages.setParent(this);
    pages.installEventFilter(this);
  }
  QSize minimumSizeHint() const override { return pages_.minimumSizeHint(); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::LayoutRequest) updateGeometry();
    return QWidget::eventFilter(watched, event);
  }

 protected:
  void resizeEvent(QResizeEvent* /*event*/) override { pages_.setGeometry(rect()); }

 private:
  QWidget& pages_;
};

}  // namespace

PageRoom::PageRoom(QWidget& pages, const QWidget& beside, QSize frame) : beside_(beside), frame_(frame) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  setWidget(new PageHolder(pages));
  viewport()->setAutoFillBackground(false);
  widget()->setAutoFillBackground(false);
}

QSize PageRoom::minimumSizeHint() const {
  const QSize room = screen()->availableGeometry().size() - frame_;
  QSize least = widget()->minimumSizeHint();
  if (least.height() > height()) least.rwidth() += verticalScrollBar()->sizeHint().width();
  return least.boundedTo({room.width() - beside_.minimumWidth() - kRule, room.height()});
}

// The holder asks its parent, the viewport, for another place.
bool PageRoom::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::viewportEvent(event);
}

void PageRoom::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  if (event->oldSize().height() != height()) updateGeometry();
}

}  // namespace rondora
