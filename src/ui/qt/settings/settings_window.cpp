#include "ui/qt/settings/settings_window.h"

#include <QPixmapCache>
#include <QTimer>
#include <utility>

#include "ui/qt/settings/settings_view.h"

namespace rondora {

QtSettingsWindow::QtSettingsWindow(WindowContents contents, MakeSettingsDrawing makeDrawing)
    : contents_(std::move(contents)), makeDrawing_(std::move(makeDrawing)) {}

QtSettingsWindow::~QtSettingsWindow() = default;

void QtSettingsWindow::show() {
  if (!view_) {
    view_ = std::make_unique<SettingsView>(contents_, makeDrawing_());
    // On a later turn: the view is still closing.
    view_->onClosed = [this] {
      QTimer::singleShot(0, view_.get(), [this] {
        if (!view_->isVisible()) release();
      });
    };
  }
  view_->present();
}

void QtSettingsWindow::release() {
  view_.reset();
  QPixmapCache::clear();
  if (contents_.released) contents_.released();
}

void QtSettingsWindow::close() {
  if (!view_) return;
  if (QWidget* field = view_->focusWidget()) field->clearFocus();
  view_->onClosed = nullptr;
  view_->close();
  view_.reset();
}

}  // namespace rondora
