#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>
#include <utility>
#include <vector>

#include "platform/pasteboard.h"

namespace rondora {

/// The desktop's clipboard. Private types are MIME types. Other programs can read the contents while this program runs.
/// A clear reaches the desktop at the end of the turn, and not at all when new contents follow: a clipboard manager
/// that sees an empty clipboard may fill it with the old contents, after ours.
class QtPasteboard : public Pasteboard {
 public:
  void clearContents() override;
  void setString(std::string_view text) override;
  void setData(std::string_view type, std::string_view bytes) override;
  std::optional<std::string> data(std::string_view type) const override;

 private:
  void add(const QString& mimeType, QByteArray bytes);

  /// The contents set since the last clear.
  std::vector<std::pair<QString, QByteArray>> contents_;
  bool isClearDue_ = false;
  QObject turns_;  // context of the clears
};

}  // namespace rondora
