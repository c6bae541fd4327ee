#include "ui/appkit/popover/appkit_snippet_preview_popover.h"

#include "pie/controller/pie_view.h"
#include "platform/macos/events/screen_points.h"
#include "ui/appkit/overlay/overlay_window.h"
#include "ui/appkit/popover/snippet_note_view.h"

namespace rondora::appkit {
namespace {

/// As the ring's panel, and above it.
constexpr OverlayPanelStyle kStyle = [] {
  OverlayPanelStyle style = PieView::kPanelStyle;
  ++style.windowLevel;
  style.canBecomeKey = false;
  style.hasShadow = true;
  return style;
}();

}  // namespace

AppKitSnippetPreviewPopover::AppKitSnippetPreviewPopover()
    : window_([[RondoraOverlayWindow alloc] initWithStyle:kStyle contentRect:{{0, 0}, {1, 1}}]),
      view_([[RondoraSnippetNoteView alloc] initWithFrame:{{0, 0}, {1, 1}}]) {
  window_.contentView = view_;
  window_.ignoresMouseEvents = YES;
}

AppKitSnippetPreviewPopover::~AppKitSnippetPreviewPopover() { [window_ orderOut:nil]; }

void AppKitSnippetPreviewPopover::show(const SnippetPreview& preview, const Place& place) {
  const NSSize needed = [view_ setPreview:preview];
  const Size size{needed.width, needed.height};
  [window_ setFrame:macos::screenRect({place(size), size}) display:YES];
  // The system derives the shadow from what is drawn.
  [window_ displayIfNeeded];
  [window_ invalidateShadow];
  [window_ orderFrontRegardless];
}

void AppKitSnippetPreviewPopover::hide() { [window_ orderOut:nil]; }

}  // namespace rondora::appkit
