#include "ui/qt/windows/snippet_preview_popover.h"

#include "platform/qt/qt_x11_access.h"

namespace rondora {

void QtSnippetPreviewPopover::show(const SnippetPreview& preview, const Place& place) {
  note_.setPreview(preview);
  note_.move(qtPosition(place({static_cast<double>(note_.width()), static_cast<double>(note_.height())})));
  note_.show();
  note_.raise();
}

}  // namespace rondora
