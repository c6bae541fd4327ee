#include "ui/qt/windows/snippet_preview_popover.h"

#include "platform/qt/qt_text.h"
#include "platform/qt/qt_x11_access.h"

namespace rondora {

namespace {

/// More than fits into the preview; keeps a huge snippet from costing time.
constexpr qsizetype kLongestText = 2400;

}  // namespace

void QtSnippetPreviewPopover::show(std::string_view text, const Place& place) {
  const QString snippet = toQString(text.substr(0, 4 * kLongestText)).left(kLongestText).trimmed();
  if (snippet.isEmpty()) return hide();
  note_.setTexts(snippet, hint_ ? toQString(hint_()) : QString());
  note_.move(qtPosition(place({static_cast<double>(note_.width()), static_cast<double>(note_.height())})));
  note_.show();
  note_.raise();
}

}  // namespace rondora
