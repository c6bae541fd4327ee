#pragma once

#include <cstdint>
#include <filesystem>
#include <map>

#include "base/weak_self.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/main_queue.h"
#include "platform/picture_decoder.h"

namespace rondora {

/// Remembers, across starts, the files that a decoder gave up on, and refuses them for a week unless they change. All
/// other requests go to the decoder. Main thread.
class PictureQuarantine final : public PictureDecoder {
 public:
  struct Ports {
    PictureDecoder& decoder;
    FileSystem& files;
    const Clock& clock;
    MainQueue& mainQueue;
  };

  /// Reads the list. The ports must outlive the object.
  explicit PictureQuarantine(const Ports& ports);

  [[nodiscard]] Subscription decode(PictureRequest request, Completion completion) override;

 private:
  using Key = std::uint64_t;

  void load();
  void add(Key key);
  bool contains(Key key) const;
  bool isOutdated(WallTime since) const;

  Ports ports_;
  std::filesystem::path folder_;
  std::map<Key, WallTime> refusedSince_;
  WeakSelf<PictureQuarantine> weakSelf_{this};
};

}  // namespace rondora
