#include <string_view>
#include <utility>

#include "platform/linux/x11/overlay/x11_overlay_panel.h"

namespace rondora::x11 {
namespace {

constexpr std::uint8_t kAlphaDepth = 32;

/// 0 when the screen has no visual with alpha.
xcb_visualid_t alphaVisual(const xcb_screen_t& screen) {
  for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0; xcb_depth_next(&depth)) {
    if (depth.data->depth != kAlphaDepth) continue;
    for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0; xcb_visualtype_next(&visual)) {
      if (visual.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR) return visual.data->visual_id;
    }
  }
  return 0;
}

}  // namespace

X11OverlayPanels::X11OverlayPanels(X11Connection& connection, X11InputGrab& inputGrab, PictureRasterizer& rasterizer)
    : compositor_(connection, "_NET_WM_CM"),
      screenReader_(connection, bestTransport(connection)),
      resources_{connection, inputGrab, rasterizer, compositor_, screenReader_} {
  const xcb_screen_t& screen = connection.screen();
  resources_.transport = screenReader_.transport();
  resources_.visual = alphaVisual(screen);
  resources_.hasAlpha = resources_.visual != 0;
  resources_.depth = resources_.hasAlpha ? kAlphaDepth : screen.root_depth;
  if (!resources_.hasAlpha) resources_.visual = screen.root_visual;
  resources_.colormap = xcb_generate_id(connection.get());
  xcb_create_colormap(connection.get(), XCB_COLORMAP_ALLOC_NONE, resources_.colormap, screen.root, resources_.visual);
  connection.internAtoms({"_NET_WM_NAME", "UTF8_STRING", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_NOTIFICATION",
                          "_GTK_FRAME_EXTENTS", "_COMPTON_SHADOW"});
}

X11OverlayPanels::~X11OverlayPanels() {
  xcb_free_colormap(resources_.connection.get(), resources_.colormap);
  resources_.connection.flush();
}

std::unique_ptr<OverlayPanel> X11OverlayPanels::makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                                          OverlayPanelSink& sink) {
  return std::make_unique<X11OverlayPanel>(resources_, style, frame, sink);
}

void X11OverlayPanels::prerender(Picture picture) {
  resources_.rasterizer.prerender(std::move(picture), resources_.connection.pixelsPerPoint());
}

}  // namespace rondora::x11
