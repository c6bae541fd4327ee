#include "actions/app_launcher.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "base/file_url.h"
#include "model/first_run_items.h"

namespace rondora {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool isInScheme(char c) { return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.'; }

/// Begins with a scheme (RFC 3986, 3.1) and holds neither blanks nor control characters.
bool isAddress(std::string_view text) {
  const auto colon = text.find(':');
  if (colon == text.npos || colon == 0 || !isLetter(text.front())) return false;
  const std::string_view scheme = text.substr(0, colon);
  return std::all_of(scheme.begin(), scheme.end(), isInScheme) &&
         std::none_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) <= ' '; });
}

/// The first-run document names an application of another system by its identifier, which tells the user little.
std::string readable(std::string_view bundleIdentifier) {
  const auto found = std::find_if(kFirstRunItems.begin(), kFirstRunItems.end(),
                                  [&](const FirstRunItem& item) { return item.bundleIdentifier == bundleIdentifier; });
  return std::string(found == kFirstRunItems.end() ? bundleIdentifier : found->title);
}

}  // namespace

AppLauncher::AppLauncher(Workspace& workspace, Pasteboard& pasteboard, Focus focus, KeystrokeSender& keystrokeSender,
                         const Clock& clock, Log& log)
    : workspace_(workspace),
      pasteboard_(pasteboard),
      focus_(std::move(focus)),
      keystrokeSender_(keystrokeSender),
      systemActionRunner_(workspace),
      pendingLaunches_(workspace, clock),
      log_(log) {}

void AppLauncher::execute(const PieMenuItem& item, std::optional<std::int32_t> targetPID, const ActionEnded& ended) {
  const auto end = [&ended](const std::optional<ActionFailure>& failure) {
    if (ended) ended(failure);
  };
  const Overloaded run{
      [](const Unassigned&) {},
      [&](const LaunchApp& action) { end(launch(action.bundleIdentifier)); },
      [&](const OpenURL& action) { end(openUrl(action.url)); },
      [&](const Keystroke& action) { keystrokeSender_.perform(action.keyCode, action.modifiers, targetPID, ended); },
      [&](const SystemShortcut& action) { systemActionRunner_.run(action.kind, ended); },
      [&](const Snippet& action) { copySnippet(action.text); },
  };
  std::visit(run, item.action);
}

std::optional<ActionFailure> AppLauncher::launch(std::string_view bundleIdentifier) {
  const auto running = runningApplication(bundleIdentifier);
  if (running && focus_(*running)) return std::nullopt;
  const auto location = workspace_.urlForApplication(bundleIdentifier);
  if (!location) return missing(bundleIdentifier);
  if (!running && pendingLaunches_.isPending(*location)) {
    log_.standard("launch skipped: " + location->value + " is starting");
    return std::nullopt;
  }
  if (workspace_.openApplication(*location)) {
    if (!running) pendingLaunches_.add(bundleIdentifier, *location);
    return std::nullopt;
  }
  const auto name = workspace_.applicationName(bundleIdentifier);
  return ActionFailure{ActionProblem::cannotStart, name ? *name : readable(bundleIdentifier)};
}

ActionFailure AppLauncher::missing(std::string_view bundleIdentifier) const {
  if (auto content = workspace_.contentType(bundleIdentifier)) return {ActionProblem::noDefault, std::move(*content)};
  return {ActionProblem::notInstalled, readable(bundleIdentifier)};
}

std::optional<ActionFailure> AppLauncher::openUrl(const std::string& url) {
  if (!isFileOfAnotherMachine(url) && workspace_.openUrl(url)) return std::nullopt;
  return ActionFailure{isAddress(url) ? ActionProblem::noHandler : ActionProblem::notAnAddress, url};
}

std::optional<RunningApplication> AppLauncher::runningApplication(std::string_view bundleIdentifier) const {
  const auto instances = workspace_.runningApplications(bundleIdentifier);
  const auto found = std::find_if(instances.begin(), instances.end(), [](const RunningApplication& instance) {
    return instance.activationPolicy == ActivationPolicy::regular && !instance.isTerminated;
  });
  if (found == instances.end()) return std::nullopt;
  return *found;
}

void AppLauncher::copySnippet(std::string_view text) {
  if (text.empty()) return;
  pasteboard_.clearContents();
  pasteboard_.setString(text);
}

}  // namespace rondora
