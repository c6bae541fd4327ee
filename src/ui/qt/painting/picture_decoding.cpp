#include "ui/qt/painting/picture_decoding.h"

#include <QImage>
#include <cstddef>
#include <string>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/painting/icon_file_images.h"
#include "ui/qt/painting/picture_thumbnail.h"

namespace rondora {
namespace {

QImage iconImage(const PictureRequest& request) {
  switch (request.source) {
    case PictureRequest::Source::imageFile:
      return imageFileImage(toQString(request.content), request.side);
    case PictureRequest::Source::siteFile:
      return siteFileImage(toQString(request.content), request.side);
    case PictureRequest::Source::themeIcon:
      return themeIconImage(toQString(request.content), request.theme, request.side);
    case PictureRequest::Source::bytes:
      break;
  }
  return {};
}

PictureResult decoded(int width, int height, std::string bytes) {
  return {PictureResult::Outcome::decoded, width, height, std::move(bytes)};
}

/// The pixels without padding between the rows.
std::string pixelsOf(const QImage& image) {
  std::string pixels;
  const auto rowLength = static_cast<std::size_t>(image.width()) * sizeof(QRgb);
  pixels.reserve(rowLength * static_cast<std::size_t>(image.height()));
  for (int y = 0; y < image.height(); ++y) {
    pixels.append(reinterpret_cast<const char*>(image.constScanLine(y)), rowLength);
  }
  return pixels;
}

}  // namespace

PictureResult decodePicture(const PictureRequest& request) {
  if (request.source == PictureRequest::Source::bytes) {
    auto png = pictureThumbnail(request.content, request.side);
    return png ? decoded(request.side, request.side, *std::move(png)) : PictureResult{};
  }
  const QImage image = iconImage(request).convertToFormat(QImage::Format_ARGB32_Premultiplied);
  return image.isNull() ? PictureResult{} : decoded(image.width(), image.height(), pixelsOf(image));
}

Subscription decodeAtOnce(const PictureRequest& request, const PictureDecoder::Completion& completion) {
  completion(decodePicture(request));
  return {};
}

}  // namespace rondora
