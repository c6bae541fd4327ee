#include "ui/qt/settings/focus_text.h"

#include <QEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include "ui/qt/interface/interface_language.h"

namespace rondora {

FocusText::FocusText(const QString& text) : QLabel(text) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setAlignment(leadingAlignment());
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  // The toolkit's own menu is only in English.
  setContextMenuPolicy(Qt::NoContextMenu);
  setFocusPolicy(Qt::StrongFocus);
}

void FocusText::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LayoutDirectionChange) setAlignment(leadingAlignment());
  QLabel::changeEvent(event);
}

// The toolkit shows the focus of a text only as a caret.
void FocusText::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!hasFocus()) return;
  QStyleOptionFocusRect frame;
  frame.initFrom(this);
  frame.backgroundColor = palette().color(QPalette::Window);
  QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, frame);
}

}  // namespace rondora
