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

/// Of a line, in points.
struct LineMetrics {
  double ascent = 0;
  double descent = 0;
  double leading = 0;

  double height() const { return ascent + descent + leading; }
};

/// Those of the font, or of the text where the system takes its letters from a taller font.
LineMetrics lineMetrics(const Font& font, std::string_view text);

class CoreTextMeter final : public TextMeter {
 public:
  /// Measures parts of `text`.
  CoreTextMeter(Font font, std::string_view text)
      : font_(std::move(font)), lineHeight_(lineMetrics(font_, text).height()) {}

  double lineHeight() const override { return lineHeight_; }
  double width(std::string_view text) const override;
  std::vector<std::size_t> breaks(std::string_view text) const override;

 private:
  Font font_;
  double lineHeight_;
};

}  // namespace rondora::appkit
