#pragma once

#include <xcb/shm.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/owned.h"
#include "desktop/x_client.h"

namespace rondora::bench {

using Moment = std::chrono::steady_clock::time_point;

double millisecondsBetween(Moment from, Moment to);

/// Looks at a square of the screen again and again through shared memory, as fast as the server answers. What a
/// compositor paints counts.
class FrameWatcher {
 public:
  /// Pixels of the root window; the ring is expected between the two radii.
  FrameWatcher(const std::string& display, live::Position center, int innerRadius, int outerRadius);
  ~FrameWatcher();
  FrameWatcher(const FrameWatcher&) = delete;
  FrameWatcher& operator=(const FrameWatcher&) = delete;

  /// What is on screen now is what changes are told from.
  void keepAsBaseline();
  /// Sends a key press and returns when the request has left, not when it was answered.
  Moment press(std::uint8_t keyCode);
  Moment movePointer(live::Position position);
  /// The moment of the first capture in which `pixels` or more of the ring differ from the baseline.
  std::optional<Moment> firstChange(std::size_t pixels, std::chrono::milliseconds limit);
  /// The moment of the first capture, the latest one included, after which nothing changed for `stillness`.
  std::optional<Moment> lastChange(std::chrono::milliseconds stillness, std::chrono::milliseconds limit);
  /// Waits until the ring's place looks like the baseline again and has done so for `stillness`.
  bool waitForBaseline(std::chrono::milliseconds stillness, std::chrono::milliseconds limit);
  /// Captures for as long as `duration` and counts how many differed from the one before.
  std::vector<Moment> changesDuring(std::chrono::milliseconds duration);
  /// Writes the latest capture as a portable pixmap, for people to check what was timed.
  void save(const std::filesystem::path& file) const;

 private:
  struct Span {
    std::size_t begin = 0;
    std::size_t end = 0;
  };
  struct Frame {
    xcb_shm_seg_t segment = 0;
    std::uint32_t* pixels = nullptr;
  };

  Frame makeFrame();
  /// Into the current frame, which then becomes the previous one.
  Moment capture();
  bool differsFromPrevious() const;
  std::size_t changedPixels(std::size_t enough) const;

  UniqueCPtr<xcb_connection_t, xcb_disconnect> connection_;
  xcb_window_t root_ = XCB_NONE;
  live::Position origin_;
  std::uint16_t side_ = 0;
  std::size_t bytes_ = 0;
  std::vector<Span> ring_;
  Frame frames_[2];
  int current_ = 0;
  Moment captured_;
  std::vector<std::uint32_t> baseline_;
};

}  // namespace rondora::bench
