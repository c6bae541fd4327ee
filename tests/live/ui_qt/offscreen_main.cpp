#include <gtest/gtest.h>

#include <QApplication>

#include "app/composition_picture_service.h"
#include "platform/posix/picture_service.h"
#include "platform/qt/qt_setup.h"

/// For the leak detector: fontconfig's own leaks, seen once windows in all languages are built (fontconfig 2.14,
/// Qt 6.4).
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig"; }

int main(int argc, char** argv) {
  if (rondora::desktop::isPictureService(argc, argv)) return rondora::runPictureService(argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  rondora::prepareQt();
  QApplication application(argc, argv);
  rondora::configureQt(application, "rondora-test");
  return RUN_ALL_TESTS();
}
