#include <gtest/gtest.h>

#include <QApplication>

#include "app/composition_picture_service.h"
#include "platform/qt/qt_setup.h"

int main(int argc, char** argv) {
  if (rondora::isPictureService(argc, argv)) return rondora::runPictureService(argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  rondora::prepareQt();
  QApplication application(argc, argv);
  rondora::configureQt(application, "rondora-test");
  return RUN_ALL_TESTS();
}
