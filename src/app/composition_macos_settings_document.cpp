#include <utility>

#include "app/composition_macos_settings.h"
#include "ui/appkit/windows/settings_in_finder.h"

namespace rondora {

std::unique_ptr<appkit::SettingsShell> makeSettingsShell(const ApplicationIcons& /*applicationIcons*/,
                                                         IconSources /*sources*/,
                                                         std::function<std::filesystem::path()> document) {
  return std::make_unique<appkit::SettingsInFinder>(std::move(document));
}

}  // namespace rondora
