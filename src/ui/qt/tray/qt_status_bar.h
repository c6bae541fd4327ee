#pragma once

#include <functional>

#include "base/observable.h"
#include "platform/status_item.h"
#include "ui/qt/tray/status_notifier_watch.h"

namespace rondora {

/// The tray of the X screen, into which windows are embedded.
struct EmbeddingTray {
  std::function<bool()> isThere;
  /// Calls back after it came or went.
  std::function<Subscription(std::function<void()>)> onChanged;
};

/// The desktop's tray, by whichever protocol it speaks: the session bus where a panel listens there, else the X
/// screen's tray. Where there is neither, an item waits for the first that comes.
class QtStatusBar : public StatusBar {
 public:
  explicit QtStatusBar(EmbeddingTray embeddingTray);

  std::unique_ptr<StatusItem> makeStatusItem(const StatusItemDescription& description) override;

 private:
  EmbeddingTray embeddingTray_;
  StatusNotifierWatch notifierWatch_;
};

}  // namespace rondora
