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

AppLauncher::AppLauncher(const Services& services)
    : services_(services),
      systemActionRunner_(services.workspace),
      pendingLaunches_({services.workspace, services.mainQueue, services.clock, services.ownBundleIdentifier}) {}

void AppLauncher::execute(const PieMenuItem& item, std::optional<std::int32_t> targetPID, const ActionEnded& ended) {
  const ActionEnded end = ended ? ended : [](const std::optional<ActionFailure>&) {};
  const Overloaded run{
      [](const Unassigned&) {},
      [&](const LaunchApp& action) { launch(action.bundleIdentifier, end); },
      [&](const OpenURL& action) { end(openUrl(action.url)); },
      [&](const Keystroke& action) {
        services_.keystrokeSender.perform(action.keyCode, action.modifiers, targetPID, ended);
      },
      [&](const SystemShortcut& action) { systemActionRunner_.run(action.kind, ended); },
      [&](const Snippet& action) {
        copySnippet(action.text);
        end(std::nullopt);
      },
  };
  std::visit(run, item.action);
}

/// Brings a running instance forward, otherwise opens the application, once until its window appears.
void AppLauncher::launch(std::string_view bundleIdentifier, const ActionEnded& ended) {
  const auto running = runningApplication(bundleIdentifier);
  if (running && services_.focus(*running)) return ended(std::nullopt);
  const auto location = services_.workspace.urlForApplication(bundleIdentifier);
  if (!location) return ended(missing(bundleIdentifier));
  if (!running && pendingLaunches_.isPending(*location)) {
    return services_.log.standard("launch skipped: " + location->value + " is starting");
  }
  open(bundleIdentifier, *location, ended);
}

void AppLauncher::open(std::string_view bundleIdentifier, const ApplicationLocation& location,
                       const ActionEnded& ended) {
  std::string name = nameOf(bundleIdentifier);
  if (!services_.workspace.openApplication(location)) {
    return ended(ActionFailure{ActionProblem::cannotStart, std::move(name)});
  }
  pendingLaunches_.add(bundleIdentifier, location, [ended, name = std::move(name)](PendingLaunches::Outcome outcome) {
    if (outcome == PendingLaunches::Outcome::worked) return ended(std::nullopt);
    ended(ActionFailure{ActionProblem::endedAtOnce, name});
  });
}

std::string AppLauncher::nameOf(std::string_view bundleIdentifier) const {
  return services_.workspace.applicationName(bundleIdentifier).value_or(readable(bundleIdentifier));
}

ActionFailure AppLauncher::missing(std::string_view bundleIdentifier) const {
  if (auto content = services_.workspace.contentType(bundleIdentifier))
    return {ActionProblem::noDefault, std::move(*content)};
  return {ActionProblem::notInstalled, readable(bundleIdentifier)};
}

std::optional<ActionFailure> AppLauncher::openUrl(const std::string& url) {
  if (!isFileOfAnotherMachine(url) && services_.workspace.openUrl(url)) return std::nullopt;
  return ActionFailure{isAddress(url) ? ActionProblem::noHandler : ActionProblem::notAnAddress, url};
}

std::optional<RunningApplication> AppLauncher::runningApplication(std::string_view bundleIdentifier) const {
  const auto instances = services_.workspace.runningApplications(bundleIdentifier);
  const auto found = std::find_if(instances.begin(), instances.end(), [](const RunningApplication& instance) {
    return instance.activationPolicy == ActivationPolicy::regular && !instance.isTerminated;
  });
  if (found == instances.end()) return std::nullopt;
  return *found;
}

void AppLauncher::copySnippet(std::string_view text) {
  if (text.empty()) return;
  services_.pasteboard.clearContents();
  services_.pasteboard.setString(text);
}

}  // namespace rondora
