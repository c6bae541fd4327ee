#include "ui/qt/painting/undivided_painting.h"

#include <QSemaphore>
#include <QThreadPool>

namespace rondora {

void paintUndivided(const std::function<void()>& paint) {
  QSemaphore done;
  const bool isHandedOver = QThreadPool::globalInstance()->tryStart([&] {
    paint();
    done.release();
  });
  isHandedOver ? done.acquire() : paint();
}

}  // namespace rondora
