#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/private_desktop.h"
#include "desktop/x_client.h"
#include "support/frame_watcher.h"

namespace rondora::bench {

/// Milliseconds from the press of a hotkey.
struct Opening {
  double firstChange = 0;  // the first capture in which the ring is to be seen
  double complete = 0;     // the first one after which nothing changed
};

/// A desktop for one or both programs, with the pointer in its middle and an eye on it. Whatever does not happen in
/// time is thrown as std::runtime_error.
class Stage {
 public:
  static constexpr live::Position kCenter{640, 400};

  /// `name` is what pictures are called: with RONDORA_BENCH_PICTURES=FOLDER in the environment each capture that a
  /// time was taken by goes there.
  Stage(std::string name, live::Compositor compositor);

  /// Replaces the monitors of the screen.
  void setMonitors(const std::vector<live::Area>& monitors);
  /// Control, Alt and `key`; the ring is open and stands still when this returns.
  Opening open(std::uint8_t key);
  /// Takes the ring away again, with nothing chosen, and waits until the screen and the keyboard are as before.
  void close(std::uint8_t key);
  Opening openAndClose(std::uint8_t key);
  /// After a failure: all keys up, and whatever ring there is gone.
  void recover();
  /// Without waiting for anything to stand still.
  void openAndCloseQuickly(std::uint8_t key);
  /// Opens and returns when the captures of the next `duration` differed from the ones before them.
  std::vector<Moment> changesWhileOpening(std::uint8_t key, std::chrono::milliseconds duration);
  void savePicture(const std::string& what);

  live::PrivateDesktop desktop;
  live::XClient client;
  std::optional<FrameWatcher> watcher;

 private:
  void showBackground();
  void rememberBackground();
  Moment press(std::uint8_t key);
  void release(std::uint8_t key);

  std::unique_ptr<live::ChildProcess> background_;
  const std::string name_;
  int picture_ = 0;
};

}  // namespace rondora::bench
