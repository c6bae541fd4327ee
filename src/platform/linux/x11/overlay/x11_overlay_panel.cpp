#include "platform/linux/x11/overlay/x11_overlay_panel.h"

#include <xcb/shape.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>
#include <utility>

namespace rondora::x11 {
namespace {

// Larger than any ring is drawn, small enough for the protocol and for memory.
constexpr int kLargestSide = 4096;
// Another program that insists on being on top as we do must not keep both busy for ever.
constexpr int kRaises = 100;

constexpr std::uint8_t kLeftButton = 1;

// A shaped window without what lies beneath: pixels are seen or not, and fade into this colour instead.
constexpr std::uint32_t kHardEdge = 0xFF15161A;
constexpr std::uint8_t kHardEdgeAlpha = 0x90;
constexpr std::uint8_t kSoftEdgeAlpha = 1;

PixelRect pixelFrame(const Rect& frame, double pixelsPerPoint) {
  const auto side = [&](double points) {
    return static_cast<int>(std::ceil(std::clamp(points * pixelsPerPoint, 1.0, double{kLargestSide})));
  };
  const auto origin = [&](double center, int length) {
    return static_cast<int>(std::lround(center * pixelsPerPoint - length / 2.0));
  };
  const int width = side(frame.size.width);
  const int height = side(frame.size.height);
  return {origin(frame.center().x, width), origin(frame.center().y, height), width, height};
}

/// `pixel`, which is premultiplied, laid on an opaque one. Keeps its alpha, which tells later what is to be seen.
std::uint32_t laidOn(std::uint32_t beneath, std::uint32_t pixel) {
  constexpr std::uint32_t kEven = 0x00FF00FF;
  const std::uint32_t rest = 255 - (pixel >> 24);
  const auto share = [rest](std::uint32_t components) {
    const std::uint32_t scaled = components * rest + 0x00800080;
    return (scaled + (scaled >> 8 & kEven)) >> 8 & kEven;
  };
  return pixel + (share(beneath & kEven) | (share(beneath >> 8 & 0xFF) & 0xFF) << 8);
}

Rect united(const Rect& a, const Rect& b) {
  const double left = std::min(a.left(), b.left());
  const double top = std::min(a.top(), b.top());
  return {{left, top}, {std::max(a.right(), b.right()) - left, std::max(a.bottom(), b.bottom()) - top}};
}

bool sameRectangle(const xcb_rectangle_t& a, const xcb_rectangle_t& b) {
  return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

}  // namespace

void DirtyRects::add(const Rect& rect) {
  if (rect.isEmpty()) return;
  Rect joined = rect;
  for (std::size_t i = 0; i < count_;) {
    if (rects_[i].intersects(joined) || count_ == rects_.size()) {
      joined = united(joined, rects_[i]);
      rects_[i] = rects_[--count_];
      i = 0;
    } else {
      ++i;
    }
  }
  rects_[count_++] = joined;
}

X11OverlayPanel::X11OverlayPanel(const OverlayResources& resources, const Rect& frame, OverlayPanelSink& sink)
    : resources_(resources),
      sink_(sink),
      frame_(pixelFrame(frame, resources.connection.pixelsPerPoint())),
      raisesLeft_(kRaises) {
  view_.pixelsPerPoint = resources.connection.pixelsPerPoint();
  beneath_ = resources.screenReader.read(frame_);
  createWindow();
  setProperties();
  surface_.emplace(resources.connection, resources.transport, frame_.width, frame_.height);
  compositorObserver_ = resources.compositor.onChanged([this] { compositorChanged(); });
  eventHandler_ =
      resources.connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

X11OverlayPanel::~X11OverlayPanel() {
  eventHandler_.reset();
  compositorObserver_.reset();
  rootSelection_.reset();
  xcb_connection_t* xcb = resources_.connection.get();
  xcb_unmap_window(xcb, window_);
  resources_.inputGrab.giveBack(*this);
  surface_.reset();
  xcb_free_gc(xcb, context_);
  xcb_destroy_window(xcb, window_);
  resources_.connection.flush();
  if (isMapped_) resources_.screenReader.panelWentAway();
}

// No background on a plain visual: the server would paint a black square before the picture comes.
void X11OverlayPanel::createWindow() {
  xcb_connection_t* xcb = resources_.connection.get();
  window_ = xcb_generate_id(xcb);
  xcb_create_window_value_list_t values{};
  values.background_pixmap = XCB_BACK_PIXMAP_NONE;
  values.border_pixel = 0;
  values.override_redirect = 1;
  values.event_mask = XCB_EVENT_MASK_EXPOSURE;
  values.colormap = resources_.colormap;
  std::uint32_t mask = XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP;
  mask |= isTransparent() ? XCB_CW_BACK_PIXEL : XCB_CW_BACK_PIXMAP;
  xcb_create_window_aux(xcb, resources_.depth, window_, resources_.connection.root(),
                        static_cast<std::int16_t>(frame_.x), static_cast<std::int16_t>(frame_.y),
                        static_cast<std::uint16_t>(frame_.width), static_cast<std::uint16_t>(frame_.height), 0,
                        XCB_WINDOW_CLASS_INPUT_OUTPUT, resources_.visual, mask, &values);
  context_ = xcb_generate_id(xcb);
  xcb_create_gc(xcb, context_, window_, 0, nullptr);
}

void X11OverlayPanel::setProperties() const {
  const X11Connection& connection = resources_.connection;
  const auto setText = [&](xcb_atom_t name, xcb_atom_t type, std::string_view text) {
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window_, name, type, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
  };
  constexpr std::string_view kClass{"rondora\0Rondora\0", 16};
  setText(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, kClass);
  setText(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, "Rondora");
  setText(connection.atom("_NET_WM_NAME"), connection.atom("UTF8_STRING"), "Rondora");
  const xcb_atom_t type = connection.atom("_NET_WM_WINDOW_TYPE_NOTIFICATION");
  xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window_, connection.atom("_NET_WM_WINDOW_TYPE"),
                      XCB_ATOM_ATOM, 32, 1, &type);
}

void X11OverlayPanel::setPicture(Picture picture) {
  layerBounds_.clear();
  for (const PictureLayer& layer : picture.layers) layerBounds_.push_back(layer.bounds);
  layerStates_.assign(picture.layers.size(), 0);
  picture_ = resources_.rasterizer.prepare(std::move(picture), view_.pixelsPerPoint);
  dirtyWhole();
}

void X11OverlayPanel::setLayerState(std::size_t layer, double state) {
  if (std::exchange(layerStates_[layer], state) == state) return;
  view_.scale == 1 ? dirty_.add(layerBounds_[layer]) : dirtyWhole();
}

void X11OverlayPanel::setAppearancePhase(double scale, double opacity) {
  if (view_.scale == scale && view_.opacity == opacity) return;
  view_.scale = scale;
  view_.opacity = opacity;
  dirtyWhole();
}

void X11OverlayPanel::dirtyWhole() {
  const double factor = 1 / view_.pixelsPerPoint;
  dirty_.clear();
  dirty_.add({{0, 0}, {frame_.width * factor, frame_.height * factor}});
}

// A hidden window keeps no pixels: they are put as a whole when it is shown.
void X11OverlayPanel::display() {
  paintDirty();
  if (isMapped_) {
    putDirty();
    resources_.connection.flush();
  }
  dirty_.clear();
}

/// The picture was prepared while the server answered.
void X11OverlayPanel::setBackdrop() {
  hasBackdrop_ = true;
  if (!beneath_) return;
  beneathPixels_ = beneath_->pixels();
  if (beneathPixels_) picture_->setBackdrop(*beneathPixels_);
  if (!isTransparent()) return;
  beneathPixels_.reset();
  beneath_.reset();
}

void X11OverlayPanel::paintDirty() {
  if (picture_ && !hasBackdrop_) setBackdrop();
  for (const Rect& rect : dirty_) {
    const PixelRect pixels = pixelsOf(rect);
    if (pixels.width <= 0 || pixels.height <= 0 || !picture_) continue;
    const double factor = 1 / view_.pixelsPerPoint;
    PictureView view = view_;
    view.dirty = {{pixels.x * factor, pixels.y * factor}, {pixels.width * factor, pixels.height * factor}};
    if (!isTransparent() && !beneathPixels_) view.opacity = 1;
    picture_->paint(layerStates_, view, surface_->buffer());
    if (!isTransparent()) makeOpaque(pixels);
  }
}

void X11OverlayPanel::makeOpaque(const PixelRect& rect) {
  const PixelBuffer target = surface_->buffer();
  for (int y = rect.y; y < rect.bottom(); ++y) {
    std::uint32_t* row = target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride;
    if (!beneathPixels_) {
      std::transform(row + rect.x, row + rect.right(), row + rect.x,
                     [](std::uint32_t pixel) { return laidOn(kHardEdge, pixel); });
      continue;
    }
    const std::uint32_t* beneath = beneathPixels_->pixels + static_cast<std::ptrdiff_t>(y) * beneathPixels_->stride;
    std::transform(beneath + rect.x, beneath + rect.right(), row + rect.x, row + rect.x, laidOn);
  }
}

void X11OverlayPanel::putDirty() {
  if (!isTransparent()) updateShape();
  for (const Rect& rect : dirty_) put(pixelsOf(rect));
}

void X11OverlayPanel::put(const PixelRect& rect) {
  if (rect.width > 0 && rect.height > 0) surface_->put(window_, context_, resources_.depth, rect);
}

// Nothing is sent to the server before `makeKey`, so that map, picture and grabs reach it together.
void X11OverlayPanel::orderFrontRegardless() {
  paintDirty();
  updateShape();
  raise();
  rootSelection_ = resources_.connection.selectRootEventsMeanwhile(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
  xcb_map_window(resources_.connection.get(), window_);
  isMapped_ = true;
  put({0, 0, frame_.width, frame_.height});
  dirty_.clear();
}

void X11OverlayPanel::updateShape() {
  if (isTransparent()) {
    xcb_shape_mask(resources_.connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, window_, 0, 0,
                   XCB_PIXMAP_NONE);
    shape_.clear();
    return;
  }
  surface_->findOpaqueParts(beneathPixels_ ? kSoftEdgeAlpha : kHardEdgeAlpha, nextShape_);
  if (std::equal(shape_.begin(), shape_.end(), nextShape_.begin(), nextShape_.end(), sameRectangle)) return;
  shape_.swap(nextShape_);
  xcb_shape_rectangles(resources_.connection.get(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING,
                       XCB_CLIP_ORDERING_YX_SORTED, window_, 0, 0, static_cast<std::uint32_t>(shape_.size()),
                       shape_.data());
}

void X11OverlayPanel::compositorChanged() {
  if (!isMapped_) return;
  dirtyWhole();
  paintDirty();
  updateShape();
  put({0, 0, frame_.width, frame_.height});
  dirty_.clear();
  resources_.connection.flush();
}

void X11OverlayPanel::raise() const {
  const std::uint32_t above = XCB_STACK_MODE_ABOVE;
  xcb_configure_window(resources_.connection.get(), window_, XCB_CONFIG_WINDOW_STACK_MODE, &above);
}

/// The pixels that the rectangle touches, inside the panel.
PixelRect X11OverlayPanel::pixelsOf(const Rect& rect) const {
  const auto inside = [](double value, int length) {
    return static_cast<int>(std::clamp(value, 0.0, static_cast<double>(length)));
  };
  const double scale = view_.pixelsPerPoint;
  const int left = inside(std::floor(rect.left() * scale), frame_.width);
  const int top = inside(std::floor(rect.top() * scale), frame_.height);
  const int right = inside(std::ceil(rect.right() * scale), frame_.width);
  const int bottom = inside(std::ceil(rect.bottom() * scale), frame_.height);
  return {left, top, right - left, bottom - top};
}

Point X11OverlayPanel::inPanel(int rootX, int rootY) const {
  return {(rootX - frame_.x) / view_.pixelsPerPoint, (rootY - frame_.y) / view_.pixelsPerPoint};
}

Point X11OverlayPanel::mouseLocationOutsideOfEventStream() const {
  xcb_connection_t* xcb = resources_.connection.get();
  const auto cookie = xcb_query_pointer(xcb, resources_.connection.root());
  const Reply<xcb_query_pointer_reply_t> reply(xcb_query_pointer_reply(xcb, cookie, nullptr));
  return reply ? inPanel(reply->root_x, reply->root_y) : Point{};
}

void X11OverlayPanel::grabbedButtonPressed(int x, int y, xcb_button_t button) {
  if (button == kLeftButton) sink_.mouseDown(inPanel(x, y));
}

bool X11OverlayPanel::handleEvent(const xcb_generic_event_t& event) {
  switch (event.response_type & 0x7F) {
    case XCB_EXPOSE: {
      const auto& expose = reinterpret_cast<const xcb_expose_event_t&>(event);
      if (expose.window != window_) return false;
      put({expose.x, expose.y, expose.width, expose.height});
      resources_.connection.flush();
      return true;
    }
    case XCB_MAP_NOTIFY:
      if (mayBeCoveredBy(reinterpret_cast<const xcb_map_notify_event_t&>(event).window)) return false;
      raiseAgain();
      return false;
    case XCB_CONFIGURE_NOTIFY: {
      const auto& configured = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
      if (configured.above_sibling == window_ && !mayBeCoveredBy(configured.window)) raiseAgain();
      return false;
    }
    default:
      return false;
  }
}

/// Only our own windows know where the panel is and have a reason to be above it.
bool X11OverlayPanel::mayBeCoveredBy(xcb_window_t window) const {
  const xcb_setup_t& setup = *xcb_get_setup(resources_.connection.get());
  return (window & ~setup.resource_id_mask) == setup.resource_id_base;
}

// The server says of windows with an alpha channel that nothing covers them, so VisibilityNotify would not do.
void X11OverlayPanel::raiseAgain() {
  if (!isMapped_ || raisesLeft_-- <= 0) return;
  raise();
  resources_.connection.flush();
}

}  // namespace rondora::x11
