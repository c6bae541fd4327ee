#pragma once

#include "platform/status_item.h"

namespace rondora::appkit {

/// The menu bar. Applies the whole description.
class AppKitStatusBar final : public StatusBar {
 public:
  std::unique_ptr<StatusItem> makeStatusItem(const StatusItemDescription& description) override;
};

}  // namespace rondora::appkit
