#include "ui/appkit/settings/settings_pictures.h"

#include <AppKit/AppKit.h>

#include "ui/appkit/painting/emoji_images.h"
#include "ui/appkit/painting/symbol_images.h"
#include "ui/qt/painting/application_icon.h"
#include "ui/qt/painting/emoji_images.h"
#include "ui/qt/painting/symbol_images.h"

namespace rondora {
namespace appkit {

QImage toQImage(const Image& image) {
  if (!image) return {};
  const PixelRect size = sizeOf(image);
  Bitmap bitmap(size.width, size.height);
  drawImage(bitmap.context(), image, toCGRect(bitmap.bounds()));
  const PixelBuffer buffer = bitmap.buffer();
  return QImage(reinterpret_cast<const uchar*>(buffer.pixels), buffer.width, buffer.height,
                static_cast<qsizetype>(buffer.stride) * 4, QImage::Format_ARGB32_Premultiplied)
      .copy();
}

}  // namespace appkit

QImage symbolImage(std::string_view name, int side, Color tint) {
  return appkit::toQImage(appkit::symbolImage(name, side, tint));
}

QImage emojiImage(std::string_view text, int side) { return appkit::toQImage(appkit::emojiImage(text, side)); }

QPixmap applicationPixmap(int side, double devicePixelRatio) {
  CGRect place = {{0, 0}, {side * devicePixelRatio, side * devicePixelRatio}};
  const auto icon =
      appkit::Image::share([NSApplication.sharedApplication.applicationIconImage CGImageForProposedRect:&place
                                                                                                context:nil
                                                                                                  hints:nil]);
  const int pixels = qRound(side * devicePixelRatio);
  QPixmap pixmap =
      QPixmap::fromImage(appkit::toQImage(icon).scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  pixmap.setDevicePixelRatio(devicePixelRatio);
  return pixmap;
}

// The system shows the bundle's icon.
QIcon applicationIcon() { return {}; }

}  // namespace rondora
