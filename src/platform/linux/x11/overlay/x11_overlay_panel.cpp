#include "platform/linux/x11/overlay/x11_overlay_panel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

#include "base/program_identity.h"

namespace rondora::x11 {
namespace {

// Larger than any ring, within the limits of protocol and memory.
constexpr int kMaxSide = 4096;
// Ends the contest with another program that keeps raising its window too.
constexpr int kMaxRaises = 100;

constexpr std::uint8_t kLeftButton = 1;

bool staysOnTop(const OverlayPanelStyle& style) {
  return style.isFloating || style.windowLevel > OverlayPanelStyle::kNormalLevel;
}

PixelRect pixelFrame(const Rect& frame, double pixelsPerPoint) {
  const auto side = [&](double points) {
    return static_cast<int>(std::ceil(std::clamp(points * pixelsPerPoint, 1.0, double{kMaxSide})));
  };
  const auto origin = [&](double center, int length) {
    return static_cast<int>(std::lround(center * pixelsPerPoint - length / 2.0));
  };
  const int width = side(frame.size.width);
  const int height = side(frame.size.height);
  return {origin(frame.center().x, width), origin(frame.center().y, height), width, height};
}

}  // namespace

X11OverlayPanel::X11OverlayPanel(const OverlayResources& resources, const OverlayPanelStyle& style, const Rect& frame,
                                 OverlayPanelSink& sink)
    : resources_(resources),
      style_(style),
      sink_(sink),
      frame_(pixelFrame(frame, resources.connection.pixelsPerPoint())),
      raisesLeft_(staysOnTop(style) ? kMaxRaises : 0) {
  view_.pixelsPerPoint = resources.connection.pixelsPerPoint();
  snapshot_ = resources.screenReader.read(frame_);
  createWindow();
  setProperties();
  compositorObserver_ = resources.compositor.onChanged([this] { compositorChanged(); });
  eventHandler_ =
      resources.connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
  if (isTransparent()) map();
  if (style.canBecomeKey) resources.inputGrab.request(*this);
  resources.connection.flush();
}

X11OverlayPanel::~X11OverlayPanel() {
  eventHandler_.reset();
  compositorObserver_.reset();
  rootSelection_.reset();
  xcb_connection_t* xcb = resources_.connection.get();
  xcb_unmap_window(xcb, window_);
  resources_.inputGrab.release(*this);
  xcb_free_gc(xcb, context_);
  xcb_destroy_window(xcb, window_);
  resources_.connection.flush();
  if (isShown_) resources_.screenReader.panelWentAway();
}

// No background without alpha: the server would paint a black square before the picture arrives.
void X11OverlayPanel::createWindow() {
  xcb_connection_t* xcb = resources_.connection.get();
  window_ = xcb_generate_id(xcb);
  xcb_create_window_value_list_t values{};
  values.background_pixmap = XCB_BACK_PIXMAP_NONE;
  values.border_pixel = 0;
  values.override_redirect = style_.isBorderless && style_.nonactivating ? 1 : 0;
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
  setText(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, program_identity::kName);
  setText(connection.atom("_NET_WM_NAME"), connection.atom("UTF8_STRING"), program_identity::kName);
  const xcb_atom_t type = connection.atom("_NET_WM_WINDOW_TYPE_NOTIFICATION");
  xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window_, connection.atom("_NET_WM_WINDOW_TYPE"),
                      XCB_ATOM_ATOM, 32, 1, &type);
  if (!style_.hasShadow) disclaimShadow();
}

// Compositors take a window with frame extents for one that draws its own shadow; picom has a property besides.
void X11OverlayPanel::disclaimShadow() const {
  const X11Connection& connection = resources_.connection;
  constexpr std::array<std::uint32_t, 4> kNone{};
  const auto setZeros = [&](const char* name, std::uint32_t count) {
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window_, connection.atom(name), XCB_ATOM_CARDINAL, 32,
                        count, kNone.data());
  };
  setZeros("_GTK_FRAME_EXTENTS", 4);
  setZeros("_COMPTON_SHADOW", 1);
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

// A hidden window keeps no pixels; showing it puts all of them.
void X11OverlayPanel::display() {
  paintDirty();
  if (isShown_) {
    putDirty();
    resources_.connection.flush();
  }
  dirty_.clear();
}

void X11OverlayPanel::refreshIcons() {
  if (!picture_ || !picture_->refreshIcons()) return;
  dirtyWhole();
  display();
}

