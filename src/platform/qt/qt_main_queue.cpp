#include "platform/qt/qt_main_queue.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMetaObject>
#include <QPointer>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace rondora {

namespace {

/// Deviation of Qt::CoarseTimer as a fraction of its interval.
constexpr double kCoarseTimerDeviation = 0.05;

int milliseconds(double seconds) {
  if (!(seconds > 0)) return 0;
  return static_cast<int>(std::min(std::ceil(seconds * 1000 - 1e-6), double{std::numeric_limits<int>::max()}));
}

/// Safe to call from the timer's own callback.
void retire(QTimer* timer) {
  timer->stop();
  timer->disconnect();
  timer->deleteLater();
}

}  // namespace

void QtMainQueue::async(Work work) { QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection); }

void QtMainQueue::runWaiting() { QCoreApplication::sendPostedEvents(&context_, QEvent::MetaCall); }

void QtMainQueue::after(double seconds, Work work) {
  QTimer::singleShot(milliseconds(seconds), Qt::PreciseTimer, &context_, std::move(work));
}

Subscription QtMainQueue::workItem(double seconds, Work work) {
  return start(seconds, Qt::PreciseTimer, Repetition::once, std::move(work));
}

Subscription QtMainQueue::timer(double interval, double tolerance, Work work) {
  const bool coarse = tolerance >= interval * kCoarseTimerDeviation;
  return start(interval, coarse ? Qt::CoarseTimer : Qt::PreciseTimer, Repetition::forever, std::move(work));
}

Subscription QtMainQueue::start(double seconds, Qt::TimerType type, Repetition repetition, Work work) {
  auto* timer = new QTimer(&context_);
  timer->setTimerType(type);
  timer->setSingleShot(repetition == Repetition::once);
  QObject::connect(timer, &QTimer::timeout, &context_, [timer, repetition, work = std::move(work)] {
    if (repetition == Repetition::once) timer->deleteLater();
    work();
  });
  timer->start(milliseconds(seconds));
  return Subscription([guard = QPointer<QTimer>(timer)] {
    if (guard) retire(guard);
  });
}

}  // namespace rondora
