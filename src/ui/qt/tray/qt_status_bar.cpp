#include "ui/qt/tray/qt_status_bar.h"

#include <utility>

#include "ui/qt/tray/qt_status_item.h"

namespace rondora {

QtStatusBar::QtStatusBar(EmbeddingTray embeddingTray)
    : embeddingTray_(std::move(embeddingTray)), notifierWatch_(QDBusConnection::sessionBus()) {}

std::unique_ptr<StatusItem> QtStatusBar::makeStatusItem(const StatusItemDescription& description) {
  return std::make_unique<QtStatusItem>(description, embeddingTray_, notifierWatch_);
}

}  // namespace rondora
