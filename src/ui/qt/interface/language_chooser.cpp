#include "ui/qt/interface/language_chooser.h"

#include <QKeyEvent>
#include <QTimer>
#include <QWheelEvent>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/interface/interface_language.h"

namespace rondora {

LanguageChooser::LanguageChooser(std::function<void(AppLanguage)> choose) {
  // The system font leaves every script to font fallback; with any other font the toolkit warns about the scripts it
  // lacks.
  setFont(interfaceFont(AppLanguage::english));
  for (const AppLanguage language : kAppLanguages) {
    addItem(toQString(nativeName(language)));
    setItemData(count() - 1, interfaceFont(language), Qt::FontRole);
  }
  QObject::connect(this, &QComboBox::activated, this, [choose = std::move(choose)](int index) {
    if (index >= 0) choose(kAppLanguages.at(static_cast<std::size_t>(index)));
  });
}

void LanguageChooser::hidePopup() {
  hasJustClosed_ = true;
  QTimer::singleShot(0, this, [this] { hasJustClosed_ = false; });
  QComboBox::hidePopup();
}

// The key that closes the open list also arrives here: Return would press the window's default button, Escape would
// close the window.
void LanguageChooser::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return;
  if (event->key() == Qt::Key_Escape && hasJustClosed_) return;
  QComboBox::keyPressEvent(event);
}

void LanguageChooser::wheelEvent(QWheelEvent* event) { event->ignore(); }

void LanguageChooser::setLanguage(AppLanguage language) { setCurrentIndex(static_cast<int>(language)); }

}  // namespace rondora
