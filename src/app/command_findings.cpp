#include "app/command_findings.h"

#include <cstddef>
#include <string>

#include "base/unicode.h"

namespace rondora {
namespace {

/// Characters of a title from the document or a name from another program, which may have any length.
constexpr std::size_t kMaxCharacters = 80;

struct Texts {
  StringKey reason;
  StringKey remedy;
  /// The remedy changes the document.
  bool needsRestart = false;
};

Texts textsOf(SubActionProblem problem) {
  switch (problem) {
    case SubActionProblem::notFound:
      return {StringKey::commandNotFound, StringKey::commandNotFoundRemedy, true};
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
    const Texts texts = textsOf(entry.problem);
    const std::string reason =
        localization.text(texts.reason, shortened(entry.application.localizedName, kMaxCharacters));
    std::string remedy(localization.text(texts.remedy));
    if (texts.needsRestart) remedy.append(" ").append(localization.text(StringKey::actionRestart));
    result.push_back({.works = false,
                      .statement = localization.text(StringKey::actionFailed,
                                                     shortened(entry.command.title, kMaxCharacters), reason),
                      .remedy = std::move(remedy)});
  }
  return result;
}

}  // namespace rondora
