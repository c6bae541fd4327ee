#pragma once

#include "platform/status_item.h"

namespace rondora {

/// The desktop's tray, by whichever protocol it speaks.
class QtStatusBar : public StatusBar {
 public:
  std::unique_ptr<StatusItem> makeStatusItem(const StatusItemDescription& description) override;
};

}  // namespace rondora
