#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "platform/application_icons.h"
#include "ui/appkit/windows/settings_shell.h"
#include "ui/painting/icon_sources.h"

namespace rondora {

/// Defined for each way to build the program: the settings' window, or the document in the Finder.
std::unique_ptr<appkit::SettingsShell> makeSettingsShell(const ApplicationIcons& applicationIcons, IconSources sources,
                                                         std::function<std::filesystem::path()> document);

}  // namespace rondora
