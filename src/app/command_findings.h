#pragma once

#include "commands/sub_action_failures.h"
#include "localization/localization_store.h"
#include "settings/findings_watch.h"

namespace rondora {

/// The failed commands in the user's language, newest first.
SessionFindings commandFindings(const SubActionFailures& failures, const LocalizationStore& localization);

}  // namespace rondora
