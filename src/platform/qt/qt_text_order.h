#pragma once

#include "platform/text_order.h"

namespace rondora {

class QtTextOrder final : public TextOrder {
 public:
  std::vector<std::size_t> order(const std::vector<std::string>& texts, std::string_view language) const override;
};

}  // namespace rondora
