#include "ui/appkit/painting/icon_images.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <system_error>
#include <vector>

#include "model/symbol_name.h"
#include "ui/appkit/painting/emoji_images.h"
#include "ui/appkit/painting/icon_plates.h"
#include "ui/appkit/painting/symbol_images.h"

namespace rondora::appkit {
namespace {

namespace fs = std::filesystem;

/// Far more than a document's menus show; beyond it a cache starts over.
constexpr std::size_t kMaxMade = 1024;

std::string textOf(Color color) {
  std::string text;
  for (const double each : {color.red, color.green, color.blue, color.alpha}) {
    text += std::to_string(std::lround(each * 255)) + ',';
  }
  return text;
}

/// Identifies the file's present content; empty when it cannot be a picture.
std::string versionOf(const fs::path& file) {
  std::error_code error;
  if (!file.is_absolute() || !fs::is_regular_file(file, error)) return {};
  const auto time = static_cast<std::int64_t>(fs::last_write_time(file, error).time_since_epoch().count());
  const auto size = fs::file_size(file, error);
  return error ? std::string() : std::to_string(time) + '|' + std::to_string(size);
}

std::uint32_t premultiplied(std::uint32_t pixel) {
  const std::uint32_t alpha = pixel >> 24;
  const auto component = [&](std::uint32_t shift) { return ((pixel >> shift & 0xFF) * alpha + 127) / 255 << shift; };
  return alpha << 24 | component(16) | component(8) | component(0);
}

Image imageOf(const ApplicationIconSource& source, int side) {
  const auto count = static_cast<std::size_t>(std::max(source.pixelWidth, 0)) *
                     static_cast<std::size_t>(std::max(source.pixelHeight, 0));
  if (count == 0 || source.pixels.size() < count) return {};
  std::vector<std::uint32_t> pixels(count);
  std::transform(source.pixels.begin(), source.pixels.begin() + static_cast<std::ptrdiff_t>(count), pixels.begin(),
                 premultiplied);
  const Image whole = makeImage({pixels.data(), source.pixelWidth, source.pixelHeight, source.pixelWidth});
  const double scale = static_cast<double>(side) / std::max(source.pixelWidth, source.pixelHeight);
  Bitmap small(static_cast<int>(std::lround(source.pixelWidth * scale)),
               static_cast<int>(std::lround(source.pixelHeight * scale)));
  drawImage(small.context(), whole, toCGRect(small.bounds()));
  return small.image();
}

}  // namespace

Image IconImages::image(const IconCommand& icon, int side) {
  if (icon.kind == IconKind::none || side <= 0) return {};
  Image plain = unplated(icon, side);
  if (!icon.backgrounds || !plain) return plain;
  const IconBackgrounds& beneath = *icon.backgrounds;
  const std::pair key{plain.get(), textOf(beneath.darkest) + textOf(beneath.lightest) + textOf(beneath.highlighted)};
  if (const auto found = plated_.find(key); found != plated_.end()) return found->second.second;
  if (plated_.size() >= kMaxMade) plated_.clear();
  return plated_.emplace(key, std::pair{plain, platedIcon(plain, beneath, side)}).first->second.second;
}

/// Not kept without an image: there may be one a moment later.
Image IconImages::made(const std::string& key, const Make& make) {
  if (const auto found = made_.find(key); found != made_.end()) return found->second;
  Image image = make();
  if (!image) return image;
  if (made_.size() >= kMaxMade) made_.clear();
  return made_.emplace(key, std::move(image)).first->second;
}

Image IconImages::unplated(const IconCommand& icon, int side) {
  switch (icon.kind) {
    case IconKind::none:
      return {};
    case IconKind::symbol:
      return symbol(icon.name, icon, side);
    case IconKind::emoji: {
      Image emoji =
          made("emoji|" + std::to_string(side) + '|' + icon.name, [&] { return emojiImage(icon.name, side); });
      return emoji ? emoji : symbol({}, icon, side);
    }
    case IconKind::application:
      return applicationImage(icon, side);
    case IconKind::imageFile: {
      Image picture = fileImage(PictureRequest::Source::imageFile, icon.name, side);
      return picture ? picture : symbol({}, icon, side);
    }
    case IconKind::favicon:
      return siteImage(icon, side);
  }
  return {};
}

Image IconImages::symbol(std::string_view name, const IconCommand& icon, int side) {
  const std::string key = textOf(icon.tint) + '|' + std::to_string(side) + '|' + std::string(name);
  return made(key, [&] { return symbolImage(name, side, icon.tint); });
}

Image IconImages::fileImage(PictureRequest::Source source, const std::string& file, int side) {
  std::string version = versionOf(file);
  if (version.empty()) return {};
  return decoded_.find({.source = source, .side = side, .content = file, .theme = {}, .version = std::move(version)});
}

Image IconImages::siteImage(const IconCommand& icon, int side) {
  const auto file = sitePicture_ ? sitePicture_(icon.name) : std::nullopt;
  Image picture = file ? fileImage(PictureRequest::Source::siteFile, file->string(), side) : Image();
  return picture ? picture : symbol(kSiteSymbolName, icon, side);
}

Image IconImages::applicationImage(const IconCommand& icon, int side) {
  if (Image installed = installedImage(icon.name, side)) return installed;
  Image running = made("running|" + std::to_string(side) + '|' + icon.name, [&] {
    const auto source = applicationIcons_.windowIconSource(icon.name);
    return source ? imageOf(*source, side) : Image();
  });
  return running ? running : symbol(kApplicationSymbolName, icon, side);
}

Image IconImages::installedImage(const std::string& application, int side) {
  const std::pair key{application, side};
  if (const auto found = installed_.find(key); found != installed_.end()) return found->second;
  if (installed_.size() >= kMaxMade) installed_.clear();
  const auto source = applicationIcons_.iconSource(application);
  return installed_.emplace(key, source ? imageOf(*source, side) : Image()).first->second;
}

}  // namespace rondora::appkit
