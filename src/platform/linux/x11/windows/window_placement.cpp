#include "platform/linux/x11/windows/window_placement.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <vector>

#include "platform/linux/x11/windows/window_activation.h"
#include "platform/linux/x11/windows/window_manager.h"
#include "platform/linux/x11/windows/window_properties.h"

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kSourcePager = 2;

/// In which the window manager determines the window's place.
constexpr std::array<std::string_view, 4> kHeldStates = {"_NET_WM_STATE_FULLSCREEN", "_NET_WM_STATE_MAXIMIZED_VERT",
                                                         "_NET_WM_STATE_MAXIMIZED_HORZ", "_NET_WM_STATE_SHADED"};

// _NET_MOVERESIZE_WINDOW: the gravity, the fields present, the source.
constexpr std::uint32_t kNorthWest = 1;
constexpr std::uint32_t kPosition = 3U << 8;
constexpr std::uint32_t kSize = 3U << 10;
constexpr std::uint32_t kFromPager = kSourcePager << 12;

/// One axis of WM_NORMAL_HINTS; 0 where it sets no limit.
struct SizeLimits {
  int minimum = 0;
  int maximum = 0;
  int increment = 0;

  /// Whether the limits keep a side of `current` pixels from becoming `wanted`.
  bool explain(int current, int wanted) const {
    const bool isBelow = minimum > 0 && wanted < minimum && current == minimum;
    const bool isAbove = maximum > 0 && wanted > maximum && current == maximum;
    return current == wanted || isBelow || isAbove || std::abs(current - wanted) < increment;
  }
};

/// Places and flags of the values in WM_NORMAL_HINTS (ICCCM 4.1.2.3).
enum Hint : std::size_t { flags = 0, minimumWidth = 5, maximumWidth = 7, incrementWidth = 9, hintCount = 18 };
constexpr std::uint32_t kHasMinimum = 1U << 4;
constexpr std::uint32_t kHasMaximum = 1U << 5;
constexpr std::uint32_t kHasIncrement = 1U << 6;
constexpr std::uint32_t kHasAspect = 1U << 7;

/// `axis` is 0 for the width, 1 for the height.
SizeLimits limitsOf(const std::vector<std::uint32_t>& hints, std::size_t axis) {
  const auto value = [&](std::uint32_t flag, Hint place) {
    return (hints[flags] & flag) != 0 ? static_cast<int>(hints[place + axis]) : 0;
  };
  return {value(kHasMinimum, minimumWidth), value(kHasMaximum, maximumWidth), value(kHasIncrement, incrementWidth)};
}

}  // namespace

bool WindowPlacement::hasAtom(std::string_view property, std::string_view atom) const {
  const auto atoms = connection_.property32(window_, connection_.atom(property), XCB_ATOM_ATOM);
  return std::ranges::find(atoms, connection_.atom(atom)) != atoms.end();
}

bool WindowPlacement::isHeld() const {
  return std::ranges::any_of(kHeldStates, [this](std::string_view state) { return hasAtom("_NET_WM_STATE", state); });
}

// metacity 3.46 states no actions for a window that never lacked one.
bool WindowPlacement::isAllowed(std::string_view action) const {
  const xcb_atom_t property = connection_.atom("_NET_WM_ALLOWED_ACTIONS");
  return hasAtom("_NET_WM_ALLOWED_ACTIONS", action) || !connection_.property(window_, property, XCB_ATOM_ATOM);
}

bool WindowPlacement::allows(std::string_view supported, std::string_view action) const {
  return managerSupports(connection_, supported) && isAllowed(action);
}

// A window manager without such statements is a tiling one: i3 4.22 supports the request but follows it for floating
// windows only, which it marks. The actions of a held window do not say what it allows later.
bool WindowPlacement::isPlaceable(std::string_view action) const {
  if (!managerSupports(connection_, "_NET_MOVERESIZE_WINDOW")) return false;
  if (!managerSupports(connection_, "_NET_WM_ALLOWED_ACTIONS")) {
    return !connection_.property32(window_, connection_.atom("I3_FLOATING_WINDOW"), XCB_ATOM_CARDINAL).empty();
  }
  return isAllowed(action) || isHeld();
}

void WindowPlacement::changeState(bool adds, std::string_view first, std::string_view second) const {
  const xcb_atom_t secondAtom = second.empty() ? xcb_atom_t{XCB_ATOM_NONE} : connection_.atom(second);
  connection_.sendToRoot(window_, connection_.atom("_NET_WM_STATE"),
                         {adds ? 1U : 0U, connection_.atom(first), secondAtom, kSourcePager, 0});
}

