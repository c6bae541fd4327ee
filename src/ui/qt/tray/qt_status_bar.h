#pragma once

#include <functional>

#include "base/observable.h"
#include "platform/status_item.h"
#include "ui/qt/tray/status_notifier_watch.h"

namespace rondora {

/// The X screen's system tray, which embeds icon windows.
struct EmbeddingTray {
  std::function<bool()> isThere;
  /// Subscribes to its appearing and vanishing.
  std::function<Subscription(std::function<void()>)> onChanged;
};

/// The desktop's tray: over the session bus where a panel listens there, otherwise the X screen's tray. Without either,
/// an item waits for the first one to appear.
class QtStatusBar : public StatusBar {
 public:
  explicit QtStatusBar(EmbeddingTray embeddingTray);

  std::unique_ptr<StatusItem> makeStatusItem(const StatusItemDescription& description) override;

 private:
  EmbeddingTray embeddingTray_;
  StatusNotifierWatch notifierWatch_;
};

}  // namespace rondora
