#include "ui/appkit/settings/qt_settings.h"

#include <AppKit/AppKit.h>

#include <QApplication>
#include <utility>

#include "ui/appkit/painting/core_graphics_rasterizer.h"
#include "ui/appkit/settings/settings_pictures.h"
#include "ui/appkit/windows/previous_application.h"
#include "ui/qt/interface/interface_language.h"
#include "ui/qt/interface/toolkit_dialogs.h"
#include "ui/qt/settings/settings_window.h"

namespace rondora::appkit {
namespace {

/// The toolkit's window, with the interface's direction and font.
class SettingsInLanguage final : public SettingsWindow {
 public:
  SettingsInLanguage(const WindowContents& contents, MakeSettingsDrawing makeDrawing)
      : language_(contents.language),
        changes_(contents.onTextsChanged([this] { rondora::useInterfaceLanguage(language_()); })),
        window_(returningWhenClosed(contents), std::move(makeDrawing)) {}

  void show() override {
    previous_.remember();
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
    rondora::useInterfaceLanguage(language_());
    window_.show();
  }
  void close() override { window_.close(); }

 private:
  WindowContents returningWhenClosed(WindowContents contents) {
    contents.released = [this, released = std::move(contents.released)] {
      previous_.returnFrom(nil);
      if (released) released();
    };
    return contents;
  }

  PreviousApplication previous_;
  std::function<AppLanguage()> language_;
  Subscription changes_;
  QtSettingsWindow window_;
};

}  // namespace

QtSettings::QtSettings(const ApplicationIcons& applicationIcons, IconSources sources)
    : applicationIcons_(applicationIcons), sources_(std::move(sources)) {}

QtSettings::~QtSettings() = default;

std::unique_ptr<SettingsWindow> QtSettings::makeWindow(WindowContents contents) {
  startToolkit();
  return std::make_unique<SettingsInLanguage>(contents, [this] { return makeDrawing(); });
}

SettingsDrawing QtSettings::makeDrawing() const {
  auto rasterizer = std::make_unique<CoreGraphicsRasterizer>(applicationIcons_, sources_);
  const auto images = std::make_shared<IconImages>(applicationIcons_, sources_);
  // The window releases the rasterizer last.
  auto forgetting = std::make_shared<Subscription>(
      applicationsChanged_.subscribe([weak = std::weak_ptr(images), &painted = *rasterizer] {
        if (const auto own = weak.lock()) own->forgetApplications();
        painted.forgetApplications();
      }));
  return {std::move(rasterizer), [images, forgetting = std::move(forgetting)](const IconCommand& icon, int side) {
            return toQImage(images->image(icon, side));
          }};
}

void QtSettings::closePopups() {
  if (toolkit_) closeToolkitPopups();
}

// As a part of a program with an application object, delegate and menus of its own.
void QtSettings::startToolkit() {
  if (toolkit_) return;
  static char name[] = "Rondora";
  static char* arguments[] = {name, nullptr};
  static int count = 1;
  QCoreApplication::setAttribute(Qt::AA_PluginApplication);
  toolkit_ = std::make_unique<QApplication>(count, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
}

}  // namespace rondora::appkit
