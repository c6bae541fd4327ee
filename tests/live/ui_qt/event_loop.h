#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>

namespace rondora {

/// Turns the toolkit's event loop until the condition holds; false when the time is up.
template <class Condition>
bool waitUntil(Condition condition) {
  constexpr int kPatienceMilliseconds = 15000;
  QDeadlineTimer deadline(kPatienceMilliseconds);
  while (!condition() && !deadline.hasExpired()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
  return condition();
}

}  // namespace rondora
