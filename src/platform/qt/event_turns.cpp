#include "platform/qt/event_turns.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

namespace rondora {

bool handleEventsUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
  const QDeadlineTimer deadline(limit);
  QTimer wakeUp;
  wakeUp.setSingleShot(true);
  wakeUp.start(limit);
  while (!condition()) {
    if (deadline.hasExpired()) return false;
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  return true;
}

}  // namespace rondora
