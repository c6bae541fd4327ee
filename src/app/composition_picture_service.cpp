#include "app/composition_picture_service.h"

#include <QGuiApplication>
#include <QImageReader>
#include <cstdlib>
#include <string>

#include "platform/linux/desktop/picture_process_limits.h"
#include "platform/linux/desktop/thread_name.h"
#include "platform/posix/picture_service.h"
#include "ui/qt/painting/picture_decoding.h"

namespace rondora {
namespace {

/// Exactly the largest picture that is read.
constexpr int kMaxImageMegabytes = 64;

}  // namespace

int runPictureService(int argc, char** argv) {
  desktop::nameThread(std::string(desktop::kPictureServiceName));
  // Without a display and without the desktop's theme plug-ins, which need one.
  qputenv("QT_QPA_PLATFORM", "minimal");
  qunsetenv("QT_QPA_PLATFORMTHEME");
  const QGuiApplication application(argc, argv);
  QImageReader::setAllocationLimit(kMaxImageMegabytes);
  desktop::limitPictureProcess();
  desktop::servePictures(decodePicture);
  return EXIT_SUCCESS;
}

}  // namespace rondora
