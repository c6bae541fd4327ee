#include "app/failure_finding.h"

#include <cstddef>
#include <utility>

#include "base/unicode.h"

namespace rondora {

SessionFinding failureFinding(std::string_view item, const FailureTexts& texts, std::string_view detail,
                              const LocalizationStore& localization) {
  constexpr std::size_t kMaxCharacters = 80;
  const std::string reason = localization.text(texts.reason, shortened(detail, kMaxCharacters));
  std::string remedy(localization.text(texts.remedy));
  if (texts.needsRestart) remedy.append(" ").append(localization.text(StringKey::actionRestart));
  return {.works = false,
          .statement = localization.text(StringKey::actionFailed, shortened(item, kMaxCharacters), reason),
          .remedy = std::move(remedy)};
}

}  // namespace rondora
