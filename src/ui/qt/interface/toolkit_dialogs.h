#pragma once

#include "model/app_language.h"

namespace rondora {

/// Gives the toolkit's own dialogs and text menus the language, where its translations are installed, and makes visible
/// what the desktop's colour scheme hides: hints in empty fields, what is switched off, and outlines on a black window.
/// Cheap when nothing changed; main thread.
void prepareToolkitDialogs(AppLanguage language);

/// Closes open menus and lists. Main thread.
void closeToolkitPopups();

}  // namespace rondora
