#include "ui/qt/windows/qt_windows.h"

#include <QApplication>
#include <utility>

#include "ui/qt/settings/settings_window.h"
#include "ui/qt/windows/onboarding_window.h"
#include "ui/qt/windows/snippet_preview_popover.h"

namespace rondora {

QtWindows::QtWindows(Contents contents, IconDrawing drawing)
    : contents_(std::move(contents)), drawing_(std::move(drawing)) {}

std::unique_ptr<SettingsWindow> QtWindows::makeSettingsWindow() {
  return std::make_unique<QtSettingsWindow>(contents_(), drawing_);
}

std::unique_ptr<OnboardingWindow> QtWindows::makeOnboardingWindow() {
  return std::make_unique<QtOnboardingWindow>(contents_());
}

std::unique_ptr<SnippetPreviewPopover> QtWindows::makeSnippetPreviewPopover() {
  return std::make_unique<QtSnippetPreviewPopover>();
}

void QtWindows::closePopups() {
  while (QWidget* popup = QApplication::activePopupWidget()) {
    if (!popup->close()) return;
  }
}

}  // namespace rondora
