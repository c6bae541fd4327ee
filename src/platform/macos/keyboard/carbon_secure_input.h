#pragma once

#include "platform/secure_input.h"

namespace rondora::macos {

class CarbonSecureInput final : public SecureInput {
 public:
  bool isEnabled() const override;
};

}  // namespace rondora::macos
