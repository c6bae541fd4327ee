#pragma once

#include "model/app_language.h"

namespace rondora::appkit {

/// Has the system speak this language in its own panels and menus of the program, from the program's next start on.
void useInterfaceLanguage(AppLanguage language);

}  // namespace rondora::appkit