bool WindowPlacement::makeOrdinary() const {
  if (!isHeld()) return true;
  const bool losesShadow = fillsScreen() && drawsShadow();
  if (losesShadow) awaitShadow(false);
  changeState(false, "_NET_WM_STATE_FULLSCREEN");
  changeState(false, "_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ");
  changeState(false, "_NET_WM_STATE_SHADED");
  if (!windowManager_.until([this] { return !isHeld(); })) return false;
  if (losesShadow) awaitShadow(true);
  return true;
}

bool WindowPlacement::fillsScreen() const {
  return isFullScreen() || (hasAtom("_NET_WM_STATE", "_NET_WM_STATE_MAXIMIZED_VERT") &&
                            hasAtom("_NET_WM_STATE", "_NET_WM_STATE_MAXIMIZED_HORZ"));
}

bool WindowPlacement::drawsShadow() const {
  return !connection_.property32(window_, connection_.atom("_GTK_FRAME_EXTENTS"), XCB_ATOM_CARDINAL).empty();
}

/// The application removes its shadow after it was maximised, and draws it again after it was restored: places
/// computed in between would be off by the shadow.
void WindowPlacement::awaitShadow(bool isThere) const {
  windowManager_.until([&] {
    const auto frame = windowFrame(connection_, window_);
    return !frame || (frame->shadow != FrameExtents{}) == isThere;
  });
}

void WindowPlacement::requestGeometry(std::uint32_t fields, const PixelRect& values) const {
  const auto word = [](int value) { return static_cast<std::uint32_t>(value); };
  connection_.sendToRoot(
      window_, connection_.atom("_NET_MOVERESIZE_WINDOW"),
      {kNorthWest | fields | kFromPager, word(values.x), word(values.y), word(values.width), word(values.height)});
}

bool WindowPlacement::awaitChange(const WindowFrame& before, const std::function<bool()>& isLimited) const {
  return windowManager_.until([&] {
    const auto now = windowFrame(connection_, window_);
    return now && (*now != before || isLimited());
  });
}

bool WindowPlacement::moveTo(int x, int y) const {
  if (!canMove()) return false;
  const auto held = isHeld() ? windowFrame(connection_, window_) : std::nullopt;
  if (!makeOrdinary()) return false;
  // The place was computed for the size that the window had.
  if (held && !resizeTo(held->visible().width, held->visible().height)) return false;
  const auto before = windowFrame(connection_, window_);
  if (!before) return false;
  const PixelRect visible = before->visible();
  if (visible.x == x && visible.y == y) return true;
  requestGeometry(kPosition, {x - before->shadow.left, y - before->shadow.top, 0, 0});
  return awaitChange(*before, [&] { return !fitsOnRoot({x, y, visible.width, visible.height}); });
}

// metacity 3.46 decorates a window again only after it has answered that the window left the full screen.
bool WindowPlacement::resizeTo(int width, int height) const {
  if (!canResize() || !makeOrdinary()) return false;
  const auto before = windowFrame(connection_, window_);
  if (!before || !resizeFrom(*before, width, height)) return false;
  const auto now = windowFrame(connection_, window_);
  const bool hasOtherBorders = now && (now->decoration != before->decoration || now->shadow != before->shadow);
  return !hasOtherBorders || resizeFrom(*now, width, height);
}

bool WindowPlacement::resizeFrom(const WindowFrame& before, int width, int height) const {
  const PixelRect wanted{0, 0, width - before.decoration.horizontal() + before.shadow.horizontal(),
                         height - before.decoration.vertical() + before.shadow.vertical()};
  if (before.client.width == wanted.width && before.client.height == wanted.height) return true;
  requestGeometry(kSize, wanted);
  return awaitChange(before, [&] { return limitsSize(before.client, wanted); });
}

/// Whether the application's own limits keep the client from that size.
bool WindowPlacement::limitsSize(const PixelRect& client, const PixelRect& wanted) const {
  const auto hints = connection_.property32(window_, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS);
  if (hints.size() < hintCount) return false;
  return (hints[flags] & kHasAspect) != 0 || (limitsOf(hints, 0).explain(client.width, wanted.width) &&
                                              limitsOf(hints, 1).explain(client.height, wanted.height));
}

/// Window managers keep windows on the screen.
bool WindowPlacement::fitsOnRoot(const PixelRect& frame) const {
  const auto root = windowFrame(connection_, connection_.root());
  return root && intersection(frame, root->client) == frame;
}

bool WindowPlacement::setFullScreen(bool isFullScreen) const {
  if (!canFullScreen()) return false;
  changeState(isFullScreen, "_NET_WM_STATE_FULLSCREEN");
  return windowManager_.until([&] { return this->isFullScreen() == isFullScreen; });
}

bool WindowPlacement::minimize() const {
  if (!canMinimize() || !iconifyWindows(connection_, {&window_, 1})) return false;
  return windowManager_.until([&] {
    const auto info = readWindowProperties(connection_, window_, requestWindowProperties(connection_, window_));
    return info && info->isIconified;
  });
}

}  // namespace rondora::x11
