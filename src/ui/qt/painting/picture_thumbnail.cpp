#include "ui/qt/painting/picture_thumbnail.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <array>

#include "platform/picture_decoder.h"

namespace rondora {

namespace {

/// Formats whose size is known before decoding.
bool isPixelFormat(const QByteArray& format) {
  constexpr std::array kFormats = {"png", "jpeg", "gif", "ico", "bmp", "webp"};
  return std::find(kFormats.begin(), kFormats.end(), format) != kFormats.end();
}

bool isWithinLimits(QSize size) {
  return !size.isEmpty() && size.width() <= PictureDecoder::kMaxSide && size.height() <= PictureDecoder::kMaxSide;
}

QImage readMostFitting(QImageReader& reader, int side) {
  const QByteArray format = reader.format();  // the reader forgets it later on
  if (!isPixelFormat(format)) return {};
  int best = 0;
  QSize bestSize = reader.size();
  // Of the other formats only animations hold several pictures.
  const int count = format == "ico" ? std::min(reader.imageCount(), PictureDecoder::kMaxPictures) : 1;
  for (int i = 1; i < count && reader.jumpToImage(i); ++i) {
    const QSize size = reader.size();
    if (!isWithinLimits(size) || !PictureDecoder::isBetterFit(size.width(), bestSize.width(), side)) continue;
    best = i;
    bestSize = size;
  }
  if (!isWithinLimits(bestSize)) return {};
  if (best > 0 || count > 1) reader.jumpToImage(best);
  return reader.read();
}

}  // namespace

std::optional<std::string> pictureThumbnail(std::string_view bytes, int side) {
  QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer input(&data);
  input.open(QIODevice::ReadOnly);
  QImageReader reader(&input);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  QImage image = readMostFitting(reader, side);
  if (image.isNull()) return std::nullopt;
  if (std::max(image.width(), image.height()) > side) {
    image = image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
  }
  QByteArray png;
  QBuffer output(&png);
  output.open(QIODevice::WriteOnly);
  if (!image.save(&output, "png")) return std::nullopt;
  return png.toStdString();
}

}  // namespace rondora
