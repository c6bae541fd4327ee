#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "base/display_list.h"
#include "platform/application_icons.h"
#include "ui/appkit/painting/bitmap.h"
#include "ui/appkit/painting/decoded_icons.h"
#include "ui/painting/icon_sources.h"

namespace rondora::appkit {

/// The icons of display lists, each made once for its size and colours. An icon without a picture, or whose picture is
/// not decoded yet, is a neutral symbol. Main thread; waits for no picture.
class IconImages {
 public:
  /// `applicationIcons` must outlive the object.
  explicit IconImages(const ApplicationIcons& applicationIcons, IconSources sources = {})
      : applicationIcons_(applicationIcons),
        sitePicture_(std::move(sources.sitePicture)),
        decoded_(std::move(sources.decode)) {}

  /// Fitted into `side` pixels; one side of the result may be shorter. Null for `IconKind::none`. The same image as
  /// long as nothing has changed.
  Image image(const IconCommand& icon, int side);
  /// Call it when applications were installed, updated or removed.
  void forgetApplications() { installed_.clear(); }

 private:
  using Make = std::function<Image()>;

  Image made(const std::string& key, const Make& make);
  Image unplated(const IconCommand& icon, int side);
  Image symbol(std::string_view name, const IconCommand& icon, int side);
  Image fileImage(PictureRequest::Source source, const std::string& file, int side);
  Image siteImage(const IconCommand& icon, int side);
  Image applicationImage(const IconCommand& icon, int side);
  Image installedImage(const std::string& application, int side);

  const ApplicationIcons& applicationIcons_;
  SitePicture sitePicture_;
  DecodedIcons decoded_;
  std::map<std::string, Image> made_;
  /// By application and side. Null for what is not installed: asking the system again takes long.
  std::map<std::pair<std::string, int>, Image> installed_;
  /// By the icon without its plate, which it holds so that no other takes its address.
  std::map<std::pair<CGImageRef, std::string>, std::pair<Image, Image>> plated_;
};

}  // namespace rondora::appkit
