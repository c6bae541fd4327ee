#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "platform/linux/evdev/trackpad_arrivals.h"
#include "platform/linux/evdev/trackpad_nodes.h"
#include "platform/linux/evdev/trackpad_reader.h"
#include "platform/multitouch.h"

namespace rondora::desktop {

/// The contact frames of the kernel's trackpads. Their nodes are open, and arrivals watched, only while the program
/// asks for them.
class EvdevMultitouch final : public MultitouchDevices {
 public:
  explicit EvdevMultitouch(TrackpadArrivals::WatchReadable watchReadable,
                           TrackpadReader::NameThread nameThread = nullptr, InputFolders folders = {});

  bool isUsable() const override { return true; }
  std::optional<std::vector<MultitouchDevice>> createList() override;
  void registerContactFrameCallback(MultitouchDevice device, FrameCallback callback) override;
  void unregisterContactFrameCallback(MultitouchDevice device) override;
  void start(MultitouchDevice device) override;
  void stop(MultitouchDevice device) override;
  [[nodiscard]] Subscription onArrival(std::function<void()> observer) override;

 private:
  TrackpadArrivals::WatchReadable watchReadable_;
  InputFolders folders_;
  /// Of the last list.
  std::map<MultitouchDevice, std::filesystem::path> nodes_;
  std::map<MultitouchDevice, FrameCallback> callbacks_;
  TrackpadReader reader_;
  Signal<> arrived_;
  /// While there are observers.
  std::unique_ptr<TrackpadArrivals> arrivals_;
};

}  // namespace rondora::desktop
