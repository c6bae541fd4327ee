#include "actions/app_launcher.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace rondora {
namespace {

template <class... Cases>
struct Overloaded : Cases... {
  using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

}  // namespace

AppLauncher::AppLauncher(Workspace& workspace, Pasteboard& pasteboard, Focus focus, KeystrokeSender& keystrokeSender)
    : workspace_(workspace),
      pasteboard_(pasteboard),
      focus_(std::move(focus)),
      keystrokeSender_(keystrokeSender),
      systemActionRunner_(workspace) {}

void AppLauncher::execute(const PieMenuItem& item, std::optional<std::int32_t> targetPID) {
  const Overloaded run{
      [](const Unassigned&) {},
      [&](const LaunchApp& action) { launch(action.bundleIdentifier); },
      [&](const OpenURL& action) { workspace_.openUrl(action.url); },
      [&](const Keystroke& action) { keystrokeSender_.perform(action.keyCode, action.modifiers, targetPID); },
      [&](const SystemShortcut& action) { systemActionRunner_.run(action.kind); },
      [&](const Snippet& action) { copySnippet(action.text); },
  };
  std::visit(run, item.action);
}

void AppLauncher::launch(std::string_view bundleIdentifier) {
  if (const auto running = runningApplication(bundleIdentifier)) {
    if (focus_(*running)) return;
  }
  if (const auto location = workspace_.urlForApplication(bundleIdentifier)) workspace_.openApplication(*location);
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
