#include "app/command_findings.h"

#include "app/failure_finding.h"

namespace rondora {
namespace {

FailureTexts textsOf(SubActionProblem problem) {
  switch (problem) {
    case SubActionProblem::notFound:
      return {StringKey::commandNotFound, StringKey::commandNotFoundRemedy};
    case SubActionProblem::noAnswer:
      return {StringKey::commandNoAnswer, StringKey::commandNoAnswerRemedy};
    case SubActionProblem::disabled:
      return {StringKey::commandDisabled, StringKey::commandDisabledRemedy};
    case SubActionProblem::noWindow:
      return {StringKey::commandNoWindow, StringKey::commandNoWindowRemedy};
    case SubActionProblem::windowKept:
      return {StringKey::commandWindowKept, StringKey::commandWindowKeptRemedy};
    case SubActionProblem::refused:
      break;
  }
  return {StringKey::commandRefused, StringKey::commandRefusedRemedy};
}

}  // namespace

SessionFindings commandFindings(const SubActionFailures& failures, const LocalizationStore& localization) {
  SessionFindings result;
  for (const SubActionFailures::Entry& entry : failures.entries()) {
    result.push_back(
        failureFinding(entry.command.title, textsOf(entry.problem), entry.application.localizedName, localization));
  }
  return result;
}

}  // namespace rondora
