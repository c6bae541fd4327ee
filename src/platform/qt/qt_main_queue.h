#pragma once

#include <QObject>
#include <QTimer>

#include "platform/main_queue.h"

namespace rondora {

/// The toolkit's event loop as the main queue. Made and destroyed on the main thread, after which nothing that is still
/// queued runs and the subscriptions that it handed out do nothing. Other threads have ended by then.
class QtMainQueue : public MainQueue {
 public:
  void async(Work work) override;
  /// Runs what waits by `async`. Call it before each event where the toolkit hands over several in one turn: what one
  /// event leaves for later comes before the next event, as it would on a loop that takes them one at a time.
  void runWaiting();
  void after(double seconds, Work work) override;
  Subscription workItem(double seconds, Work work) override;
  Subscription timer(double interval, double tolerance, Work work) override;

 private:
  enum class Repetition { once, forever };
  Subscription start(double seconds, Qt::TimerType type, Repetition repetition, Work work);

  /// Receives and owns everything that is queued.
  QObject context_;
};

}  // namespace rondora
