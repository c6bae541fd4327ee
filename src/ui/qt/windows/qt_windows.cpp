#include "ui/qt/windows/qt_windows.h"

#include <QApplication>
#include <utility>

#include "ui/qt/windows/onboarding_window.h"
#include "ui/qt/windows/settings_window.h"
#include "ui/qt/windows/snippet_preview_popover.h"

namespace rondora {

QtWindows::QtWindows(Contents contents) : contents_(std::move(contents)) {}

std::unique_ptr<SettingsWindow> QtWindows::makeSettingsWindow() {
  return std::make_unique<QtSettingsWindow>(contents_());
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
