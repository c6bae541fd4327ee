#include "support/frame_watcher.h"

#include <sys/ipc.h>
#include <sys/shm.h>
#include <xcb/xtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <stdexcept>

namespace rondora::bench {
namespace {

using std::chrono::steady_clock;

constexpr std::uint32_t kColours = 0xFFFFFF;

}  // namespace

double millisecondsBetween(Moment from, Moment to) {
  return std::chrono::duration<double, std::milli>(to - from).count();
}

FrameWatcher::FrameWatcher(const std::string& display, live::Position center, int innerRadius, int outerRadius)
    : connection_(xcb_connect(display.c_str(), nullptr)) {
  if (xcb_connection_has_error(connection_.get()) != 0) throw std::runtime_error("cannot connect to " + display);
  root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
  side_ = static_cast<std::uint16_t>(2 * outerRadius);
  origin_ = {center.x - outerRadius, center.y - outerRadius};
  bytes_ = std::size_t{side_} * side_ * sizeof(std::uint32_t);
  for (Frame& frame : frames_) frame = makeFrame();
  for (int y = 0; y < side_; ++y) {
    const auto row = static_cast<std::size_t>(y) * side_;
    for (int x = 0; x < side_; ++x) {
      const double distance = std::hypot(x - outerRadius, y - outerRadius);
      if (distance < innerRadius || distance > outerRadius) continue;
      const std::size_t at = row + static_cast<std::size_t>(x);
      if (!ring_.empty() && ring_.back().end == at) {
        ++ring_.back().end;
      } else {
        ring_.push_back({at, at + 1});
      }
    }
  }
  keepAsBaseline();
}

FrameWatcher::~FrameWatcher() {
  for (const Frame& frame : frames_) shmdt(frame.pixels);
}

FrameWatcher::Frame FrameWatcher::makeFrame() {
  const int id = shmget(IPC_PRIVATE, bytes_, IPC_CREAT | 0600);
  if (id < 0) throw std::runtime_error("no shared memory");
  Frame frame{xcb_generate_id(connection_.get()), static_cast<std::uint32_t*>(shmat(id, nullptr, 0))};
  const UniqueCPtr<xcb_generic_error_t, std::free> error(xcb_request_check(
      connection_.get(), xcb_shm_attach_checked(connection_.get(), frame.segment, static_cast<std::uint32_t>(id), 0)));
  shmctl(id, IPC_RMID, nullptr);
  if (error) throw std::runtime_error("the server shares no memory");
  return frame;
}

Moment FrameWatcher::capture() {
  current_ = 1 - current_;
  const auto cookie = xcb_shm_get_image(connection_.get(), root_, static_cast<std::int16_t>(origin_.x),
                                        static_cast<std::int16_t>(origin_.y), side_, side_, ~0U,
                                        XCB_IMAGE_FORMAT_Z_PIXMAP, frames_[current_].segment, 0);
  const UniqueCPtr<xcb_shm_get_image_reply_t, std::free> reply(
      xcb_shm_get_image_reply(connection_.get(), cookie, nullptr));
  if (!reply) throw std::runtime_error("the screen cannot be captured");
  captured_ = steady_clock::now();
  return captured_;
}

void FrameWatcher::keepAsBaseline() {
  capture();
  baseline_.assign(frames_[current_].pixels, frames_[current_].pixels + bytes_ / sizeof(std::uint32_t));
}

Moment FrameWatcher::press(std::uint8_t keyCode) {
  xcb_test_fake_input(connection_.get(), XCB_KEY_PRESS, keyCode, XCB_CURRENT_TIME, root_, 0, 0, 0);
  const Moment now = steady_clock::now();
  xcb_flush(connection_.get());
  return now;
}

Moment FrameWatcher::movePointer(live::Position position) {
  xcb_test_fake_input(connection_.get(), XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, root_,
                      static_cast<std::int16_t>(position.x), static_cast<std::int16_t>(position.y), 0);
  const Moment now = steady_clock::now();
  xcb_flush(connection_.get());
  return now;
}

std::size_t FrameWatcher::changedPixels(std::size_t enough) const {
  const std::uint32_t* pixels = frames_[current_].pixels;
  std::size_t changed = 0;
  for (const Span& span : ring_) {
    for (std::size_t at = span.begin; at < span.end; ++at) changed += ((pixels[at] ^ baseline_[at]) & kColours) != 0;
    if (changed >= enough) break;
  }
  return changed;
}

bool FrameWatcher::differsFromPrevious() const {
  return std::memcmp(frames_[0].pixels, frames_[1].pixels, bytes_) != 0;
}

std::optional<Moment> FrameWatcher::firstChange(std::size_t pixels, std::chrono::milliseconds limit) {
  const Moment deadline = steady_clock::now() + limit;
  while (true) {
    const Moment now = capture();
    if (changedPixels(pixels) >= pixels) return now;
    if (now > deadline) return std::nullopt;
  }
}

std::optional<Moment> FrameWatcher::lastChange(std::chrono::milliseconds stillness, std::chrono::milliseconds limit) {
  Moment last = captured_;
  const Moment deadline = last + limit;
  while (true) {
    const Moment now = capture();
    if (differsFromPrevious()) last = now;
    if (now - last >= stillness) return last;
    if (now > deadline) return std::nullopt;
  }
}

bool FrameWatcher::waitForBaseline(std::chrono::milliseconds stillness, std::chrono::milliseconds limit) {
  Moment lastOther = capture();
  const Moment deadline = lastOther + limit;
  while (captured_ - lastOther < stillness) {
    if (capture() > deadline) return false;
    if (changedPixels(1) != 0) lastOther = captured_;
  }
  return true;
}

std::vector<Moment> FrameWatcher::changesDuring(std::chrono::milliseconds duration) {
  std::vector<Moment> changes;
  const Moment deadline = steady_clock::now() + duration;
  while (true) {
    const Moment now = capture();
    if (differsFromPrevious()) changes.push_back(now);
    if (now > deadline) return changes;
  }
}

void FrameWatcher::save(const std::filesystem::path& file) const {
  std::ofstream stream(file, std::ios::binary);
  stream << "P6\n" << side_ << ' ' << side_ << "\n255\n";
  for (std::size_t at = 0; at < bytes_ / sizeof(std::uint32_t); ++at) {
    const std::uint32_t pixel = frames_[current_].pixels[at];
    for (const int shift : {16, 8, 0}) stream.put(static_cast<char>(pixel >> shift));
  }
}

}  // namespace rondora::bench
