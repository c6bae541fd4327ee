#include <utility>

#include "app/composition_macos_settings.h"
#include "ui/appkit/settings/qt_settings.h"

namespace rondora {

std::unique_ptr<appkit::SettingsShell> makeSettingsShell(const ApplicationIcons& applicationIcons, IconSources sources,
                                                         std::function<std::filesystem::path()> /*document*/) {
  return std::make_unique<appkit::QtSettings>(applicationIcons, std::move(sources));
}

}  // namespace rondora
