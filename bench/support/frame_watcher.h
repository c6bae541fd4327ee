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

/// Captures a square of the screen repeatedly through shared memory, as fast as the server answers, as the compositor
/// shows it.
class FrameWatcher {
 public:
  /// Pixels of the root window; the ring is expected between the two radii.
  FrameWatcher(const std::string& display, live::Position center, int innerRadius, int outerRadius);
  ~FrameWatcher();
  FrameWatcher(const FrameWatcher&) = delete;
  FrameWatcher& operator=(const FrameWatcher&) = delete;

  /// Makes the current screen the baseline for changes.
  void keepAsBaseline();
  /// Sends a key press; returns once it is sent, without a round trip.
  Moment press(std::uint8_t keyCode);
  Moment movePointer(live::Position position);
  /// The moment of the first capture in which `pixels` or more of the ring differ from the baseline.
  std::optional<Moment> firstChange(std::size_t pixels, std::chrono::milliseconds limit);
  /// The moment of the first capture, the latest one included, after which nothing changed for `stillness`.
  std::optional<Moment> lastChange(std::chrono::milliseconds stillness, std::chrono::milliseconds limit);
  /// Waits until the ring's area has equalled the baseline for `stillness`.
  bool waitForBaseline(std::chrono::milliseconds stillness, std::chrono::milliseconds limit);
  /// Captures for as long as `duration` and counts how many differed from the one before.
  std::vector<Moment> changesDuring(std::chrono::milliseconds duration);
  /// Writes the latest capture as a portable pixmap, to check by eye what was timed.
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
  /// The current frame becomes the previous one first.
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
