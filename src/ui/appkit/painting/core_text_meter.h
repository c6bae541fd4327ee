#pragma once

#include <CoreText/CoreText.h>

#include <string_view>

#include "base/display_list.h"
#include "platform/macos/foundation/cf_ref.h"
#include "ui/painting/text_fitting.h"

namespace rondora::appkit {

using Font = macos::CFRef<CTFontRef>;
using Line = macos::CFRef<CTLineRef>;

/// The font of the system's interface.
Font interfaceFont(double pointSize, FontWeight weight);

/// Drawn in the fill colour of the context.
Line makeLine(const Font& font, std::string_view text);

class CoreTextMeter final : public TextMeter {
 public:
  explicit CoreTextMeter(Font font) : font_(std::move(font)) {}

  double lineHeight() const override;
  double width(std::string_view text) const override;
  std::vector<std::size_t> breaks(std::string_view text) const override;

 private:
  Font font_;
};

}  // namespace rondora::appkit
