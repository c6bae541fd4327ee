#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "base/observable.h"
#include "base/weak_self.h"
#include "platform/picture_decoder.h"
#include "ui/appkit/painting/bitmap.h"
#include "ui/painting/icon_sources.h"

namespace rondora::appkit {

/// The pictures of icon files. Each is requested when it is first wanted and when its version changes; nothing waits
/// for it. More files than a document's menus show get no picture. Main thread.
class DecodedIcons {
 public:
  /// Without a function every icon fails.
  explicit DecodedIcons(DecodePicture decode) : decode_(std::move(decode)) {}

  /// Null when there is none; the version before while the present one is being decoded.
  Image find(PictureRequest wanted);

 private:
  static constexpr std::size_t kMaxEntries = 512;

  struct Entry {
    std::string version;
    Image image;
    Subscription decoding;
  };

  void request(const std::shared_ptr<Entry>& entry, PictureRequest wanted);

  DecodePicture decode_;
  std::map<std::string, std::shared_ptr<Entry>> entries_;
  WeakSelf<DecodedIcons> weakSelf_{this};
};

}  // namespace rondora::appkit
