#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/linux/accessibility/served_bus.h"

namespace rondora::accessibility {

/// What assistive technology sees: an application with a status bar, and in it, while something is announced, a
/// notification whose text is a label. Each object holds the next one. An announcement is an object of its own and
/// vanishes with the next, so that a slow reader skips what is over. Main thread.
class AnnouncementObjects {
 public:
  /// Serves the objects on the bus, which must outlive the object.
  AnnouncementObjects(const ServedBus& bus, std::string applicationName);
  AnnouncementObjects(const AnnouncementObjects&) = delete;
  AnnouncementObjects& operator=(const AnnouncementObjects&) = delete;

  void show(std::string text);
  void clear();

 private:
  enum Level : std::size_t { application, statusBar, notification, label };
  static constexpr std::size_t kLevels = 4;
  /// One object, as the bus finds it.
  struct Node {
    AnnouncementObjects* objects;
    Level level;
  };
  struct Replies;

  static int find(sd_bus* bus, const char* path, const char* interface, void* self, void** found, sd_bus_error* error);
  std::size_t levels() const { return text_.empty() ? notification : kLevels; }
  std::string path(std::size_t level) const;
  void emitShowing(bool isShown) const;

  const ServedBus& bus_;
  std::string applicationName_;
  std::string text_;  // of the announcement; empty: none
  std::uint64_t number_ = 0;
  std::int32_t applicationId_ = 0;  // given by the registry
  std::array<Node, kLevels> nodes_{Node{this, application}, Node{this, statusBar}, Node{this, notification},
                                   Node{this, label}};
};

}  // namespace rondora::accessibility
