// The lower limit of an opening: server and compositor without a program's work. A passive grab on Control, Alt and N;
// the key moves a window with a painted background to the pointer, maps it and grabs the keyboard; Escape unmaps it.
// Both are a single write that waits for no reply.

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>

#include "base/owned.h"
#include "desktop/x_client.h"

namespace rondora::bench {
namespace {

// Pixels; as large as the ring of eight items.
constexpr std::uint16_t kSide = 320;
constexpr std::uint16_t kHole = 120;
constexpr std::uint32_t kTranslucentGrey = 0xC0303030;  // premultiplied
constexpr std::uint32_t kTransparent = 0;

xcb_visualid_t argbVisual(const xcb_screen_t& screen) {
  for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0; xcb_depth_next(&depth)) {
    if (depth.data->depth == 32) return xcb_depth_visuals_iterator(depth.data).data->visual_id;
  }
  return XCB_NONE;
}

class BareWindow {
 public:
  BareWindow()
      : connection_(xcb_connect(nullptr, nullptr)), screen_(*xcb_setup_roots_iterator(xcb_get_setup(get())).data) {
    makeWindow(paintBackground());
    grabHotkey();
    xcb_flush(get());
  }

  /// Until the connection breaks.
  void run() {
    while (const UniqueCPtr<xcb_generic_event_t, std::free> event{xcb_wait_for_event(get())}) {
      if ((event->response_type & 0x7F) != XCB_KEY_PRESS) continue;
      const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(*event);
      if (key.detail == live::key::n) show(key);
      if (key.detail == live::key::escape) hide();
      xcb_flush(get());
    }
  }

 private:
  xcb_connection_t* get() const { return connection_.get(); }

  xcb_pixmap_t paintBackground() {
    const xcb_pixmap_t pixmap = xcb_generate_id(get());
    xcb_create_pixmap(get(), 32, pixmap, screen_.root, kSide, kSide);
    const xcb_gcontext_t context = xcb_generate_id(get());
    xcb_create_gc(get(), context, pixmap, 0, nullptr);
    constexpr std::int16_t kFullCircle = 360 * 64;
    constexpr std::int16_t kInset = (kSide - kHole) / 2;
    const auto fill = [&](std::uint32_t color, const xcb_arc_t& arc) {
      xcb_change_gc(get(), context, XCB_GC_FOREGROUND, &color);
      xcb_poly_fill_arc(get(), pixmap, context, 1, &arc);
    };
    xcb_change_gc(get(), context, XCB_GC_FOREGROUND, &kTransparent);
    const xcb_rectangle_t all{0, 0, kSide, kSide};
    xcb_poly_fill_rectangle(get(), pixmap, context, 1, &all);
    fill(kTranslucentGrey, {0, 0, kSide, kSide, 0, kFullCircle});
    fill(kTransparent, {kInset, kInset, kHole, kHole, 0, kFullCircle});
    xcb_free_gc(get(), context);
    return pixmap;
  }

  void makeWindow(xcb_pixmap_t background) {
    const xcb_visualid_t visual = argbVisual(screen_);
    const xcb_colormap_t colors = xcb_generate_id(get());
    xcb_create_colormap(get(), XCB_COLORMAP_ALLOC_NONE, colors, screen_.root, visual);
    constexpr std::uint32_t kAttributes =
        XCB_CW_BACK_PIXMAP | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_COLORMAP;
    const std::uint32_t values[] = {background, 0, 1, colors};
    window_ = xcb_generate_id(get());
    xcb_create_window(get(), 32, window_, screen_.root, 0, 0, kSide, kSide, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual,
                      kAttributes, values);
  }

  void grabHotkey() {
    constexpr std::uint16_t kNumLock = XCB_MOD_MASK_2;
    for (const int locks : {0, +XCB_MOD_MASK_LOCK, +kNumLock, XCB_MOD_MASK_LOCK | kNumLock}) {
      const auto modifiers = static_cast<std::uint16_t>(XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | locks);
      xcb_grab_key(get(), 0, screen_.root, modifiers, live::key::n, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    }
  }

  void show(const xcb_key_press_event_t& key) {
    const std::uint32_t place[] = {static_cast<std::uint32_t>(key.root_x - kSide / 2),
                                   static_cast<std::uint32_t>(key.root_y - kSide / 2), XCB_STACK_MODE_ABOVE};
    xcb_configure_window(get(), window_, XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_STACK_MODE,
                         place);
    xcb_map_window(get(), window_);
    xcb_discard_reply(
        get(), xcb_grab_keyboard(get(), 0, screen_.root, key.time, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC).sequence);
  }

  void hide() {
    xcb_unmap_window(get(), window_);
    xcb_ungrab_keyboard(get(), XCB_CURRENT_TIME);
  }

  UniqueCPtr<xcb_connection_t, xcb_disconnect> connection_;
  const xcb_screen_t& screen_;
  xcb_window_t window_ = XCB_NONE;
};

}  // namespace
}  // namespace rondora::bench

int main() { rondora::bench::BareWindow().run(); }
