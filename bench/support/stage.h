#pragma once

#include <chrono>
#include <functional>
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
  double firstChange = 0;  // the first capture that shows the ring
  double complete = 0;     // the first one without a later change
};

/// A desktop for one or both programs, with the pointer in its middle and a frame watcher. Throws std::runtime_error on
/// every deadline that is missed.
class Stage {
 public:
  static constexpr live::Position kCenter{640, 400};

  /// `name` names the pictures: with RONDORA_BENCH_PICTURES=FOLDER in the environment each timed capture is written
  /// there.
  Stage(std::string name, live::Compositor compositor);

  /// What is on the screen now is what lies behind a ring.
  void rememberBackground();
  /// Replaces the monitors of the screen.
  void setMonitors(const std::vector<live::Area>& monitors);
  /// Control, Alt and `key`; returns when the ring is open and still.
  Opening open(std::uint8_t key);
  /// The same for another trigger, which returns its own moment.
  Opening openBy(const std::function<Moment()>& trigger);
  /// Closes the ring without a choice and waits until screen and keyboard are as before.
  void close(std::uint8_t key);
  /// Chooses the item with that quick-select key instead.
  void choose(std::uint8_t key, std::uint8_t label);
  Opening openAndClose(std::uint8_t key);
  /// After a failure: releases all keys and closes any ring.
  void recover();
  /// Without waiting for a still picture.
  void openAndCloseQuickly(std::uint8_t key);
  /// Opens the ring; returns the times of the captures with a change within `duration`.
  std::vector<Moment> changesWhileOpening(std::uint8_t key, std::chrono::milliseconds duration);
  void requireBaseline(std::chrono::milliseconds stillness);
  void savePicture(const std::string& what);

  live::PrivateDesktop desktop;
  live::XClient client;
  std::optional<FrameWatcher> watcher;

 private:
  void showBackground();
  Moment press(std::uint8_t key);
  void release(std::uint8_t key);

  std::unique_ptr<live::ChildProcess> background_;
  const std::string name_;
  int picture_ = 0;
};

}  // namespace rondora::bench
