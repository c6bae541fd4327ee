#include "platform/linux/x11/windows/window_owners.h"

#include <algorithm>

namespace rondora::x11 {
namespace {

/// A window id of long ago may name another window by now.
constexpr std::size_t kMaxActivations = 256;

}  // namespace

bool WindowOwners::Owned::isLike(const WindowInfo& window) const {
  return realProcess == window.processIdentifier && identity.applicationId == window.identity.applicationId &&
         identity.className == window.identity.className;
}

void WindowOwners::note(const WindowInfo& window, std::int32_t processIdentifier) {
  const std::lock_guard lock(mutex_);
  windows_[window.window] = {processIdentifier, window.processIdentifier, window.identity};
}

void WindowOwners::forgetOthers(std::span<const WindowInfo> windows) {
  const std::lock_guard lock(mutex_);
  std::erase_if(windows_, [windows](const auto& noted) {
    return std::ranges::find(windows, noted.first, &WindowInfo::window) == windows.end();
  });
}

std::int32_t WindowOwners::ownerOf(const WindowInfo& window) const {
  const std::lock_guard lock(mutex_);
  const auto noted = windows_.find(window.window);
  if (noted != windows_.end() && noted->second.isLike(window)) return noted->second.processIdentifier;
  const auto alike =
      std::ranges::find_if(windows_, [&window](const auto& other) { return other.second.isLike(window); });
  return alike == windows_.end() ? window.processIdentifier : alike->second.processIdentifier;
}

void WindowOwners::noteActivation(xcb_window_t window) {
  const std::lock_guard lock(mutex_);
  std::erase(activations_, window);
  activations_.insert(activations_.begin(), window);
  if (activations_.size() > kMaxActivations) activations_.pop_back();
}

std::size_t WindowOwners::activationRank(xcb_window_t window) const {
  const std::lock_guard lock(mutex_);
  return static_cast<std::size_t>(std::ranges::find(activations_, window) - activations_.begin());
}

void WindowOwners::setActiveBefore(xcb_window_t window) {
  const std::lock_guard lock(mutex_);
  activeBefore_ = window;
}

xcb_window_t WindowOwners::activeBefore() const {
  const std::lock_guard lock(mutex_);
  return activeBefore_;
}

}  // namespace rondora::x11
