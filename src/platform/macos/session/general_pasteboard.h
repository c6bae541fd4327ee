#pragma once

#include "platform/pasteboard.h"

namespace rondora::macos {

class GeneralPasteboard final : public Pasteboard {
 public:
  void clearContents() override;
  void setString(std::string_view text) override;
  void setData(std::string_view type, std::string_view bytes) override;
  std::optional<std::string> data(std::string_view type) const override;
};

}  // namespace rondora::macos
