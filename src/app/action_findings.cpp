#include "app/action_findings.h"

#include <string>
#include <utility>

#include "base/unicode.h"

namespace rondora {
namespace {

/// Characters of a title or an address from the document, which may have any length.
constexpr std::size_t kMaxCharacters = 80;

struct Texts {
  StringKey reason;
  StringKey remedy;
  /// The remedy changes the document.
  bool needsRestart = true;
};

Texts textsOf(ActionProblem problem) {
  switch (problem) {
    case ActionProblem::notInstalled:
      return {StringKey::actionNotInstalled, StringKey::actionNotInstalledRemedy};
    case ActionProblem::noDefault:
      return {StringKey::actionNoDefault, StringKey::actionNoDefaultRemedy, false};
    case ActionProblem::cannotStart:
      return {StringKey::actionCannotStart, StringKey::actionCannotStartRemedy};
    case ActionProblem::endedAtOnce:
      return {StringKey::actionEndedAtOnce, StringKey::actionEndedAtOnceRemedy, false};
    case ActionProblem::notAnAddress:
      return {StringKey::actionNotAnAddress, StringKey::actionNotAnAddressRemedy};
    case ActionProblem::noHandler:
      return {StringKey::actionNoHandler, StringKey::actionNoHandlerRemedy};
    case ActionProblem::noSystemAction:
      return {StringKey::actionNoSystemAction, StringKey::actionNoSystemActionRemedy};
    case ActionProblem::keysRefused:
      return {StringKey::sessionNoKeystrokes, StringKey::sessionNoKeystrokesRemedy, false};
    case ActionProblem::noSuchKey:
      return {StringKey::actionNoSuchKey, StringKey::actionNoSuchKeyRemedy};
    case ActionProblem::targetNotInFront:
      break;
  }
  return {StringKey::actionTargetLost, StringKey::actionTargetLostRemedy, false};
}

}  // namespace

SessionFindings actionFindings(const ActionFailures& failures, const LocalizationStore& localization) {
  SessionFindings result;
  for (const ActionFailures::Entry& entry : failures.entries()) {
    const Texts texts = textsOf(entry.failure.problem);
    const std::string reason = localization.text(texts.reason, shortened(entry.failure.detail, kMaxCharacters));
    std::string remedy(localization.text(texts.remedy));
    if (texts.needsRestart) remedy.append(" ").append(localization.text(StringKey::actionRestart));
    result.push_back(
        {.works = false,
         .statement = localization.text(StringKey::actionFailed, shortened(entry.item, kMaxCharacters), reason),
         .remedy = std::move(remedy)});
  }
  return result;
}

}  // namespace rondora
