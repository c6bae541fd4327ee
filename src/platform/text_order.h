#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace rondora {

/// The order that readers of a language expect in a list. Main thread.
class TextOrder {
 public:
  virtual ~TextOrder() = default;

  /// The places of the texts in that order; equal texts keep theirs. `language` is a two-letter code.
  virtual std::vector<std::size_t> order(const std::vector<std::string>& texts, std::string_view language) const = 0;
};

}  // namespace rondora
