#include "ui/qt/windows/qt_windows.h"

#include <utility>

#include "ui/qt/interface/toolkit_dialogs.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"
#include "ui/qt/settings/settings_window.h"
#include "ui/qt/windows/onboarding_window.h"
#include "ui/qt/windows/snippet_preview_popover.h"

namespace rondora {
namespace {

SettingsDrawing makeDrawing(const IconDrawing& drawing) {
  const ApplicationIcons& applications = drawing.applications();
  return {std::make_unique<QtPictureRasterizer>(applications, drawing.sources),
          [images = std::make_shared<IconImages>(applications, drawing.sources)](const IconCommand& icon, int side) {
            return images->image(icon, side);
          }};
}

}  // namespace

QtWindows::QtWindows(Contents contents, IconDrawing drawing)
    : contents_(std::move(contents)), drawing_(std::move(drawing)) {}

std::unique_ptr<SettingsWindow> QtWindows::makeSettingsWindow() {
  return std::make_unique<QtSettingsWindow>(contents_(), [this] { return makeDrawing(drawing_); });
}

std::unique_ptr<OnboardingWindow> QtWindows::makeOnboardingWindow() {
  return std::make_unique<QtOnboardingWindow>(contents_());
}

std::unique_ptr<SnippetPreviewPopover> QtWindows::makeSnippetPreviewPopover() {
  return std::make_unique<QtSnippetPreviewPopover>();
}

void QtWindows::closePopups() { closeToolkitPopups(); }

}  // namespace rondora
