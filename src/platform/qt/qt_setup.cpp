#include "platform/qt/qt_setup.h"

#include <QApplication>
#include <QIcon>
#include <QImageReader>
#include <QStandardPaths>

namespace rondora {

namespace {

constexpr int kImageMemoryLimitMegabytes = 128;

/// The toolkit looks into the system's folders only where it has a platform theme.
void addSystemIconFolders() {
  const QStringList folders =
      QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, "icons", QStandardPaths::LocateDirectory);
  const QStringList pixmaps =
      QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, "pixmaps", QStandardPaths::LocateDirectory);
  if (!QIcon::themeSearchPaths().contains(folders.value(0))) {
    QIcon::setThemeSearchPaths(QIcon::themeSearchPaths() + folders);
  }
  if (QIcon::fallbackSearchPaths().isEmpty()) QIcon::setFallbackSearchPaths(pixmaps);
}

/// Without a desktop's settings the toolkit knows no theme but hicolor, which holds hardly any picture.
void chooseIconTheme() {
  addSystemIconFolders();
  QIcon::setFallbackThemeName("hicolor");
  if (!QIcon::hasThemeIcon("folder")) QIcon::setThemeName("Adwaita");
}

}  // namespace

void prepareQt() {
  if (qEnvironmentVariableIsSet("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "xcb");
  }
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

// Compressing drops a motion when another one waits, even where a release lies between: the choice would be judged by
// an older place. The platform plugin switches it on, hence after the application object was made.
void configureQt(QApplication& application, const char* identifier) {
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  application.setApplicationName("Rondora");
  QGuiApplication::setDesktopFileName(identifier);
  application.setQuitOnLastWindowClosed(false);
  QImageReader::setAllocationLimit(kImageMemoryLimitMegabytes);
  chooseIconTheme();
}

}  // namespace rondora
