#pragma once

#include "platform/process_environment.h"

namespace rondora::desktop {

class PosixProcessEnvironment final : public ProcessEnvironment {
 public:
  std::optional<std::string> variable(std::string_view name) const override;
  std::string bundleIdentifier() const override;
};

}  // namespace rondora::desktop
