#include "app/action_findings.h"

#include "app/failure_finding.h"

namespace rondora {
namespace {

FailureTexts textsOf(ActionProblem problem) {
  switch (problem) {
    case ActionProblem::notInstalled:
      return {StringKey::actionNotInstalled, StringKey::actionNotInstalledRemedy};
    case ActionProblem::noDefault:
      return {StringKey::actionNoDefault, StringKey::actionNoDefaultRemedy};
    case ActionProblem::cannotStart:
      return {StringKey::actionCannotStart, StringKey::actionCannotStartRemedy};
    case ActionProblem::endedAtOnce:
      return {StringKey::actionEndedAtOnce, StringKey::actionEndedAtOnceRemedy};
    case ActionProblem::notAnAddress:
      return {StringKey::actionNotAnAddress, StringKey::actionNotAnAddressRemedy};
    case ActionProblem::noHandler:
      return {StringKey::actionNoHandler, StringKey::actionNoHandlerRemedy};
    case ActionProblem::noSystemAction:
      return {StringKey::actionNoSystemAction, StringKey::actionNoSystemActionRemedy};
    case ActionProblem::keysRefused:
      return {StringKey::sessionNoKeystrokes, StringKey::sessionNoKeystrokesRemedy};
    case ActionProblem::noSuchKey:
      return {StringKey::actionNoSuchKey, StringKey::actionNoSuchKeyRemedy};
    case ActionProblem::targetNotInFront:
      break;
  }
  return {StringKey::actionTargetLost, StringKey::actionTargetLostRemedy};
}

}  // namespace

SessionFindings actionFindings(const ActionFailures& failures, const LocalizationStore& localization) {
  SessionFindings result;
  for (const ActionFailures::Entry& entry : failures.entries()) {
    result.push_back(failureFinding(entry.item, textsOf(entry.failure.problem), entry.failure.detail, localization));
  }
  return result;
}

}  // namespace rondora
