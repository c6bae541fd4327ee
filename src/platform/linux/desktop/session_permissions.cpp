#include "platform/linux/desktop/session_permissions.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace rondora::desktop {

SessionPermissions::SessionPermissions(bool canType, const Trackpads& trackpads, const WatchReadable& watchReadable,
                                       std::filesystem::path deviceFolder)
    : canType_(canType),
      trackpads_(trackpads),
      deviceFolder_(std::move(deviceFolder)),
      notifications_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (!notifications_.isOpen()) return;
  watchDevices();
  readable_ = watchReadable(notifications_.get(), [this] { readNews(); });
}

// The folder appears with the first device. Its nodes get their access rights after their creation.
void SessionPermissions::watchDevices() const {
  inotify_add_watch(notifications_.get(), deviceFolder_.parent_path().c_str(), IN_CREATE | IN_ONLYDIR);
  inotify_add_watch(notifications_.get(), deviceFolder_.c_str(), IN_CREATE | IN_DELETE | IN_ATTRIB | IN_ONLYDIR);
}

void SessionPermissions::readNews() {
  alignas(inotify_event) std::array<char, 4096> events{};
  while (::read(notifications_.get(), events.data(), events.size()) > 0) {
  }
  watchDevices();
  mayHaveChanged_.send();
}

std::optional<Subscription> SessionPermissions::onMayHaveChanged(std::function<void()> observer) {
  if (!readable_) return std::nullopt;
  return mayHaveChanged_.subscribe(std::move(observer));
}

}  // namespace rondora::desktop
