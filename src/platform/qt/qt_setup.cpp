#include "platform/qt/qt_setup.h"

#include <QApplication>
#include <QIcon>
#include <QImageReader>
#include <QStandardPaths>

#include "base/program_identity.h"
#include "platform/qt/qt_text.h"

namespace rondora {

namespace {

constexpr int kImageMemoryLimitMegabytes = 128;

/// Without a platform theme the toolkit does not search the system's icon folders.
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

/// Without desktop settings the toolkit uses only hicolor, which has hardly any icons.
void chooseIconTheme() {
  addSystemIconFolders();
  QIcon::setFallbackThemeName("hicolor");
  if (!QIcon::hasThemeIcon("folder")) QIcon::setThemeName("Adwaita");
}

}  // namespace

void prepareQt() {
  QGuiApplication::setHighDpiScaleFactorRoundingPolicy(Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
}

ToolkitArguments::ToolkitArguments(char** arguments) {
  pointers_ = {*arguments, platformOption_.data(), platform_.data()};
  for (char** argument = arguments + 1; *argument != nullptr; ++argument) pointers_.push_back(*argument);
  count_ = static_cast<int>(pointers_.size());
  pointers_.push_back(nullptr);
}

// Motion compression drops a motion when another is queued, even with a release between them; a choice would then use a
// stale position. The platform plugin enables it, so it is disabled after the application object is made.
void configureQt(QApplication& application, std::string_view identifier) {
  QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
  application.setApplicationName(toQString(program_identity::kName));
  QGuiApplication::setDesktopFileName(toQString(identifier));
  application.setQuitOnLastWindowClosed(false);
  QImageReader::setAllocationLimit(kImageMemoryLimitMegabytes);
  chooseIconTheme();
}

}  // namespace rondora
