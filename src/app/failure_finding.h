#pragma once

#include <string>
#include <string_view>

#include "localization/localization_store.h"
#include "settings/findings_watch.h"

namespace rondora {

/// Why something that the user chose did not work, and what helps.
struct FailureTexts {
  StringKey reason;
  StringKey remedy;
};

/// The finding for an item of a ring. `item` and `detail`, which the reason may name, come from the document or from
/// other programs and may have any length.
SessionFinding failureFinding(std::string_view item, const FailureTexts& texts, std::string_view detail,
                              const LocalizationStore& localization);

}  // namespace rondora
