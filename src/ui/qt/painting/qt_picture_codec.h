#pragma once

#include "platform/picture_codec.h"

namespace rondora {

class QtPictureCodec final : public PictureCodec {
 public:
  std::optional<std::string> thumbnail(std::string_view bytes, int side) override;
};

}  // namespace rondora