/// Waits for the server only now, after the picture was prepared.
void X11OverlayPanel::setSnapshot() {
  hasSnapshot_ = true;
  const auto snapshot = snapshot_ ? snapshot_->pixels() : std::nullopt;
  if (snapshot) picture_->setSnapshot(*snapshot);
  if (isTransparent()) {
    if (snapshot_) surface_ = snapshot_->releaseSurface();
    snapshot_.reset();
  } else if (snapshot) {
    composition_.setSnapshot(*snapshot);
  }
}

void X11OverlayPanel::paintDirty() {
  if (picture_ && !hasSnapshot_) setSnapshot();
  if (!surface_) {
    surface_ = std::make_unique<PixelSurface>(resources_.connection, resources_.transport, frame_.width, frame_.height);
  }
  for (const Rect& rect : dirty_) {
    const PixelRect pixels = pixelsOf(rect);
    if (pixels.isEmpty() || !picture_) continue;
    const double factor = 1 / view_.pixelsPerPoint;
    PictureView view = view_;
    view.dirty = {{pixels.x * factor, pixels.y * factor}, {pixels.width * factor, pixels.height * factor}};
    if (!isTransparent() && !composition_.hasSnapshot()) view.opacity = 1;
    picture_->paint(layerStates_, view, surface_->buffer());
    if (!isTransparent()) composition_.blend(surface_->buffer(), pixels);
  }
}

void X11OverlayPanel::putDirty() {
  if (!isTransparent()) updateShape();
  for (const Rect& rect : dirty_) put(pixelsOf(rect));
}

void X11OverlayPanel::put(const PixelRect& rect) {
  if (!rect.isEmpty()) surface_->put(window_, context_, resources_.depth, rect);
}

// Mapping is most of what showing a window costs a compositor. Without a picture the window is transparent, so it is
// mapped at once, and the compositor works while the picture is painted.
void X11OverlayPanel::map() {
  if (std::exchange(isMapped_, true)) return;
  raise();
  rootSelection_ = resources_.connection.selectRootEventsTemporarily(XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
  xcb_map_window(resources_.connection.get(), window_);
}

void X11OverlayPanel::orderFrontRegardless() {
  paintDirty();
  isOrderedFront_ = true;
  if (!style_.canBecomeKey) show();
}

void X11OverlayPanel::keyboardGrabbed() {
  if (isOrderedFront_) show();
}

void X11OverlayPanel::show() {
  updateShape();
  map();
  isShown_ = true;
  putWhole();
  resources_.connection.flush();
}

void X11OverlayPanel::makeKey() {
  if (!style_.canBecomeKey) return;
  const auto prepareChanges = weakSelf_.bind([](X11OverlayPanel& self) {
    if (self.picture_) self.picture_->prepareChanges();
  });
  resources_.inputGrab.take(*this);  // shows the panel, reports the pointer; the sink may destroy the panel
  prepareChanges();
}

void X11OverlayPanel::putWhole() {
  wholePut_ = surface_->put(window_, context_, resources_.depth, {0, 0, frame_.width, frame_.height});
  dirty_.clear();
}

void X11OverlayPanel::updateShape() {
  isTransparent() ? composition_.removeShape(resources_.connection, window_)
                  : composition_.applyShape(resources_.connection, window_, *surface_);
}

void X11OverlayPanel::compositorChanged() {
  if (!isOrderedFront_) return;
  dirtyWhole();
  paintDirty();
  if (!isShown_) return;
  updateShape();
  putWhole();
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
      // An event sent before the server handled the latest full put needs no repaint.
      const bool isNew = static_cast<std::int32_t>(event.full_sequence - wholePut_) >= 0;
      if (isShown_ && isNew) put({expose.x, expose.y, expose.width, expose.height});
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

/// Only windows of this program may cover the panel: they know where it is.
bool X11OverlayPanel::mayBeCoveredBy(xcb_window_t window) const {
  const xcb_setup_t& setup = *xcb_get_setup(resources_.connection.get());
  return (window & ~setup.resource_id_mask) == setup.resource_id_base;
}

// The server reports a window with alpha as unobscured at all times, so VisibilityNotify is of no use.
void X11OverlayPanel::raiseAgain() {
  if (!isMapped_ || raisesLeft_-- <= 0) return;
  raise();
  resources_.connection.flush();
}

}  // namespace rondora::x11
