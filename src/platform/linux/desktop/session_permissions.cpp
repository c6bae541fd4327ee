#include "platform/linux/desktop/session_permissions.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <utility>

namespace rondora::desktop {

SessionPermissions::SessionPermissions(bool canType, const Trackpads& trackpads, const WatchReadable& watchReadable,
                                       std::filesystem::path deviceFolder)
    : canType_(canType),
      trackpads_(trackpads),
      deviceFolder_(std::move(deviceFolder)),
      notifications_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (!notifications_.isOpen() || !watchDevices()) return;
  readable_ = watchReadable(notifications_.get(), [this] { readNews(); });
}

// The folder appears with the first device and goes with the last.
bool SessionPermissions::watchDevices() {
  if (watchDeviceFolder()) {
    if (parentWatch_ >= 0) inotify_rm_watch(notifications_.get(), std::exchange(parentWatch_, -1));
    return true;
  }
  if (parentWatch_ < 0) {
    const auto parent = deviceFolder_.parent_path();
    parentWatch_ = inotify_add_watch(notifications_.get(), parent.c_str(), IN_CREATE | IN_ONLYDIR);
  }
  return watchDeviceFolder() || parentWatch_ >= 0;  // the folder may have appeared meanwhile
}

// Nodes get their access rights after their creation. Watching a folder again has no effect.
bool SessionPermissions::watchDeviceFolder() const {
  constexpr std::uint32_t kChanges = IN_CREATE | IN_DELETE | IN_ATTRIB | IN_DELETE_SELF | IN_ONLYDIR;
  return inotify_add_watch(notifications_.get(), deviceFolder_.c_str(), kChanges) >= 0;
}

bool SessionPermissions::isNews(const inotify_event& event) const {
  if ((event.mask & IN_IGNORED) != 0) return false;  // a watch has ended
  const bool isOfParent = parentWatch_ >= 0 && event.wd == parentWatch_;
  return !isOfParent || (event.len > 0 && deviceFolder_.filename() == event.name);
}

void SessionPermissions::readNews() {
  alignas(inotify_event) std::array<char, 4096> events{};
  bool hasNews = false;
  for (ssize_t size = 0; (size = ::read(notifications_.get(), events.data(), events.size())) > 0;) {
    for (const char* next = events.data(); next < events.data() + size;) {
      const auto& event = *reinterpret_cast<const inotify_event*>(next);
      hasNews = isNews(event) || hasNews;
      next += sizeof event + event.len;
    }
  }
  if (!hasNews) return;
  watchDevices();
  mayHaveChanged_.send();
}

void SessionPermissions::wantTrackpads(bool wants) {
  if (std::exchange(wantsTrackpads_, wants) != wants) mayHaveChanged_.send();
}

std::optional<Subscription> SessionPermissions::onMayHaveChanged(std::function<void()> observer) {
  if (!readable_) return std::nullopt;
  return mayHaveChanged_.subscribe(std::move(observer));
}

}  // namespace rondora::desktop
