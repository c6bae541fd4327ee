#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rondora {

class ProcessEnvironment {
 public:
  virtual ~ProcessEnvironment() = default;

  virtual std::optional<std::string> variable(std::string_view name) const = 0;
  /// The program's own application identifier.
  virtual std::string bundleIdentifier() const = 0;
};

}  // namespace rondora
