#pragma once

#include "platform/window_list.h"

namespace rondora::macos {

class QuartzWindowList final : public WindowList {
 public:
  std::vector<WindowListEntry> windows() const override;
};

}  // namespace rondora::macos
