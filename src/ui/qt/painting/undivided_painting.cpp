#include "ui/qt/painting/undivided_painting.h"

#include <QThreadPool>
#include <semaphore>

namespace rondora {

// The toolkit's own semaphore would be invisible to the thread sanitizer, because its library is not instrumented.
void paintUndivided(const std::function<void()>& paint) {
  std::binary_semaphore done(0);
  const bool isHandedOver = QThreadPool::globalInstance()->tryStart([&] {
    paint();
    done.release();
  });
  isHandedOver ? done.acquire() : paint();
}

}  // namespace rondora
