#pragma once

#include <QByteArray>
#include <QString>
#include <utility>
#include <vector>

#include "platform/pasteboard.h"

namespace rondora {

/// The desktop's clipboard. Private types are MIME types. Other programs can read the contents while this program runs.
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
};

}  // namespace rondora
