#pragma once

#include <glib-object.h>

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/owned.h"
#include "platform/posix/file_descriptor.h"
#include "trackpads/mock_kernel_device.h"

using UMockdevTestbed = struct _UMockdevTestbed;

namespace rondora::live {

/// A trackpad of MockTrackpads, which a test touches. Each call is one frame of the kernel.
class MockTrackpad {
 public:
  using Time = std::chrono::milliseconds;

  enum class Kind {
    /// A slot for each of five fingers.
    fiveSlots,
    /// Two slots; further fingers show in the tool bits only.
    twoSlots,
    /// "Semi-multitouch": two slots with the corners of a box around the fingers.
    box,
    /// No slots: the position of one finger, and the tool bits.
    onePosition,
  };

  /// What happens to a finger in a frame.
  struct Change {
    enum class Kind { moves, lifts, becomesPalm };
    int finger = 0;
    Kind kind = Kind::moves;
    /// 0 to 1; a finger that moves and is not down lands.
    double x = 0;
    double y = 0;
  };

  explicit MockTrackpad(Kind kind);

  void frame(Time time, const std::vector<Change>& changes);
  /// The kernel loses the frame and says so.
  void loseFrame(Time time, const std::vector<Change>& changes);
  /// `fingers` land at `time` and lift a tenth of a second later.
  void tap(int fingers, Time time);
  /// A program reads it; what it should see must not be written before.
  bool isOpened() const { return device_.isOpened(); }

  MockKernelDevice& device() { return device_; }
  /// From now on the events go to this pipe.
  void openNode(const std::filesystem::path& node);

 private:
  struct Finger {
    double x = 0;
    double y = 0;
    int trackingId = -1;
    bool isPalm = false;
    int slot = -1;
  };

  std::vector<input_event> report(Time time, const std::vector<Change>& changes);
  void write(const std::vector<input_event>& events);
  void apply(const Change& change);
  void reportSlots();
  void reportBox();
  void reportSlot(int slot, const Finger& finger);
  void reportTools();
  int freeSlot() const;

  Kind kind_;
  desktop::FileDescriptor pipe_;
  MockKernelDevice device_;
  std::map<int, Finger> fingers_;
  int lastTrackingId_ = 0;
};

/// Trackpads on a computer that exists only for programs with umockdev's preload library: sysfs, udev's announcements
/// and the device nodes with their ioctls. Nodes are pipes, so events are read as soon as they are written. One at a
/// time in a process.
class MockTrackpads {
 public:
  MockTrackpads();
  ~MockTrackpads();
  MockTrackpads(const MockTrackpads&) = delete;
  MockTrackpads& operator=(const MockTrackpads&) = delete;

  /// Environment variables that bring a program to this computer.
  std::vector<std::string> environment() const;

  /// Connects a trackpad; number N is /dev/input/eventN.
  MockTrackpad& connect(int number, MockTrackpad::Kind kind = MockTrackpad::Kind::fiveSlots);
  /// Pulls the plug.
  void disconnect(int number);
  /// Takes the node away, as if the program had no access to it, and returns it.
  void withhold(int number);
  void grant(int number);

 private:
  struct Connected;

  void announce(int number, const char* action);
  std::string node(int number) const;

  UniqueCPtr<UMockdevTestbed, g_object_unref> testbed_;
  std::string root_;
  std::map<int, std::unique_ptr<Connected>> connected_;
};

}  // namespace rondora::live
