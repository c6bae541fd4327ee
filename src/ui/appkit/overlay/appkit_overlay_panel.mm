#include "ui/appkit/overlay/appkit_overlay_panel.h"

#include <dispatch/dispatch.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/macos/events/screen_points.h"
#include "ui/appkit/overlay/overlay_window.h"
#include "ui/appkit/overlay/tracking_view.h"

namespace rondora::appkit {
namespace {

/// Larger than any ring.
constexpr double kMaxSide = 4096;

Rect wholePoints(const Rect& rect) {
  const Size size{std::ceil(std::clamp(rect.size.width, 1.0, kMaxSide)),
                  std::ceil(std::clamp(rect.size.height, 1.0, kMaxSide))};
  const Point center = rect.center();
  return {{std::round(center.x - size.width / 2), std::round(center.y - size.height / 2)}, size};
}

Rect united(const Rect& a, const Rect& b) {
  if (a.isEmpty()) return b;
  if (b.isEmpty()) return a;
  const Point corner{std::min(a.left(), b.left()), std::min(a.top(), b.top())};
  return {corner, {std::max(a.right(), b.right()) - corner.x, std::max(a.bottom(), b.bottom()) - corner.y}};
}

}  // namespace

AppKitOverlayPanel::AppKitOverlayPanel(PictureRasterizer& rasterizer, MainQueue& mainQueue,
                                       const OverlayPanelStyle& style, const Rect& frame, OverlayPanelSink& sink)
    : rasterizer_(rasterizer),
      mainQueue_(mainQueue),
      sink_(sink),
      frame_(wholePoints(frame)),
      window_([[RondoraOverlayWindow alloc] initWithStyle:style contentRect:macos::screenRect(frame_)]),
      view_([[RondoraTrackingView alloc] initWithFrame:{{0, 0}, {frame_.size.width, frame_.size.height}}]) {
  phase_.pixelsPerPoint = macos::pixelsPerPointAt(frame_.center());
  width_ = static_cast<int>(std::ceil(frame_.size.width * phase_.pixelsPerPoint));
  height_ = static_cast<int>(std::ceil(frame_.size.height * phase_.pixelsPerPoint));
  pixels_.resize(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_));
  [view_ setPixels:buffer()];
  [view_ setSink:&sink_];
  window_.contentView = view_;
  [window_ makeFirstResponder:view_];
  // On a later turn: the window is in the middle of it.
  [window_ setKeyLost:[this, lost = weakSelf_.bind([](AppKitOverlayPanel& self) { self.sink_.panelLost(); })] {
    mainQueue_.async(lost);
  }];
}

// The window may be delivering the event that ends the panel, so it lives until the next turn.
AppKitOverlayPanel::~AppKitOverlayPanel() {
  [view_ setSink:nullptr];
  [view_ setPixels:{}];
  [window_ setKeyLost:nullptr];
  [window_ orderOut:nil];
  // The ring's stays otherwise until the pointer meets an area that asks for another.
  [NSCursor.arrowCursor set];
  RondoraOverlayWindow* window = window_;
  dispatch_async(dispatch_get_main_queue(), ^{
    [window close];
  });
}

PixelBuffer AppKitOverlayPanel::buffer() { return {pixels_.data(), width_, height_, width_}; }

void AppKitOverlayPanel::setPicture(Picture picture) {
  layerBounds_.clear();
  for (const PictureLayer& layer : picture.layers) layerBounds_.push_back(layer.bounds);
  layerStates_.assign(picture.layers.size(), 0);
  picture_.reset();
  picture_ = rasterizer_.prepare(std::move(picture), phase_.pixelsPerPoint);
  dirtyWhole();
}

void AppKitOverlayPanel::setLayerState(std::size_t layer, double state) {
  if (std::exchange(layerStates_[layer], state) == state) return;
  phase_.scale == 1 ? addDirty(layerBounds_[layer]) : dirtyWhole();
}

void AppKitOverlayPanel::setAppearancePhase(double scale, double opacity) {
  if (phase_.scale == scale && phase_.opacity == opacity) return;
  phase_.scale = scale;
  phase_.opacity = opacity;
  dirtyWhole();
}

void AppKitOverlayPanel::dirtyWhole() { phase_.dirty = {{0, 0}, frame_.size}; }

void AppKitOverlayPanel::addDirty(const Rect& rect) { phase_.dirty = united(phase_.dirty, rect); }

void AppKitOverlayPanel::display() {
  const Rect dirty = std::exchange(phase_.dirty, {});
  if (!picture_ || dirty.isEmpty()) return;
  PictureView view = phase_;
  // Whole points, so that the view copies whole pixels.
  const Point corner{std::floor(dirty.left()), std::floor(dirty.top())};
  view.dirty = {corner, {std::ceil(dirty.right()) - corner.x, std::ceil(dirty.bottom()) - corner.y}};
  picture_->paint(layerStates_, view, buffer());
  [view_ setNeedsDisplayInRect:{{corner.x, corner.y}, {view.dirty.size.width, view.dirty.size.height}}];
  [view_ displayIfNeeded];
}

void AppKitOverlayPanel::refreshIcons() {
  if (!picture_ || !picture_->refreshIcons()) return;
  dirtyWhole();
  display();
}

void AppKitOverlayPanel::orderFrontRegardless() {
  display();
  [window_ orderFrontRegardless];
}

void AppKitOverlayPanel::makeKey() {
  if (!window_.canBecomeKeyWindow) return;
  [window_ makeKeyWindow];
  if (picture_) picture_->prepareChanges();
  sink_.pointerMoved(mouseLocationOutsideOfEventStream());  // may destroy the panel
}

bool AppKitOverlayPanel::isVisible() const { return window_.isVisible; }

Point AppKitOverlayPanel::mouseLocationOutsideOfEventStream() const {
  const NSPoint location = [view_ convertPoint:window_.mouseLocationOutsideOfEventStream fromView:nil];
  return {location.x, location.y};
}

std::unique_ptr<OverlayPanel> AppKitOverlayPanels::makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                                             OverlayPanelSink& sink) {
  return std::make_unique<AppKitOverlayPanel>(rasterizer_, mainQueue_, style, frame, sink);
}

void AppKitOverlayPanels::prerender(Picture picture) {
  NSScreen* screen = NSScreen.mainScreen;
  rasterizer_.prerender(std::move(picture), screen == nil ? 1 : screen.backingScaleFactor);
}

}  // namespace rondora::appkit
