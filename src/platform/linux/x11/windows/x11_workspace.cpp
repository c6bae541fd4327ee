#include "platform/linux/x11/windows/x11_workspace.h"

#include <unistd.h>

#include <algorithm>
#include <tuple>

#include "platform/linux/x11/windows/window_activation.h"

namespace rondora::x11 {
namespace {

/// The windows of one application, merged.
struct Group {
  RunningApplication application;
  std::size_t rank = 0;
};

bool isRegular(const RunningApplication& application) {
  return application.activationPolicy == ActivationPolicy::regular;
}

/// Ordinary windows represent the application, others only where it has no ordinary one.
void join(Group& group, const RunningApplication& window, std::size_t rank) {
  RunningApplication& application = group.application;
  if (isRegular(application) && !isRegular(window)) return;
  if (!isRegular(application) && isRegular(window)) {
    group = {window, rank};
    return;
  }
  application.isHidden = application.isHidden && window.isHidden;
  if (rank >= group.rank) return;
  application.window = window.window;
  group.rank = rank;
}

}  // namespace

X11Workspace::X11Workspace(X11Connection& connection, X11ClientWindows& windows, ApplicationCatalogue& catalogue,
                           WindowOwners& owners, std::string ownBundleIdentifier)
    : connection_(connection),
      windows_(windows),
      catalogue_(catalogue),
      owners_(owners),
      ownBundleIdentifier_(std::move(ownBundleIdentifier)) {
  connection_.selectRootEvents(XCB_EVENT_MASK_PROPERTY_CHANGE);
  const xcb_atom_t activeWindow = connection_.atom("_NET_ACTIVE_WINDOW");
  rootEvents_ = connection_.addEventHandler([this, activeWindow](const xcb_generic_event_t& event) {
    if ((event.response_type & 0x7F) != XCB_PROPERTY_NOTIFY) return false;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == connection_.root() && change.atom == activeWindow) activeWindowChanged();
    return false;
  });
  connection_.flush();
  const xcb_window_t focused = readActiveWindow() ? xcb_window_t{XCB_WINDOW_NONE} : windows_.activeWindow();
  if (focused != XCB_WINDOW_NONE) owners_.noteActivation(focused);
  lastActivated_ = frontmostApplication();
}

std::string X11Workspace::idOf(const WindowInfo& window) const {
  if (window.processIdentifier == getpid()) return ownBundleIdentifier_;
  return catalogue_.identify(window.identity).value_or(window.identity.className);
}

RunningApplication X11Workspace::applicationOf(const WindowInfo& window) const {
  RunningApplication application;
  const std::string id = idOf(window);
  application.processIdentifier = processIdentifierOf(window, id);
  if (!id.empty()) application.bundleIdentifier = id;
  application.localizedName = catalogue_.name(id).value_or(id.empty() ? window.title : id);
  application.activationPolicy = window.isOrdinary ? ActivationPolicy::regular : ActivationPolicy::accessory;
  application.isHidden = window.isIconified;
  application.window = window.window;
  return application;
}

std::int32_t X11Workspace::processIdentifierOf(const WindowInfo& window) const {
  return processIdentifierOf(window, idOf(window));
}

std::int32_t X11Workspace::processIdentifierOf(const WindowInfo& window, const std::string& id) const {
  const std::int32_t process = processIdentifier(window.processIdentifier, id);
  owners_.note(window, process);
  return process;
}

std::int32_t X11Workspace::processIdentifier(std::int32_t process, const std::string& id) const {
  if (process > 0 && applicationsOfProcesses_.try_emplace(process, id).first->second == id) return process;
  const std::pair further(process, id);
  auto found = std::find(furtherApplications_.begin(), furtherApplications_.end(), further);
  if (found == furtherApplications_.end()) found = furtherApplications_.insert(found, further);
  return -1 - static_cast<std::int32_t>(found - furtherApplications_.begin());
}

std::optional<RunningApplication> X11Workspace::frontmostApplication() const {
  if (frontmost_) return frontmost_;
  const xcb_window_t active = windows_.activeWindow();
  if (active == XCB_WINDOW_NONE) return std::nullopt;
  const auto window = windows_.describe(active);
  if (!window) return std::nullopt;
  return applicationOf(*window);
}

std::vector<RunningApplication> X11Workspace::runningApplications() const {
  std::vector<Group> groups;
  const auto windows = windows_.windows();
  // The system reuses process identifiers.
  std::erase_if(applicationsOfProcesses_, [&windows](const auto& known) {
    return std::none_of(windows.begin(), windows.end(),
                        [&known](const WindowInfo& window) { return window.processIdentifier == known.first; });
  });
  owners_.forgetOthers(windows);
  for (const WindowInfo& window : windows) {
    const RunningApplication application = applicationOf(window);
    const std::size_t rank = owners_.activationRank(window.window);
    const auto group = std::find_if(groups.begin(), groups.end(), [&](const Group& candidate) {
      return candidate.application.isSameProcess(application);
    });
    if (group == groups.end()) {
      groups.push_back({application, rank});
    } else {
      join(*group, application, rank);
    }
  }
  std::vector<RunningApplication> applications;
  applications.reserve(groups.size());
  for (Group& group : groups) applications.push_back(std::move(group.application));
  return applications;
}

