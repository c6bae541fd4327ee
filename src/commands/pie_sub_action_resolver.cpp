#include "commands/pie_sub_action_resolver.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;

/// Seconds before an application is read in the background: a ring opens first, and of several applications that
/// become active in a row only the last is read.
constexpr double kPrefetchDelay = 0.1;
/// Seconds after a command: its effect takes a moment.
constexpr double kSettlingTime = 0.5;

/// The commands as the application allows all of them.
ApplicationSnapshot withoutStates(ApplicationSnapshot snapshot) {
  using Availability = ApplicationSnapshot::Availability;
  for (auto& [path, command] : snapshot.commands) {
    if (command.availability == Availability::disabled) command.availability = Availability::enabled;
  }
  return snapshot;
}

}  // namespace

std::optional<WindowTile> PieSubActionResolver::windowTile(Kind kind) {
  switch (kind) {
    case Kind::tileLeft:
      return WindowTile::left;
    case Kind::tileRight:
      return WindowTile::right;
    case Kind::tileTop:
      return WindowTile::top;
    case Kind::tileBottom:
      return WindowTile::bottom;
    case Kind::fillScreen:
      return WindowTile::fill;
    case Kind::centerWindow:
      return WindowTile::center;
    default:
      return std::nullopt;
  }
}

std::vector<AppSubMenuEntry> PieSubActionResolver::entriesOf(const RunningApplication& application) const {
  return services_.entries(application.bundleIdentifier.value_or(""));
}

/// The application told of every menu command that the document has for it now.
bool PieSubActionResolver::isComplete(const RunningApplication& application,
                                      const ApplicationSnapshot& snapshot) const {
  const auto entries = entriesOf(application);
  return std::all_of(entries.begin(), entries.end(), [&snapshot](const AppSubMenuEntry& entry) {
    return entry.kind != Kind::menuItem || (snapshot.areMenusRead && snapshot.command(entry.menuPath));
  });
}

bool PieSubActionResolver::isWaitedFor(const RunningApplication& application) const {
  return std::any_of(waiting_.begin(), waiting_.end(),
                     [&application](const Request& request) { return request.application.isSameProcess(application); });
}

/// An application without a window, or with a minimised one, is read anew: its window may be back by now.
const ApplicationSnapshot* PieSubActionResolver::cached(const RunningApplication& application) const {
  const ApplicationSnapshot* snapshot = cache_.find(application);
  return snapshot && snapshot->window && isComplete(application, *snapshot) ? snapshot : nullptr;
}

std::vector<PieSubAction> PieSubActionResolver::list(const RunningApplication& application,
                                                     const ApplicationSnapshot& snapshot) const {
  return makeSubActions(entriesOf(application), snapshot, services_.texts);
}

std::optional<std::vector<PieSubAction>> PieSubActionResolver::known(const RunningApplication& application) const {
  const ApplicationSnapshot* snapshot = cached(application);
  return snapshot ? std::optional(list(application, withoutStates(*snapshot))) : std::nullopt;
}

void PieSubActionResolver::resolve(const RunningApplication& application, SubActions::Completion completion) {
  if (const ApplicationSnapshot* snapshot = cached(application)) {
    const bool isRecent = cache_.age(application) <= kMaxStateAge;
    auto commands = list(application, isRecent ? *snapshot : withoutStates(*snapshot));
    return services_.mainQueue.async(
        [commands = std::move(commands), completion = std::move(completion)] { completion(commands); });
  }
  const std::uint64_t number = ++lastRequest_;
  auto timeout = services_.mainQueue.workItem(
      kMaxWait, weakSelf_.bind([number](PieSubActionResolver& self) { self.timedOut(number); }));
  waiting_.push_back({number, application, std::move(completion), std::move(timeout)});
  startNext();
}

void PieSubActionResolver::timedOut(std::uint64_t number) {
  const auto found = std::find_if(waiting_.begin(), waiting_.end(),
                                  [number](const Request& request) { return request.number == number; });
  if (found == waiting_.end()) return;
  const Request request = std::move(*found);
  waiting_.erase(found);
  const bool isBeingRead = reading_ && reading_->isSameProcess(request.application);
  ApplicationSnapshot snapshot = isBeingRead ? partial_ : ApplicationSnapshot();
  addKnown(request.application, snapshot);
  request.completion(list(request.application, snapshot));
}

