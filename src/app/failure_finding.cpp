#include "app/failure_finding.h"

#include <cstddef>

#include "base/unicode.h"

namespace rondora {

SessionFinding failureFinding(std::string_view item, const FailureTexts& texts, std::string_view detail,
                              const LocalizationStore& localization) {
  constexpr std::size_t kMaxCharacters = 80;
  const std::string reason = localization.text(texts.reason, shortened(detail, kMaxCharacters));
  return {.works = false,
          .statement = localization.text(StringKey::actionFailed, shortened(item, kMaxCharacters), reason),
          .remedy = std::string(localization.text(texts.remedy))};
}

}  // namespace rondora
