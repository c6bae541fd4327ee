#include "ui/qt/windows/findings_view.h"

#include <algorithm>
#include <utility>

namespace rondora {

namespace {

constexpr QSize kMaxHint(480, 300);
constexpr int kMinHeight = 90;

}  // namespace

FindingsView::FindingsView(FindingsList::Watch watch, FindingsList::Press press)
    : list_(new FindingsList(std::move(watch), std::move(press))) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setFocusPolicy(Qt::NoFocus);
  setWidget(list_);
  viewport()->setAutoFillBackground(false);
  list_->setAutoFillBackground(false);
  list_->onRebuilt = [this] { updateGeometry(); };
}

QSize FindingsView::sizeHint() const {
  if (list_->isEmpty()) return {kMaxHint.width(), 0};
  const int width = std::clamp(maximumWidth(), 1, kMaxHint.width());
  return {width, std::min(list_->heightForWidth(width), kMaxHint.height())};
}

QSize FindingsView::minimumSizeHint() const { return {0, std::min(sizeHint().height(), kMinHeight)}; }

}  // namespace rondora
