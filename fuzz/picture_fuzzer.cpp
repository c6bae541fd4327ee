#include <QCoreApplication>
#include <QImage>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "icons/picture_sizes.h"
#include "require.h"
#include "ui/qt/painting/picture_thumbnail.h"

// A server may send any bytes as a picture: they give nothing, or a PNG that fits into the square and keeps its size
// when it is read again.

namespace rondora {
namespace {

constexpr int kSide = 64;

QImage decoded(const std::string& png) {
  return QImage::fromData(reinterpret_cast<const uchar*>(png.data()), static_cast<int>(png.size()), "png");
}

void check(std::string_view bytes) {
  if (!statesPlausibleSizes(bytes)) return;
  const auto thumbnail = pictureThumbnail(bytes, kSide);
  if (!thumbnail) return;
  const QImage image = decoded(*thumbnail);
  require(!image.isNull(), "a thumbnail is a PNG");
  require(statesPlausibleSizes(*thumbnail), "a thumbnail states its own sizes");
  require(std::max(image.width(), image.height()) <= kSide, "a thumbnail fits into the square");
  const auto again = pictureThumbnail(*thumbnail, kSide);
  require(again && decoded(*again).size() == image.size(), "a thumbnail keeps its size");
}

}  // namespace
}  // namespace rondora

/// Most formats are read by plug-ins, which the toolkit searches for relative to the application's folder.
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  static const QCoreApplication application(*argc, *argv);
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  rondora::check({reinterpret_cast<const char*>(data), size});
  return 0;
}
