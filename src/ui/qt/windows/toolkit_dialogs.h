#pragma once

#include "model/app_language.h"

namespace rondora {

/// Gives the toolkit's own dialogs and text menus the language, where its translations are installed, and makes the
/// hints in empty fields legible where the desktop's colour scheme leaves them out. Cheap when nothing changed; main
/// thread.
void prepareToolkitDialogs(AppLanguage language);

}  // namespace rondora
