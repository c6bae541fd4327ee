#include <sys/mman.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QImage>
#include <QString>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "icons/picture_sizes.h"
#include "require.h"
#include "ui/qt/painting/icon_file_images.h"

// An icon file may hold any bytes: they give nothing, or an image that fits into the square. Pictures that state
// implausible sizes are left out: they cost memory, which the picture process limits.

namespace rondora {
namespace {

constexpr int kSide = 48;

/// A file in memory with these bytes.
QString fileWith(const std::uint8_t* data, std::size_t size) {
  static const int file = memfd_create("icon", MFD_CLOEXEC);
  require(ftruncate(file, 0) == 0 && pwrite(file, data, size, 0) == static_cast<ssize_t>(size), "the file is written");
  return QStringLiteral("/proc/self/fd/%1").arg(file);
}

void check(const QString& path) {
  const QImage image = imageFileImage(path, kSide);
  require(std::max(image.width(), image.height()) == (image.isNull() ? 0 : kSide), "an icon is fitted into the square");
  const QImage tile = siteFileImage(path, kSide);
  require(tile.isNull() || tile.size() == QSize(kSide, kSide), "a tile is a square");
}

}  // namespace
}  // namespace rondora

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "minimal");
  static const QGuiApplication application(*argc, *argv);
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const bool isPlausible = rondora::statesPlausibleSizes({reinterpret_cast<const char*>(data), size});
  if (isPlausible) rondora::check(rondora::fileWith(data, size));
  return 0;
}
