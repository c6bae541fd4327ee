#pragma once

#include <QObject>
#include <QTimer>

#include "platform/main_queue.h"

namespace rondora {

/// The toolkit's event loop as the main queue. Created and destroyed on the main thread. Destruction drops queued work
/// and makes the remaining subscriptions inert; other threads must have ended by then.
class QtMainQueue : public MainQueue {
 public:
  void async(Work work) override;
  /// Runs the work queued by `async`. Call it before each event where the toolkit delivers several in one turn, so that
  /// the work of one event runs before the next event.
  void runWaiting();
  void after(double seconds, Work work) override;
  Subscription workItem(double seconds, Work work) override;
  Subscription timer(double interval, double tolerance, Work work) override;

 private:
  enum class Repetition { once, forever };
  Subscription start(double seconds, Qt::TimerType type, Repetition repetition, Work work);

  /// Receiver and owner of all queued work.
  QObject context_;
};

}  // namespace rondora
