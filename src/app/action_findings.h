#pragma once

#include "actions/action_failures.h"
#include "localization/localization_store.h"
#include "settings/findings_watch.h"

namespace rondora {

/// The failures in the user's language, newest first.
SessionFindings actionFindings(const ActionFailures& failures, const LocalizationStore& localization);

}  // namespace rondora
