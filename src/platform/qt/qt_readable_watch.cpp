#include "platform/qt/qt_readable_watch.h"

#include <QSocketNotifier>
#include <memory>
#include <utility>

namespace rondora {

Subscription watchReadable(int descriptor, std::function<void()> readable) {
  const auto notifier = std::make_shared<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), std::move(readable));
  return Subscription([notifier] { notifier->setEnabled(false); });
}

}  // namespace rondora