/// A completion may ask again, so the requests are taken out first.
void PieSubActionResolver::answer(const RunningApplication& application, const ApplicationSnapshot& snapshot) {
  const auto isOther = [&application](const Request& request) {
    return !request.application.isSameProcess(application);
  };
  const auto firstAnswered = std::stable_partition(waiting_.begin(), waiting_.end(), isOther);
  std::vector<Request> answered(std::make_move_iterator(firstAnswered), std::make_move_iterator(waiting_.end()));
  waiting_.erase(firstAnswered, waiting_.end());
  for (Request& request : answered) {
    request.timeout.reset();
    request.completion(list(application, snapshot));
  }
}

void PieSubActionResolver::prefetch(const RunningApplication& application) {
  prefetchDelay_ = prefetchIn(kPrefetchDelay, application);
}

void PieSubActionResolver::commandRan(const RunningApplication& application) {
  cache_.drop(application);
  prefetchDelay_.reset();
  nextPrefetch_.reset();
  settling_ = prefetchIn(kSettlingTime, application);
}

Subscription PieSubActionResolver::prefetchIn(double seconds, const RunningApplication& application) {
  return services_.mainQueue.workItem(seconds, weakSelf_.bind([application](PieSubActionResolver& self) {
    const auto front = self.targetApp();
    if (!front || !front->isSameProcess(application)) return;
    self.cache_.retain(self.services_.workspace.runningApplications());
    self.nextPrefetch_ = front;
    self.startNext();
  }));
}

/// What the user waits for comes first.
void PieSubActionResolver::startNext() {
  if (reading_ && !waiting_.empty() && !isWaitedFor(*reading_)) services_.readings.cancel();
  if (reading_) return;
  if (!waiting_.empty()) return read(RunningApplication(waiting_.back().application));
  if (const auto next = std::exchange(nextPrefetch_, std::nullopt)) read(*next);
}

void PieSubActionResolver::read(const RunningApplication& application) {
  using Self = PieSubActionResolver;
  reading_ = application;
  partial_ = {};
  isReadingCancelled_ = services_.readings.makeIsCancelled();
  services_.queue.async([&reader = services_.reader, &mainQueue = services_.mainQueue,
                         pid = application.processIdentifier, items = menuItems(entriesOf(application)),
                         isCancelled = isReadingCancelled_,
                         windowRead = weakSelf_.bind([](Self& self, const auto& read) { self.windowRead(read); }),
                         ended = weakSelf_.bind([](Self& self, const auto& read) { self.readingEnded(read); })] {
    ApplicationSnapshot snapshot = reader.readWindow(pid);
    if (!items.empty()) {
      mainQueue.async([windowRead, snapshot] { windowRead(snapshot); });
      reader.readMenus(snapshot, pid, items, isCancelled);
    }
    mainQueue.async([ended, snapshot = std::move(snapshot)] { ended(snapshot); });
  });
}

void PieSubActionResolver::windowRead(const ApplicationSnapshot& snapshot) { partial_ = snapshot; }

/// What an application did not tell, because it hangs or because the reading was cancelled, is as it was.
void PieSubActionResolver::addKnown(const RunningApplication& application, ApplicationSnapshot& snapshot) const {
  const ApplicationSnapshot* known = cache_.find(application);
  if (known == nullptr) return;
  if (!snapshot.isWindowRead) {
    snapshot.isWindowRead = known->isWindowRead;
    snapshot.window = known->window;
  }
  snapshot.areMenusRead = snapshot.areMenusRead || known->areMenusRead;
  for (const auto& [path, before] : known->commands) {
    ApplicationSnapshot::Command& command = snapshot.commands[path];
    if (command.availability == ApplicationSnapshot::Availability::unknown) command = before;
  }
}

void PieSubActionResolver::readingEnded(const ApplicationSnapshot& read) {
  ApplicationSnapshot snapshot = read;
  const RunningApplication application = *std::exchange(reading_, std::nullopt);
  addKnown(application, snapshot);
  const bool isNew = !isReadingCancelled_() && cache_.store(application, snapshot);
  answer(application, snapshot);
  startNext();
  if (isNew && onKnown) onKnown(application);
}

}  // namespace rondora