std::vector<RunningApplication> X11Workspace::runningApplications(std::string_view bundleIdentifier) const {
  const std::string id = catalogue_.resolve(bundleIdentifier);
  auto applications = runningApplications();
  std::erase_if(applications,
                [&id](const RunningApplication& application) { return application.bundleIdentifier != id; });
  const auto preference = [this](const RunningApplication& application) {
    return std::tuple(application.isHidden, owners_.activationRank(static_cast<xcb_window_t>(application.window)));
  };
  std::ranges::stable_sort(applications, {}, preference);
  return applications;
}

bool X11Workspace::activate(const RunningApplication& application) {
  const xcb_window_t active = windows_.activeWindow();
  if (active != XCB_WINDOW_NONE) {
    const auto window = windows_.describe(active);
    if (window && applicationOf(*window).isSameProcess(application)) return true;
  }
  const auto windows = windows_.windows();
  const WindowInfo* target = windowToActivate(application, windows);
  if (!target) return false;
  activateWindow(connection_, *target, active);
  return true;
}

/// Prefers ordinary windows, then open to iconified ones, then the requested one, then the one that was active last.
const WindowInfo* X11Workspace::windowToActivate(const RunningApplication& application,
                                                 const std::vector<WindowInfo>& windows) const {
  const auto preference = [&](const WindowInfo& window) {
    return std::tuple(!window.isOrdinary, window.isIconified, window.window != application.window,
                      owners_.activationRank(window.window));
  };
  const WindowInfo* best = nullptr;
  for (const WindowInfo& window : windows) {
    if (!window.isOrdinary && window.window != application.window) continue;
    if (!applicationOf(window).isSameProcess(application)) continue;
    if (!best || preference(window) < preference(*best)) best = &window;
  }
  return best;
}

/// An application is hidden when all its windows are iconified, so restoring one is enough.
void X11Workspace::unhide(const RunningApplication& application) {
  const auto windows = windows_.windows();
  if (const WindowInfo* target = windowToActivate(application, windows)) restoreWindow(connection_, target->window);
}

std::vector<xcb_window_t> X11Workspace::ordinaryWindows(const RunningApplication& application) const {
  std::vector<xcb_window_t> found;
  for (const WindowInfo& window : windows_.windows()) {
    if (window.isOrdinary && applicationOf(window).isSameProcess(application)) found.push_back(window.window);
  }
  return found;
}

bool X11Workspace::hide(const RunningApplication& application) {
  return iconifyWindows(connection_, ordinaryWindows(application));
}

bool X11Workspace::terminate(const RunningApplication& application) {
  return closeWindows(connection_, ordinaryWindows(application));
}

std::optional<ApplicationLocation> X11Workspace::urlForApplication(std::string_view bundleIdentifier) const {
  const std::string id = catalogue_.resolve(bundleIdentifier);
  if (!catalogue_.isInstalled(id) && runningApplications(id).empty()) return std::nullopt;
  return ApplicationLocation{id};
}

std::optional<std::string> X11Workspace::contentType(std::string_view bundleIdentifier) const {
  return catalogue_.contentType(bundleIdentifier);
}

bool X11Workspace::openApplication(const ApplicationLocation& location) {
  const auto running = runningApplications(location.value);
  const bool cameForward = std::any_of(running.begin(), running.end(), [this](const RunningApplication& application) {
    return isRegular(application) && activate(application);
  });
  return cameForward || catalogue_.launch(location.value, connection_.lastEventTime());
}

std::optional<ApplicationLocation> X11Workspace::applicationAtPath(std::string_view path) const {
  const auto id = catalogue_.applicationAtPath(path);
  if (!id) return std::nullopt;
  return ApplicationLocation{*id};
}

bool X11Workspace::openUrl(std::string_view url) { return catalogue_.openUrl(url, connection_.lastEventTime()); }

std::optional<std::string> X11Workspace::applicationName(std::string_view bundleIdentifier) const {
  return catalogue_.name(catalogue_.resolve(bundleIdentifier));
}

Subscription X11Workspace::onDidActivateApplication(std::function<void(const RunningApplication&)> observer) {
  return didActivate_.subscribe(std::move(observer));
}

/// Returns false when the window manager names no active window.
bool X11Workspace::readActiveWindow() {
  frontmost_.reset();
  const auto active =
      connection_.property32(connection_.root(), connection_.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW);
  if (active.empty() || active.front() == XCB_WINDOW_NONE) return false;
  const auto window = windows_.describe(active.front());
  if (!window) return false;
  owners_.noteActivation(window->window);
  frontmost_ = applicationOf(*window);
  return true;
}

/// Between two windows the property is often empty for a moment, and it is often set to the value that it had.
void X11Workspace::activeWindowChanged() {
  if (!readActiveWindow()) return;
  const bool isNew = !lastActivated_ || !lastActivated_->isSameProcess(*frontmost_);
  lastActivated_ = frontmost_;
  if (isNew) didActivate_.send(*lastActivated_);
}

}  // namespace rondora::x11
