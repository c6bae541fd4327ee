#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/display_list.h"

namespace rondora {

/// Measures texts in one font, in points.
class TextMeter {
 public:
  virtual ~TextMeter() = default;

  virtual double lineHeight() const = 0;
  virtual double width(std::string_view text) const = 0;
  /// The ends of the pieces between which a line may break, in bytes, the last at the end of the text.
  virtual std::vector<std::size_t> breaks(std::string_view text) const = 0;
};

struct FittedLine {
  std::string text;
  /// Aligned inside it; as high as a line.
  Rect slot;
};

struct FittedText {
  double pointSize = 0;
  std::vector<FittedLine> lines;
  /// Decided by the first letter.
  bool isRightToLeft = false;
};

using MakeTextMeter = std::function<std::unique_ptr<TextMeter>(double pointSize)>;

/// Wraps the text inside its rectangle and its disc. Takes as few lines as possible, then the smaller size, then breaks
/// words, then elides.
FittedText fitText(const TextCommand& command, const MakeTextMeter& makeMeter);

}  // namespace rondora
