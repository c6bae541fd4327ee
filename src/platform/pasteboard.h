#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// The general pasteboard (clipboard). Main thread.
class Pasteboard {
 public:
  virtual ~Pasteboard() = default;

  virtual void clearContents() = 0;
  /// Adds plain text.
  virtual void setString(std::string_view text) = 0;
  /// Adds bytes under a private type.
  virtual void setData(std::string_view type, std::string_view bytes) = 0;
  virtual std::optional<std::string> data(std::string_view type) const = 0;
};

}  // namespace rondora
