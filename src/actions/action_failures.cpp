#include "actions/action_failures.h"

#include <utility>

namespace rondora {
namespace {

/// In English. Leaves addresses out, which may hold secrets.
std::string reason(const ActionFailure& failure) {
  switch (failure.problem) {
    case ActionProblem::notInstalled:
      return "not installed: " + failure.detail;
    case ActionProblem::noDefault:
      return "no application opens " + failure.detail;
    case ActionProblem::cannotStart:
      return "cannot start " + failure.detail;
    case ActionProblem::endedAtOnce:
      return failure.detail + " ended with an error before it showed a window";
    case ActionProblem::notAnAddress:
      return "not a complete address";
    case ActionProblem::noHandler:
      return "nothing opens the address";
    case ActionProblem::noSystemAction:
      return "the desktop lacks this system action";
    case ActionProblem::keysRefused:
      return "programs may not press keys";
    case ActionProblem::noSuchKey:
      return "the keyboard lacks a key of the keystroke";
    case ActionProblem::targetNotInFront:
      return "the application was not in front in time";
  }
  return {};
}

}  // namespace

void ActionFailures::failed(Entry entry) {
  log_.error("action failed: item \"" + entry.item + "\" of menu \"" + entry.menu + "\": " + reason(entry.failure));
  worked(entry.action);
  entries_.insert(entries_.begin(), std::move(entry));
  if (entries_.size() > kMaxEntries) entries_.pop_back();
}

void ActionFailures::worked(const MenuAction& action) {
  std::erase_if(entries_, [&](const Entry& entry) { return entry.action == action; });
}

void ActionFailures::retain(const std::function<bool(const MenuAction&)>& exists) {
  std::erase_if(entries_, [&](const Entry& entry) { return !exists(entry.action); });
}

}  // namespace rondora
