#pragma once

#include "platform/text_order.h"

namespace rondora::macos {

/// The order of the system's own lists: by the language's rules, without regard to case, numbers by their value.
class LocaleTextOrder final : public TextOrder {
 public:
  std::vector<std::size_t> order(const std::vector<std::string>& texts, std::string_view language) const override;
};

}  // namespace rondora::macos
