#pragma once

#include <QHash>
#include <QImage>
#include <QString>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "base/observable.h"
#include "base/weak_self.h"
#include "platform/picture_decoder.h"
#include "ui/painting/icon_sources.h"

namespace rondora {

/// The latest pictures of icon files and theme icons. Each is requested when it is first wanted and when its version
/// changes; nothing waits for it. Main thread.
class DecodedIcons {
 public:
  /// Without a function every icon fails.
  explicit DecodedIcons(DecodePicture decode) : decode_(std::move(decode)) {}

  struct Icon {
    /// Null when there is none; of the version before while the present one is being decoded.
    QImage image;
    /// Not while one that has failed is tried again.
    bool isUnderway = false;
  };
  /// Theme icons are those of the program's present theme, whatever the request says.
  Icon find(PictureRequest wanted);

 private:
  struct Entry {
    std::string version;
    qsizetype maxBytes = 0;
    QImage image;
    bool isUnderway = false;
    qint64 failedAt = 0;  // milliseconds; 0: it has not failed
    qint64 usedAt = 0;
    Subscription decoding;
  };

  bool isDue(const Entry& entry, const std::string& version) const;
  void request(const QString& key, PictureRequest wanted);
  void arrived(const QString& key, const PictureResult& result);
  bool makeRoomFor(qsizetype bytes);
  bool hasRoomFor(qsizetype bytes) const;

  DecodePicture decode_;
  QHash<QString, std::shared_ptr<Entry>> entries_;
  WeakSelf<DecodedIcons> weakSelf_{this};
};

}  // namespace rondora
