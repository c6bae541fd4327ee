#pragma once

#include "localization/localization_store.h"
#include "platform/desktop_kind.h"
#include "platform/windows.h"

namespace rondora {

/// Whether the user can see the status item, and what to do where not.
SessionFinding statusItemFinding(bool isShown, DesktopKind desktop, const LocalizationStore& localization);

}  // namespace rondora
